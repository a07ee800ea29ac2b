#include "quick/QuickWindow.h"

#include "tests/quick/FakePortal.h"
#include "tests/quick/WindowTest.h"
#include "uikit/UILabel.h"

namespace frelta {
namespace {

class DesktopLooks : public testing::Test {
 protected:
  DesktopLooks() {
    UIKitServices services;
    services.text = &text;
    UIKitServices::install(services);
  }
  ~DesktopLooks() override { UIView::setAnimationsEnabled(true); }

  static QColor shown(QuickWindow& window, const UIView& view) {
    window.mirror().flush();
    return window.itemFor(view)->property("color").value<QColor>();
  }

  const FakePlatform platform;
  QtTextMeasurer text;
  const QString space = QStringLiteral("org.freedesktop.appearance");
};

TEST_F(DesktopLooks, ReducedMotionGivesAnimationsNoLength) {
  FakePortal portal(QMap<QString, QVariant>{});
  Appearance appearance(UserInterfaceStyle::Light);
  QuickWindow window(std::make_shared<PlainScreen>(), appearance);
  ASSERT_TRUE(QTest::qWaitFor(
      [&] { return portal.wasRead(space, QStringLiteral("reduced-motion")); }, 20'000));
  const bool moving = UIView::areAnimationsEnabled() && window.mirror().theme().motion() == 1;

  portal.change(space, QStringLiteral("reduced-motion"), 1u);
  const bool stopped = QTest::qWaitFor([] { return !UIView::areAnimationsEnabled(); }, 20'000);

  EXPECT_TRUE(moving);
  EXPECT_TRUE(stopped);
  EXPECT_EQ(window.mirror().theme().motion(), 0);
}

TEST_F(DesktopLooks, HighContrastMakesWhatIsPaleSolid) {
  FakePortal portal(QMap<QString, QVariant>{});
  Appearance appearance(UserInterfaceStyle::Light);
  auto screen = std::make_shared<PlainScreen>();
  auto label = std::make_unique<UILabel>();
  label->setText("pale");
  label->setTextColor(UIColor::secondaryLabelColor());
  UIView* view = screen->view().addSubview(std::move(label));
  view->setFrame({0, 0, 100, 40});
  QuickWindow window(screen, appearance);
  window.resize(300, 300);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const QColor before = shown(window, *view);

  portal.change(space, QStringLiteral("contrast"), 1u);
  const bool changed = QTest::qWaitFor([&] { return shown(window, *view).alphaF() == 1; }, 20'000);

  EXPECT_LT(before.alphaF(), 1);
  EXPECT_TRUE(changed);
  EXPECT_NE(window.mirror().theme().border(), QColor(Qt::transparent));
}

}  // namespace
}  // namespace frelta
