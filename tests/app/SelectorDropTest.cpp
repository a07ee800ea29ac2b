#include <algorithm>
#include <filesystem>

#include "app/StyleDrop.h"
#include "tests/app/PicturesOnDemand.h"
#include "tests/app/SelectorWindow.h"
#include "tests/support/TemporaryFolder.h"
#include "uikit/UIAlertController.h"
#include "uikit/UINavigationController.h"

namespace frelta {
namespace {

class SelectorDrop : public testing::Test {
 protected:
  void openSelector(const SelectorKind& kind) {
    ASSERT_NO_FATAL_FAILURE(window.openSelector(kind));
    drop = std::make_unique<StyleDrop>(*window.application->window(), *window.notes,
                                       *window.application->navigationController(),
                                       window.platform.hostPath("/"));
  }
  /// The path of a style that is not installed yet.
  QString source(const std::string& name) const {
    std::filesystem::create_directories(folder.path() / name / "Images");
    return QString::fromStdString(folder.path() / name);
  }
  void install(const QString& path) {
    drop->install({path});
    ASSERT_TRUE(QTest::qWaitFor([&] { return drop->isIdle(); }, 20'000));
    window.settle();
  }
  void ask() {
    auto question = UIAlertController::alertControllerWithTitle("Question", "");
    question->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel));
    window.application->navigationController()->presentViewController(question, false);
    window.settle();
  }
  /// Empty without an alert.
  std::string alertTitle() { return window.driver->alert() ? window.driver->alert()->title() : ""; }
  /// Whether a card shows the title, whole.
  bool isOnACard(const QString& title) {
    const QRectF pane(0, 44, 390, 800);
    const auto texts = visibleTexts(*window.application->window()->itemFor(window.table()));
    return std::ranges::any_of(texts, [&](const QQuickItem* text) {
      return text->property("text").toString() == title &&
             pane.contains(text->mapRectToScene({0, 0, text->width(), text->height()}));
    });
  }

  const TemporaryFolder folder;
  SelectorWindow window;
  std::unique_ptr<StyleDrop> drop;
};

TEST_F(SelectorDrop, ADroppedStyleIsACardOfTheOpenSelector) {
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(openSelector(kImagesKind));
  const bool before = isOnACard(QStringLiteral("Sea"));

  install(source("Sea.theme"));

  EXPECT_FALSE(before);
  EXPECT_TRUE(isOnACard(QStringLiteral("A")));
  EXPECT_TRUE(isOnACard(QStringLiteral("Sea")));
  EXPECT_TRUE(window.driver->tapButton("Enable Sea"));
  window.settle();
  EXPECT_EQ(window.settings().at("EnabledThemePath"), SelectorWindow::pathOf(kImagesKind, "Sea"));
}

TEST_F(SelectorDrop, AStyleOfAnotherKindLeavesTheCardsAsTheyAre) {
  window.installStyle(kWidgetKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(openSelector(kWidgetKind));

  install(source("Sea.theme"));

  EXPECT_EQ(window.table().numberOfRowsInSection(1), 1);
  EXPECT_TRUE(isOnACard(QStringLiteral("A")));
}

TEST_F(SelectorDrop, TheCardsStayWhereTheyWereScrolledTo) {
  for (int i = 10; i < 60; ++i) window.installStyle(kImagesKind, std::to_string(i), kRed);
  ASSERT_NO_FATAL_FAILURE(openSelector(kImagesKind));
  window.table().userDidScroll({0, 1000});
  window.settle();

  install(source("Sea.theme"));

  EXPECT_EQ(window.table().numberOfRowsInSection(1), 51);
  EXPECT_EQ(window.table().contentOffset().y, 1000);
}

TEST_F(SelectorDrop, AnOpenAlertStaysAndTheCardIsBelowIt) {
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(openSelector(kImagesKind));
  ask();

  install(source("Sea.theme"));
  const std::string during = alertTitle();
  window.driver->tapAlertButton("Cancel");
  window.settle();

  EXPECT_EQ(during, "Question");
  EXPECT_EQ(window.driver->alert(), nullptr);
  EXPECT_TRUE(isOnACard(QStringLiteral("Sea")));
}

TEST_F(SelectorDrop, ARefusalIsToldOverAnOpenAlertWhichStays) {
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(openSelector(kImagesKind));
  ask();

  install(QStringLiteral("/nonexistent"));
  const std::string first = alertTitle();
  window.driver->tapAlertButton("OK");
  window.settle();
  const std::string second = alertTitle();
  window.driver->tapAlertButton("Cancel");
  window.settle();

  EXPECT_EQ(first, "Error");
  EXPECT_EQ(second, "Question");
  EXPECT_EQ(window.driver->alert(), nullptr);
  EXPECT_TRUE(isOnACard(QStringLiteral("A")));
}

}  // namespace
}  // namespace frelta
