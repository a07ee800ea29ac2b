#include <QGuiApplication>
#include <QStyleHints>
#include <QTest>

#include "tests/quick/WindowTest.h"
#include "uikit/UILabel.h"

namespace frelta {
namespace {

const QString kName =
    QStringLiteral("A style whose name is a good deal wider than the card it is on");

class WholeTextTest : public WindowTest {
 protected:
  WholeTextTest() { QGuiApplication::styleHints()->setMousePressAndHoldInterval(1); }
  ~WholeTextTest() override {
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(intervalBefore_);
  }

  UILabel* showLabel(const QString& text) {
    UIView& root = showPlain();
    auto label = std::make_unique<UILabel>(CGRect{150, 200, 100, 40});
    label->setText(text.toStdString());
    UILabel* shown = root.addSubview(std::move(label));
    settle();
    QTest::mouseMove(window.get(), {5, 5});
    window->grabWindow();
    settle();
    return shown;
  }
  /// What is shown of it beside the label; none while nothing is.
  std::optional<QString> told() const {
    const QQuickItem* text = find(*window->contentItem());
    if (!text) return std::nullopt;
    return text->property("text").toString();
  }
  bool tells(const QString& text) {
    return QTest::qWaitFor([&] { return told() == text; }, 20'000);
  }
  bool tellsNothing() {
    return QTest::qWaitFor([&] { return !told(); }, 20'000);
  }
  bool isWatched(const UILabel& label) {
    const auto children = item(label)->childItems();
    return !children.empty() && !children.front()->childItems().empty();
  }
  /// What watches the label is made when there is time for it.
  bool becomesWatched(const UILabel& label) {
    return QTest::qWaitFor([&] { return isWatched(label); }, 20'000);
  }

 private:
  static QQuickItem* find(QQuickItem& item) {
    if (!item.isVisible()) return nullptr;
    if (item.objectName() == QStringLiteral("wholeText")) return &item;
    for (QQuickItem* child : item.childItems()) {
      if (QQuickItem* found = find(*child)) return found;
    }
    return nullptr;
  }

  const int intervalBefore_ = QGuiApplication::styleHints()->mousePressAndHoldInterval();
};

TEST_F(WholeTextTest, APointerThatStaysReadsAllOfWhatIsCutOff) {
  const UILabel* label = showLabel(kName);
  ASSERT_TRUE(becomesWatched(*label));
  const auto before = told();

  QTest::mouseMove(window.get(), pointIn(*label));
  const bool shown = tells(kName);
  QTest::mouseMove(window.get(), {5, 500});

  EXPECT_EQ(before, std::nullopt);
  EXPECT_TRUE(shown);
  EXPECT_TRUE(tellsNothing());
}

TEST_F(WholeTextTest, SoDoesAFingerThatStaysDown) {
  static QPointingDevice* const finger = QTest::createTouchDevice();
  const UILabel* label = showLabel(kName);
  ASSERT_TRUE(becomesWatched(*label));

  QTest::touchEvent(window.get(), finger).press(0, pointIn(*label));
  const bool shown = tells(kName);
  QTest::touchEvent(window.get(), finger).release(0, pointIn(*label));

  EXPECT_TRUE(shown);
  EXPECT_TRUE(tellsNothing());
}

TEST_F(WholeTextTest, WhatFitsHasNothingMoreToTell) {
  UILabel* label = showLabel(kName);
  ASSERT_TRUE(becomesWatched(*label));

  label->setText("Short");
  settle();
  window->grabWindow();
  settle();

  EXPECT_FALSE(isWatched(*label));
}

}  // namespace
}  // namespace frelta
