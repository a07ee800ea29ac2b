#include "app/BroadcastFollower.h"

#include "tests/app/HeardNames.h"
#include "tests/app/SelectorWindow.h"
#include "tests/support/PrivateBus.h"
#include "uikit/UIAlertController.h"

namespace frelta {
namespace {

/// The window and another program, on one bus and one settings file.
class BroadcastFollowerTest : public testing::Test {
 protected:
  void open(const Dictionary& settings, QSize size = {390, 844}) {
    ASSERT_NO_FATAL_FAILURE(window.putSettings(settings));
    window.services.darwinNotificationCenter = &own;
    ASSERT_NO_FATAL_FAILURE(window.open(QStringLiteral(FRELTA_BUNDLE), size));
    follower =
        std::make_unique<BroadcastFollower>(own, *window.application->navigationController());
    // The first post connects.
    other.post("hello");
  }
  /// What the other program does.
  void write(const Dictionary& settings) {
    ASSERT_NO_FATAL_FAILURE(window.putSettings(settings));
    window.platform.files.resetCalls();
    other.post("com.tarno.frelta.refresh");
  }
  bool comesTrue(const std::function<bool()>& condition) {
    return QTest::qWaitFor(
        [&] {
          window.settle();
          return condition();
        },
        20'000);
  }
  bool isOn(const std::string& row) {
    return findView<UISwitch>(*window.driver->findRow(row))->isOn();
  }
  /// What the row shows for its value, without scrolling there.
  std::string detailInSight(const std::string& row) {
    for (const UITableViewCell* cell : window.table().visibleCells()) {
      if (cell->accessibilityIdentifier() == row) return cell->detailTextLabel()->text();
    }
    return {};
  }
  std::string rowWithKeyboard() {
    for (const UITableViewCell* cell : window.table().visibleCells()) {
      const QQuickItem* item = window.application->window()->itemFor(*cell);
      if (item && item->hasActiveFocus()) return cell->accessibilityIdentifier();
    }
    return {};
  }
  /// Whether a button of that name is among the rows that are there.
  bool isTold(const std::string& button) {
    for (UITableViewCell* cell : window.table().visibleCells()) {
      if (hasButton(*cell, button)) return true;
    }
    return false;
  }
  static bool hasButton(UIView& view, const std::string& name) {
    if (dynamic_cast<UIButton*>(&view) && view.accessibility().label == name) return true;
    return std::ranges::any_of(view.subviews(),
                               [&](const auto& subview) { return hasButton(*subview, name); });
  }
  int readsOfSettings() const {
    return static_cast<int>(
        window.platform.files.count(FailingFiles::Operation::Read, kSettingsPath));
  }

  PrivateBus bus;
  LinuxDarwinNotificationCenter own;
  LinuxDarwinNotificationCenter other;
  SelectorWindow window;
  std::unique_ptr<BroadcastFollower> follower;
};

TEST_F(BroadcastFollowerTest, ThePageShowsWhatAnotherProgramWrote) {
  ASSERT_NO_FATAL_FAILURE(open({{"HideKeyCaps", 1}, {"BackgroundMode", 0}}));
  ASSERT_TRUE(isOn("HideKeyCaps"));

  write({{"HideKeyCaps", 0}, {"BackgroundMode", 3}});

  EXPECT_TRUE(comesTrue([&] { return !isOn("HideKeyCaps"); }));
  EXPECT_TRUE(window.driver->hasRow("FreltaThemesCell"));
}

TEST_F(BroadcastFollowerTest, ThePresetsTickTheOneThatAnotherProgramApplied) {
  for (const char* name : {"/Library/Frelta/Presets/A.plist", "/Library/Frelta/Presets/B.plist"})
    window.platform.put(name, "<plist><dict/></plist>");
  ASSERT_NO_FATAL_FAILURE(open({{"CurrentPreset", "/Library/Frelta/Presets/A.plist"}}));
  ASSERT_TRUE(window.driver->tapRow("CurrentPreset"));
  window.settle();

  write({{"CurrentPreset", "/Library/Frelta/Presets/B.plist"}});

  EXPECT_TRUE(comesTrue([&] {
    return window.driver->findRowWithText("B")->accessoryType() ==
           UITableViewCellAccessoryType::Checkmark;
  }));
  EXPECT_EQ(window.driver->findRowWithText("A")->accessoryType(),
            UITableViewCellAccessoryType::None);
}

TEST_F(BroadcastFollowerTest, ItsOwnPostsChangeNothing) {
  ASSERT_NO_FATAL_FAILURE(open({{"HideKeyCaps", 1}}));
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));
  window.settle();
  window.platform.files.resetCalls();
  HeardNames heard;

  own.post("com.tarno.frelta.refresh");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !heard.names.isEmpty(); }, 20'000));
  const UITableViewCell* cell = window.driver->findRow("CurrentPreset");
  const auto stays = cell->lifetime();
  window.settle();

  EXPECT_FALSE(stays.expired());
  EXPECT_EQ(readsOfSettings(), 0);
}

TEST_F(BroadcastFollowerTest, ManyBroadcastsInOneTurnAreOneReading) {
  ASSERT_NO_FATAL_FAILURE(open({{"HideKeyCaps", 1}}));
  write({{"HideKeyCaps", 0}});
  for (int i = 0; i < 20; ++i) other.post("com.tarno.frelta.refresh");
  HeardNames heard;
  other.post("end");
  ASSERT_TRUE(QTest::qWaitFor([&] { return heard.names.contains(QStringLiteral("end")); }, 20'000));

  window.settle();

  EXPECT_FALSE(isOn("HideKeyCaps"));
  EXPECT_LE(readsOfSettings(), 4);
}

TEST_F(BroadcastFollowerTest, TheScrollPlaceAndAnOpenAlertStay) {
  ASSERT_NO_FATAL_FAILURE(open({{"CustomTextColour", "#FF0000FF"}}, {390, 500}));
  ASSERT_TRUE(window.driver->tapRow("CustomTextColour"));
  window.settle();
  const UIAlertController* alert = window.driver->alert();
  ASSERT_NE(alert, nullptr);
  const double place = window.table().contentOffset().y;
  ASSERT_GT(place, 0);

  write({{"CustomTextColour", "#00FF00FF"}});
  const auto detail = [&] {
    return window.driver->findRow("CustomTextColour")->detailTextLabel()->text();
  };

  EXPECT_TRUE(comesTrue([&] { return detail() == "#00FF00FF"; }));
  EXPECT_EQ(window.driver->alert(), alert);
  EXPECT_EQ(window.table().contentOffset().y, place);
}

TEST_F(BroadcastFollowerTest, TheKeyboardStaysInTheRowAndNothingScrolls) {
  ASSERT_NO_FATAL_FAILURE(open({{"CustomTextColour", "#FF0000FF"}}, {390, 500}));
  QuickWindow& quick = *window.application->window();
  quick.requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&quick));
  quick.itemFor(*window.driver->findRow("CustomTextColour"))->forceActiveFocus(Qt::TabFocusReason);
  const double end = window.driver->findRow("CustomTextColour")->frame().maxY();
  window.table().userDidScroll({0, end + 50});
  window.settle();
  const double place = window.table().contentOffset().y;
  ASSERT_GT(place, end);

  write({{"CustomTextColour", "#00FF00FF"}});
  ASSERT_TRUE(comesTrue([&] { return detailInSight("CustomTextColour") == "#00FF00FF"; }));
  quick.grabWindow();

  EXPECT_EQ(window.table().contentOffset().y, place);
  EXPECT_EQ(rowWithKeyboard(), "CustomTextColour");
}

TEST_F(BroadcastFollowerTest, AHalfTypedNameStaysAndTheTickMovesBelowIt) {
  for (const char* name : {"/Library/Frelta/Presets/A.plist", "/Library/Frelta/Presets/B.plist"})
    window.platform.put(name, "<plist><dict/></plist>");
  ASSERT_NO_FATAL_FAILURE(open({{"CurrentPreset", "/Library/Frelta/Presets/A.plist"}}));
  ASSERT_TRUE(window.driver->tapRow("CurrentPreset"));
  window.settle();
  ASSERT_TRUE(window.driver->tapRightButton());
  ASSERT_TRUE(window.driver->typeIntoAlert(0, QStringLiteral("hal")));

  write({{"CurrentPreset", "/Library/Frelta/Presets/B.plist"}});
  ASSERT_TRUE(comesTrue([&] {
    return window.driver->findRowWithText("B")->accessoryType() ==
           UITableViewCellAccessoryType::Checkmark;
  }));
  QTest::keyClick(window.application->window(), Qt::Key_F);

  ASSERT_NE(window.driver->alert(), nullptr);
  EXPECT_EQ(window.driver->alert()->textFields()[0]->text(), "half");
}

TEST_F(BroadcastFollowerTest, TheCardsShowTheStyleThatAnotherProgramTurnedOn) {
  for (int i = 10; i < 40; ++i) window.installStyle(kImagesKind, std::to_string(i), kRed);
  ASSERT_NO_FATAL_FAILURE(open(
      {{"BackgroundMode", 3}, {"EnabledThemePath", SelectorWindow::pathOf(kImagesKind, "10")}}));
  ASSERT_TRUE(window.driver->tapRow("FreltaThemesCell"));
  window.settle();
  window.table().userDidScroll({0, 300});
  window.settle();

  write({{"BackgroundMode", 3}, {"EnabledThemePath", SelectorWindow::pathOf(kImagesKind, "30")}});

  EXPECT_TRUE(comesTrue([&] { return isTold("Disable 30"); }));
  EXPECT_EQ(window.table().contentOffset().y, 300);
  EXPECT_FALSE(isTold("Disable 10"));
}

TEST_F(BroadcastFollowerTest, TheTickedValueOfARowIsTheOneThatAnotherProgramWrote) {
  ASSERT_NO_FATAL_FAILURE(open({{"BackgroundMode", 2}, {"backgroundImageContentModeInt", 0}}));
  ASSERT_TRUE(window.driver->tapRow("backgroundImageContentModeInt"));
  window.settle();

  write({{"BackgroundMode", 2}, {"backgroundImageContentModeInt", 2}});

  EXPECT_TRUE(comesTrue([&] {
    return window.driver->findRowWithText("Fill the keyboard")->accessoryType() ==
           UITableViewCellAccessoryType::Checkmark;
  }));
  EXPECT_EQ(window.driver->findRowWithText("Stretch")->accessoryType(),
            UITableViewCellAccessoryType::None);
}

TEST_F(BroadcastFollowerTest, PassesOverNamesThatAreLongerThanAny) {
  HeardNames heard;
  const std::string longest(255, 'n');

  other.post(longest + 'n');
  other.post(longest);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !heard.names.isEmpty(); }, 20'000));

  EXPECT_EQ(heard.names, QStringList{QString::fromStdString(longest)});
}

TEST_F(BroadcastFollowerTest, OtherNamesChangeNothing) {
  ASSERT_NO_FATAL_FAILURE(open({{"HideKeyCaps", 1}}));
  ASSERT_NO_FATAL_FAILURE(window.putSettings({{"HideKeyCaps", 0}}));
  HeardNames heard;

  other.post("com.tarno.freltaprefs");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !heard.names.isEmpty(); }, 20'000));
  window.settle();

  EXPECT_TRUE(isOn("HideKeyCaps"));
}

}  // namespace
}  // namespace frelta
