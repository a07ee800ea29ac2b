#include <QDir>

#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "selector/FreltaStyleCell.h"
#include "selector/FreltaStyleSubCell.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "styles/CurrentSelector.h"
#include "tests/quick/WindowTest.h"
#include "tests/support/Pictures.h"
#include "uikit/UIAlertController.h"
#include "uikit/UINavigationController.h"

namespace frelta {
namespace {

// Nothing in the system makes groups of styles, so this is the page on which they are looked at.
class GroupsOnScreen : public WindowTest {
 protected:
  using Selector = FreltaThemeSelectorViewController;
  using Item = std::shared_ptr<FreltaStyleItem>;

  explicit GroupsOnScreen(UserInterfaceStyle style = UserInterfaceStyle::Light)
      : WindowTest(style) {
    GraphicsServices::install({&images});
  }
  ~GroupsOnScreen() override {
    window.reset();
    setCurrentSelector(nullptr);
    GraphicsServices::install({});
  }

  Item item(const std::string& name, Pixel color, bool isEnabled) {
    const std::string folder = "/Library/Frelta/Themes/" + name;
    platform.put(folder + "/IconBundles/icon.png",
                 images.pngRepresentation(*picture(60, 60, color)).value());
    auto made = std::make_shared<FreltaStyleItem>();
    made->setFulltitle("Pack of " + name);
    made->setIdentifier(name);
    made->setPath(folder);
    made->setIsEnabled(isEnabled);
    return made;
  }
  std::shared_ptr<FreltaSortedItem> group(const std::string& title, std::vector<Item> items,
                                          bool isExpanded) {
    auto made = std::make_shared<FreltaSortedItem>();
    made->setTitle(title);
    made->setItems(std::make_shared<std::vector<Item>>(std::move(items)));
    made->setIsExpanded(isExpanded);
    return made;
  }
  void showGroups(int width = 390) {
    platform.system.openWindows = {{true, appearance.style()}};
    seasons = group(
        "Seasons",
        {item("Spring", {120, 200, 120, 255}, false), item("Summer", {240, 190, 60, 255}, true),
         item("Winter with a very long name indeed", {120, 170, 230, 255}, false)},
        true);
    const auto colors = group(
        "Colours", {item("Red", {220, 60, 60, 255}, true), item("Blue", {60, 90, 220, 255}, true)},
        false);
    show(navigation, width, 700);
    selector = Selector::init();
    navigation->pushViewController(selector, false);
    selector->setIsGrouped(true);
    selector->setSortedStyles({seasons, colors});
    selector->tableView()->reloadData();
    settle();
  }
  FreltaStyleCell& cell(IndexPath path) {
    return dynamic_cast<FreltaStyleCell&>(*selector->tableView()->cellForRowAtIndexPath(path));
  }
  FreltaStyleSubCell& row(std::size_t index) {
    return dynamic_cast<FreltaStyleSubCell&>(*cell({1, 0}).subCellsView()->subviews()[index]);
  }
  UIAlertController* alert() {
    const auto presented = window->uiWindow().presentedViewControllers();
    return presented.empty() ? nullptr : dynamic_cast<UIAlertController*>(presented.back().get());
  }
  void pass(double seconds) {
    platform.mainQueue.advance(seconds);
    settle();
  }
  /// Has the window draw a frame, and leaves it where pictures are wanted.
  void takePicture(const QString& name) {
    const QImage frame = window->grabWindow();
    const QString folder = qEnvironmentVariable("FRELTA_PICTURES");
    if (folder.isEmpty()) return;
    EXPECT_TRUE(QDir().mkpath(folder));
    EXPECT_TRUE(frame.save(folder + QStringLiteral("/groups-") + name + QStringLiteral(".png")));
  }

  QtImageServices images;
  std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
  std::shared_ptr<Selector> selector;
  std::shared_ptr<FreltaSortedItem> seasons;
};

TEST_F(GroupsOnScreen, AClickOnAnItemSwitchesItAndMovesItsGroupUp) {
  showGroups();
  FreltaStyleCell* moving = &cell({1, 0});

  click(*row(0).contentView()->enableButton());
  pass(1);

  EXPECT_TRUE(seasons->items()->at(0)->isEnabled());
  EXPECT_EQ(&cell({0, 0}), moving);
  EXPECT_THAT(selector->enabledStyles(), testing::ElementsAre(seasons));
  EXPECT_EQ(window->itemFor(*moving)->y(), 0);
}

TEST_F(GroupsOnScreen, HoldingTheMouseOnAnItemTellsAboutIt) {
  showGroups();
  const QPoint place = pointIn(row(2), 0.5);

  QTest::mousePress(window.get(), Qt::LeftButton, {}, place);
  pass(0.49);
  EXPECT_EQ(alert(), nullptr);
  pass(0.01);

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Style_INFO");
  EXPECT_EQ(alert()->message(),
            "Style_PACK: Pack of Winter with a very long name indeed\n"
            "Style: Winter with a very long name indeed");
  QTest::mouseRelease(window.get(), Qt::LeftButton, {}, place);
  pass(1);
  EXPECT_EQ(window->uiWindow().presentedViewControllers().size(), 1U);
}

TEST_F(GroupsOnScreen, HoldingTheMouseOnAnItemsButtonDoesNotPressIt) {
  showGroups();
  const QPoint place = pointIn(*row(0).contentView()->enableButton());

  QTest::mousePress(window.get(), Qt::LeftButton, {}, place);
  pass(0.5);
  QTest::mouseRelease(window.get(), Qt::LeftButton, {}, place);
  pass(1);

  EXPECT_NE(alert(), nullptr);
  EXPECT_FALSE(seasons->items()->at(0)->isEnabled());
}

TEST_F(GroupsOnScreen, TheSecondButtonOnAnItemTellsAboutItToo) {
  showGroups();

  QTest::mouseClick(window.get(), Qt::RightButton, {}, pointIn(row(0), 0.3));
  pass(0);

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->message(), "Style_PACK: Pack of Spring\nStyle: Spring");
}

TEST_F(GroupsOnScreen, HoldingTheMouseOnAHeaderDoesNothing) {
  showGroups();
  const QPoint place = pointIn(*cell({1, 0}).headerView()->headerLabel());

  QTest::mousePress(window.get(), Qt::LeftButton, {}, place);
  pass(0.6);
  QTest::mouseRelease(window.get(), Qt::LeftButton, {}, place);
  pass(1);

  EXPECT_EQ(alert(), nullptr);
}

TEST_F(GroupsOnScreen, TheTabKeyGoesThroughTheButtonsFromTheTop) {
  showGroups();
  std::vector<std::string> names;

  for (int i = 0; i < 12; ++i) {
    key(Qt::Key_Tab);
    if (auto* button = dynamic_cast<FreltaToggleButton*>(focusedView()))
      names.push_back(button->accessibility().label);
  }

  names.resize(std::min<std::size_t>(names.size(), 5));
  EXPECT_THAT(
      names, testing::ElementsAre("Disable Seasons", "Enable Spring", "Disable Summer",
                                  "Enable Winter with a very long name indeed", "Disable Colours"));
}

TEST_F(GroupsOnScreen, CardsFollowTheDesktopIntoTheDarkAndBack) {
  showGroups();
  const auto groundOf = [&](const FreltaStyleContentsCell& row) {
    const QPoint point = pointIn(*row.contentView(), 0.6, 0.9);
    return window->grabWindow().pixelColor(point).name();
  };
  const auto turn = [&](UserInterfaceStyle style) {
    platform.system.openWindows = {{true, style}};
    window->mirror().setStyle(style);
    settle();
  };
  EXPECT_EQ(groundOf(*cell({1, 0}).headerView()), QStringLiteral("#f5f5f5"));

  turn(UserInterfaceStyle::Dark);
  EXPECT_EQ(groundOf(*cell({1, 0}).headerView()), QStringLiteral("#1d1d1d"));
  EXPECT_EQ(groundOf(*row(1).contentView()), QStringLiteral("#1d1d1d"));

  turn(UserInterfaceStyle::Light);
  EXPECT_EQ(groundOf(*cell({1, 0}).headerView()), QStringLiteral("#f5f5f5"));
  EXPECT_EQ(groundOf(*row(1).contentView()), QStringLiteral("#f5f5f5"));
}

TEST_F(GroupsOnScreen, TheGroundOfTheRowsGoesOnBelowTheLast) {
  showGroups();
  platform.system.openWindows = {{true, UserInterfaceStyle::Dark}};
  window->mirror().setStyle(UserInterfaceStyle::Dark);
  settle();

  const QImage shown = window->grabWindow();

  EXPECT_EQ(shown.pixelColor(3, 60).name(), QStringLiteral("#0f0f0f"));
  EXPECT_EQ(shown.pixelColor(3, 690).name(), QStringLiteral("#0f0f0f"));
}

TEST_F(GroupsOnScreen, CardsAreMirroredFromRightToLeft) {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);

  showGroups();
  takePicture(QStringLiteral("right-to-left"));

  EXPECT_EQ(placeOf(*cell({1, 0}).headerView()->enableButton()).x(), 17.5);
  EXPECT_EQ(placeOf(*row(0).contentView()->enableButton()).x(), 17);
  EXPECT_GT(placeOf(*row(0).contentView()->iconImageView()).x(), 195);
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

struct GroupLook {
  int width;
  UserInterfaceStyle style;

  std::string title() const {
    return std::to_string(width) + (style == UserInterfaceStyle::Dark ? "Dark" : "Light");
  }
  friend void PrintTo(const GroupLook& look, std::ostream* out) { *out << look.title(); }
};

class GroupPictures : public GroupsOnScreen, public testing::WithParamInterface<GroupLook> {
 protected:
  GroupPictures() : GroupsOnScreen(GetParam().style) {}
};

// With FRELTA_PICTURES set to a folder, each frame is left there for a person to open.
TEST_P(GroupPictures, OfACollapseAndAnExpansion) {
  showGroups(GetParam().width);
  const QString name = QString::fromStdString(GetParam().title()) + u'-';
  QQuickItem* rows = window->itemFor(*cell({1, 0}).subCellsView());
  takePicture(name + QStringLiteral("0-expanded"));

  cell({1, 0}).setSubCellsHidden(true);
  pass(0);
  EXPECT_EQ(rows->opacity(), 1);
  for (int frame = 1; frame <= 4; ++frame) {
    pass(0.05);
    takePicture(name + QStringLiteral("1-collapse-%1").arg(frame));
    if (frame == 2) {
      EXPECT_NEAR(rows->opacity(), 0.5, 1e-4);
    }
  }
  pass(0.001);
  EXPECT_FALSE(rows->isVisible());
  cell({1, 0}).setSubCellsHidden(false);
  for (int frame = 1; frame <= 4; ++frame) {
    pass(0.05);
    takePicture(name + QStringLiteral("2-expand-%1").arg(frame));
  }
  pass(0.001);

  EXPECT_EQ(rows->opacity(), 1);
  EXPECT_TRUE(rows->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Looks, GroupPictures,
                         testing::Values(GroupLook{320, UserInterfaceStyle::Light},
                                         GroupLook{390, UserInterfaceStyle::Light},
                                         GroupLook{390, UserInterfaceStyle::Dark},
                                         GroupLook{640, UserInterfaceStyle::Light}),
                         [](const auto& look) { return look.param.title(); });

}  // namespace
}  // namespace frelta
