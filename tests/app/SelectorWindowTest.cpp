#include <QImage>
#include <QWheelEvent>
#include <filesystem>
#include <set>

#include "tests/app/PicturesOnDemand.h"
#include "tests/app/SelectorWindow.h"
#include "uikit/UIImageView.h"

namespace frelta {
namespace {

using testing::ElementsAre;

/// What a card shows on the screen.
struct Card {
  std::string title;
  std::string kind;
  std::string button;
  QColor pill;
  QColor icon;
};

/// The texts shown below the item, in order.
void collectTexts(const QQuickItem& item, std::vector<std::string>& texts) {
  if (!item.isVisible()) return;
  const std::string text = item.property("text").toString().toStdString();
  if (item.inherits("QQuickText") && !text.empty()) texts.push_back(text);
  for (const QQuickItem* child : item.childItems()) collectTexts(*child, texts);
}

class SelectorWindowTest : public testing::Test {
 protected:
  QuickWindow& quick() { return *window.application->window(); }
  TourDriver& driver() { return *window.driver; }
  UITableViewCell* cell(int row) { return window.table().cellForRowAtIndexPath({1, row}); }
  /// The pixel at the share of the view's width, in its middle line.
  QColor pixel(const QImage& shown, const UIView& view, double xShare) {
    const QQuickItem* item = quick().itemFor(view);
    const QPointF point = item->mapToScene({item->width() * xShare, item->height() / 2});
    return shown.pixelColor((point * shown.devicePixelRatio()).toPoint());
  }
  Card card(int row, const QImage& shown) {
    UITableViewCell& shownCell = *cell(row);
    std::vector<std::string> texts;
    collectTexts(*quick().itemFor(shownCell), texts);
    texts.resize(3);
    return {texts[0], texts[1], texts[2], pixel(shown, *findView<UIButton>(shownCell), 0.07),
            pixel(shown, *findView<UIImageView>(shownCell), 0.5)};
  }
  bool isWholeOnScreen(const UIView& view) {
    const QQuickItem* item = quick().itemFor(view);
    const QRectF place = item->mapRectToScene({0, 0, item->width(), item->height()});
    return place.top() > 44 && place.bottom() < quick().height();
  }
  std::vector<std::string> buttons() {
    std::vector<std::string> titles;
    const QImage shown = quick().grabWindow();
    for (int row = 0; row < window.table().numberOfRowsInSection(1); ++row)
      titles.push_back(card(row, shown).button);
    return titles;
  }
  std::vector<std::string> titles() {
    std::vector<std::string> names;
    const QImage shown = quick().grabWindow();
    for (int row = 0; row < window.table().numberOfRowsInSection(1); ++row)
      names.push_back(card(row, shown).title);
    return names;
  }
  std::size_t broadcasts() const { return window.platform.notifications.posted.size(); }
  void click(const UIView& view) {
    EXPECT_TRUE(driver().tapView(view));
    window.settle();
  }

  SelectorWindow window;
};

class EachKind : public SelectorWindowTest, public testing::WithParamInterface<SelectorKind> {};

TEST_P(EachKind, ATapOnEachCardSwitchesItOnInTheFileAndAllOthersOff) {
  const SelectorKind& kind = GetParam();
  for (const char* name : {"A", "B", "C"}) window.installStyle(kind, name, {9, 99, 199, 255});
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kind));
  const std::vector<std::string> names = titles();
  ASSERT_EQ(names.size(), 3U);
  EXPECT_THAT(buttons(), ElementsAre("Enable", "Enable", "Enable"));

  for (int row = 0; row < 3; ++row) {
    click(*findView<UIButton>(*cell(row)));

    const std::string& name = names[static_cast<std::size_t>(row)];
    EXPECT_EQ(window.settings().at(kind.key), SelectorWindow::pathOf(kind, name));
    EXPECT_EQ(broadcasts(), static_cast<std::size_t>(row) + 1);
    // The pills change their colour in a quarter of a second.
    window.platform.mainQueue.advance(0.25);
    window.settle();
    const QImage shown = quick().grabWindow();
    for (int other = 0; other < 3; ++other) {
      const Card now = card(other, shown);
      EXPECT_EQ(now.title, names[static_cast<std::size_t>(other)]);
      EXPECT_EQ(now.kind, kind.subtitle);
      EXPECT_EQ(now.button, other == row ? "Disable" : "Enable");
      EXPECT_EQ(now.pill == QColor(255, 59, 48), other == row) << now.pill.name().toStdString();
    }
  }
  click(*findView<UIButton>(*cell(2)));
  EXPECT_EQ(window.settings().at(kind.key), "");
  EXPECT_EQ(broadcasts(), 4U);
  EXPECT_THAT(buttons(), ElementsAre("Enable", "Enable", "Enable"));
}

TEST_P(EachKind, ShowsItsExampleAndKeepsOtherKeys) {
  const SelectorKind& kind = GetParam();
  window.installExamples();
  window.putSettings({{"SomebodyElses", Array{1, "two"}}});
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kind));
  ASSERT_THAT(titles(), ElementsAre(kind.example));
  // The images theme alone has no default.
  const bool isDefault = kind.key != "EnabledThemePath";
  EXPECT_THAT(buttons(), ElementsAre(isDefault ? "Disable" : "Enable"));

  EXPECT_TRUE(driver().tapButton((isDefault ? "Disable " : "Enable ") + kind.example));
  window.settle();

  EXPECT_EQ(window.settings(),
            (Dictionary{{"SomebodyElses", Array{1, "two"}},
                        {"BackgroundMode", kind.mode},
                        {kind.key,
                         isDefault ? std::string() : SelectorWindow::pathOf(kind, kind.example)}}));
  EXPECT_EQ(broadcasts(), 1U);
}

TEST_P(EachKind, AStyleSwitchedOnIsInUseOnThePageThatOpensNext) {
  const SelectorKind& kind = GetParam();
  window.installStyle(kind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kind));
  click(*findView<UIButton>(*cell(0)));
  ASSERT_TRUE(driver().tapBack());
  window.settle();

  ASSERT_TRUE(driver().tapRow("Settings"));
  window.settle();

  EXPECT_EQ(driver().findRow(kind.key)->detailTextLabel()->text(), "A");
}

INSTANTIATE_TEST_SUITE_P(Kinds, EachKind, testing::Values(kImagesKind, kHTMLKind, kWidgetKind),
                         [](const auto& kind) { return kind.param.name; });

TEST_F(SelectorWindowTest, TwoQuickClicksAreOnAndOffAgain) {
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  const QQuickItem* item = quick().itemFor(*findView<UIButton>(*cell(0)));
  const QPoint place = item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();

  QTest::mouseClick(&quick(), Qt::LeftButton, {}, place);
  QTest::mouseClick(&quick(), Qt::LeftButton, {}, place);
  window.settle();

  EXPECT_EQ(window.settings().at("EnabledThemePath"), "");
  EXPECT_EQ(broadcasts(), 2U);
  EXPECT_THAT(buttons(), ElementsAre("Enable"));
}

TEST_F(SelectorWindowTest, TheKeyboardReachesAndPressesAButtonAndStaysOnIt) {
  window.installStyle(kImagesKind, "A", kRed);
  window.installStyle(kImagesKind, "B", kBlue);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  quick().requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&quick()));
  quick().itemFor(*findView<UIButton>(*cell(1)))->forceActiveFocus(Qt::TabFocusReason);

  QTest::keyClick(&quick(), Qt::Key_Space);
  window.settle();

  EXPECT_THAT(buttons(), ElementsAre("Enable", "Disable"));
  EXPECT_EQ(quick().activeFocusItem(), quick().itemFor(*findView<UIButton>(*cell(1))));
  QTest::keyClick(&quick(), Qt::Key_Return);
  window.settle();
  EXPECT_THAT(buttons(), ElementsAre("Enable", "Enable"));
}

TEST_F(SelectorWindowTest, FlingsShowEachStyleWithItsOwnTitlePictureAndState) {
  const auto colorOf = [](const std::string& name) {
    const int number = std::stoi(name);
    return QColor(number * 2, 255 - number, 50 + number * 7 % 200);
  };
  for (int i = 0; i < 100; ++i) {
    const QColor color = colorOf(std::to_string(i));
    window.installStyle(kImagesKind, std::to_string(i),
                        {color.red(), color.green(), color.blue(), 255});
  }
  window.putSettings({{"EnabledThemePath", SelectorWindow::pathOf(kImagesKind, "42")}});
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  std::size_t seen = 0;

  for (const int angle : {-2'400, -12'000, 3'600, -24'000, 1'200, 24'000}) {
    for (int event = 0; event < 5; ++event) {
      QWheelEvent wheel(QPointF(200, 400), QPointF(200, 400), QPoint(), QPoint(0, angle / 5),
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(&quick(), &wheel);
      QCoreApplication::processEvents();

      const QImage shown = quick().grabWindow();
      for (const IndexPath path : window.table().indexPathsForVisibleRows()) {
        if (!isWholeOnScreen(*cell(path.row))) continue;
        const Card now = card(path.row, shown);
        EXPECT_EQ(now.button, now.title == "42" ? "Disable" : "Enable");
        EXPECT_EQ(now.pill == QColor(255, 59, 48), now.title == "42");
        EXPECT_EQ(now.icon.name(), colorOf(now.title).name()) << now.title;
        ++seen;
      }
    }
  }

  EXPECT_GT(seen, 100U);
}

TEST_F(SelectorWindowTest, EveryCardFollowsTheDesktopIntoTheDarkInOneGreyAlsoThoseThatWaited) {
  for (int i = 0; i < 20; ++i) window.installStyle(kImagesKind, std::to_string(i), kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  const auto scrollTo = [&](double y) {
    window.table().userDidScroll({0, y});
    window.settle();
  };
  const auto keep = [&](const std::string& name) { keepPicture(driver(), "switched-" + name); };
  keep("0-light");
  scrollTo(1e9);
  scrollTo(0);

  window.platform.system.openWindows = {{true, UserInterfaceStyle::Dark}};
  quick().mirror().setStyle(UserInterfaceStyle::Dark);
  window.settle();

  std::set<std::string> cards;
  std::set<std::string> pills;
  for (const double y : {0.0, 650.0, 1'300.0, 1e9}) {
    scrollTo(y);
    keep("1-dark-" + std::to_string(static_cast<int>(std::min(y, 9e3))));
    const QImage shown = quick().grabWindow();
    for (const IndexPath path : window.table().indexPathsForVisibleRows()) {
      if (!isWholeOnScreen(*cell(path.row))) continue;
      const UIView& button = *findView<UIButton>(*cell(path.row));
      cards.insert(pixel(shown, *button.superview(), 0.99).name().toStdString());
      pills.insert(pixel(shown, button, 0.07).name().toStdString());
    }
  }
  EXPECT_THAT(cards, ElementsAre("#1d1d1d"));
  EXPECT_THAT(pills, ElementsAre("#2a2a2a"));
  quick().mirror().setStyle(UserInterfaceStyle::Dark, true);
  window.settle();
  keep("2-dark-contrast");
  quick().mirror().setStyle(UserInterfaceStyle::Light);
  window.settle();
  keep("3-light");
}

TEST_F(SelectorWindowTest, AStyleInstalledMeanwhileShowsWhenTheScreenIsOpenedAgain) {
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  window.installStyle(kImagesKind, "B", kBlue);
  EXPECT_EQ(titles().size(), 1U);

  EXPECT_TRUE(driver().tapBack());
  EXPECT_TRUE(driver().tapRow(kImagesKind.row));
  window.settle();

  EXPECT_EQ(titles().size(), 2U);
}

TEST_F(SelectorWindowTest, AnEmptyFolderIsAnEmptyScreenWithAWayBack) {
  std::filesystem::create_directories(window.platform.hostPath(kThemesFolder));
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kWidgetKind));

  EXPECT_EQ(window.table().numberOfRowsInSection(1), 0);
  EXPECT_EQ(driver().alert(), nullptr);
  EXPECT_TRUE(driver().tapBack());
  EXPECT_TRUE(driver().hasRow(kWidgetKind.row));
}

TEST_F(SelectorWindowTest, AFileThatCannotBeWrittenLeavesTheScreenAlive) {
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  const Dictionary before = window.settings();
  window.platform.files.fail(FailingFiles::Operation::Write);

  click(*findView<UIButton>(*cell(0)));

  EXPECT_EQ(window.settings(), before);
  EXPECT_THAT(buttons(), ElementsAre("Disable"));
}

TEST_F(SelectorWindowTest, FollowsANarrowerAndAWiderWindow) {
  window.installStyle(kImagesKind, "A title of some length", kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind, {1000, 700}));

  for (const int width : {320, 390, 640, 330}) {
    quick().resize(width, 700);
    window.settle();

    const QQuickItem* button = quick().itemFor(*findView<UIButton>(*cell(0)));
    EXPECT_EQ(button->mapToScene({button->width(), 0}).x(), width - 7.5 - 10);
    EXPECT_THAT(titles(), ElementsAre("A title of some length"));
    const auto* label = findView<UILabel>(*findView<UIButton>(*cell(0))->superview());
    EXPECT_GT(label->frame().size.width, 70);
  }
}

}  // namespace
}  // namespace frelta
