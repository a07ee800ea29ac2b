#include <QAccessible>

#include "tests/app/EveryPage.h"
#include "tests/app/SelectorWindow.h"
#include "uikit/UIAlertController.h"

namespace frelta {
namespace {

using testing::SizeIs;

/// What assistive technology is told of the window.
class CoveredPages : public testing::Test {
 protected:
  void openFirst(const Dictionary& settings) {
    window.installExamples();
    window.platform.put("/Library/Frelta/Presets/Work.plist", "<plist><dict/></plist>");
    ASSERT_NO_FATAL_FAILURE(window.putSettings(settings));
    // High enough that no row comes and goes.
    ASSERT_NO_FATAL_FAILURE(window.open(QStringLiteral(FRELTA_BUNDLE), {390, 2400}));
  }
  void openPage(const PageBehind& behind) {
    ASSERT_NO_FATAL_FAILURE(openFirst(behind.settings()));
    first = nodes();
    if (!behind.row.empty()) {
      ASSERT_TRUE(window.driver->tapRow(behind.row));
      window.settle();
    }
    page = nodes();
  }

  /// Role and name of each element, in order.
  std::vector<std::string> nodes() {
    std::vector<std::string> found;
    collect(QAccessible::queryAccessibleInterface(window.application->window()), found);
    return found;
  }
  void escape() {
    QTest::keyClick(window.application->window(), Qt::Key_Escape);
    window.settle();
  }
  void goBack() {
    if (window.application->navigationController()->viewControllers().size() < 2) return;
    ASSERT_TRUE(window.driver->tapBack());
    window.settle();
  }

  SelectorWindow window;
  std::vector<std::string> first;
  std::vector<std::string> page;

 private:
  static void collect(QAccessibleInterface* parent, std::vector<std::string>& found) {
    for (int i = 0; i < parent->childCount(); ++i) {
      QAccessibleInterface* child = parent->child(i);
      if (child->state().invisible) continue;
      found.push_back(std::to_string(child->role()) + " " +
                      child->text(QAccessible::Name).toStdString());
      collect(child, found);
    }
  }
};

/// Everything that an alert may hold.
enum class Holding { Question, Fields, View };

std::shared_ptr<UIAlertController> alertHolding(Holding holding) {
  auto alert = UIAlertController::alertControllerWithTitle("Title", "Message");
  if (holding == Holding::Fields) {
    for (int i = 0; i < 2; ++i) alert->addTextFieldWithConfigurationHandler(nullptr);
  }
  if (holding == Holding::View) alert->setContentView(std::make_unique<UISwitch>());
  if (holding != Holding::Question)
    alert->addAction(UIAlertAction::actionWithTitle("Done", UIAlertActionStyle::Default));
  alert->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel));
  return alert;
}

class CoveredPagesAndAlerts : public CoveredPages,
                              public testing::WithParamInterface<std::tuple<PageBehind, Holding>> {
 protected:
  void SetUp() override { ASSERT_NO_FATAL_FAILURE(openPage(std::get<PageBehind>(GetParam()))); }
  void present() {
    window.page().presentViewController(alertHolding(std::get<Holding>(GetParam())), true);
    window.settle();
  }
};

TEST_P(CoveredPagesAndAlerts, AreReadWholeWhenTheAlertHasGoneAndWhenOneGoesBack) {
  ASSERT_THAT(first, SizeIs(testing::Gt(30U)));

  present();
  const auto alert = nodes();
  escape();
  const auto uncovered = nodes();
  goBack();
  const auto returned = nodes();

  EXPECT_LT(alert.size(), 10U);
  EXPECT_EQ(uncovered, page);
  EXPECT_EQ(returned, first);
}

TEST_P(CoveredPagesAndAlerts, AreReadWholeWhenTheyComeBackUnderTheAlertThatThenGoes) {
  present();
  window.application->navigationController()->popViewControllerAnimated(false);
  window.settle();

  const auto alert = nodes();
  escape();
  const auto returned = nodes();

  EXPECT_LT(alert.size(), 10U);
  EXPECT_EQ(returned, first);
}

INSTANTIATE_TEST_SUITE_P(Each, CoveredPagesAndAlerts,
                         testing::Combine(testing::ValuesIn([] {
                                            auto pages = kPagesBehind;
                                            pages.push_back({});  // the first page itself
                                            return pages;
                                          }()),
                                          testing::Values(Holding::Question, Holding::Fields,
                                                          Holding::View)));

class CoveredPage : public CoveredPages, public testing::WithParamInterface<PageBehind> {};

TEST_P(CoveredPage, IsReadWholeWhenTheAppearanceChangedMeanwhile) {
  ASSERT_NO_FATAL_FAILURE(openPage(GetParam()));

  window.application->window()->mirror().setStyle(UserInterfaceStyle::Dark, true);
  window.settle();
  const auto dark = nodes();
  goBack();

  EXPECT_EQ(dark, page);
  EXPECT_EQ(nodes(), first);
}

INSTANTIATE_TEST_SUITE_P(Each, CoveredPage, testing::ValuesIn(kPagesBehind));

TEST_F(CoveredPages, AreReadWholeAfterEachOfThePresetsOwnAlerts) {
  ASSERT_NO_FATAL_FAILURE(openPage({"CurrentPreset"}));
  const std::vector<std::pair<std::string, std::function<bool()>>> ways{
      {"New Preset", [&] { return window.driver->tapRightButton(); }},
      {"Import/Add",
       [&] {
         window.pasteboard.text = "text";
         return window.driver->tapRightButton();
       }},
      {"Import Preset",
       [&] {
         return window.driver->tapRightButton() &&
                window.driver->tapAlertButton("Import Existing Preset...");
       }},
      {"Error",
       [&] {
         return window.driver->tapRightButton() &&
                window.driver->tapAlertButton("Create New Preset...") &&
                window.driver->tapAlertButton("Save");
       }},
      {"Apply Preset", [&] { return window.driver->tapRowWithText("Work"); }},
      {"Delete Preset",
       [&] { return window.driver->swipeAndTapAction("Work", QStringLiteral("Delete")); }},
      {"Share \"Work\"...",
       [&] { return window.driver->swipeAndTapAction("Work", QStringLiteral("Share")); }}};
  for (const auto& [title, open] : ways) {
    ASSERT_TRUE(open()) << title;
    window.settle();
    window.settle();
    ASSERT_NE(window.driver->alert(), nullptr) << title;
    EXPECT_EQ(window.driver->alert()->title(), title);

    const auto alert = nodes();
    escape();

    EXPECT_LT(alert.size(), 10U) << title;
    EXPECT_EQ(nodes(), page) << title;
  }

  goBack();
  EXPECT_EQ(nodes(), first);
}

TEST_F(CoveredPages, AreReadWholeAfterTheColoursAndThePicture) {
  ASSERT_NO_FATAL_FAILURE(openPage({"", 2}));
  for (const char* row :
       {"CustomTextColour", "CustomBackgroundColour", "CustomKeyCapColour", "FreltaImageCell"}) {
    ASSERT_TRUE(window.driver->tapRow(row)) << row;
    window.settle();

    const auto covered = nodes();
    escape();

    EXPECT_LT(covered.size(), 15U) << row;
    EXPECT_EQ(nodes(), first) << row;
  }
}

}  // namespace
}  // namespace frelta
