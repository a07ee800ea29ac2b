#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <fstream>

#include "foundation/Base64.h"
#include "quick/QtPasteboard.h"
#include "tests/app/PresetsWindow.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PresetsWindow, AddWithAnEmptyPasteboardSavesTheSettingsUnderTheTypedNameAndAppliesThem) {
  window.putSettings({{"HideKeyCaps", 0}, {"SwitchPresetsWithDarkMode", 1}});
  const std::string before = window.platform.get(kSettingsPath);
  ASSERT_NO_FATAL_FAILURE(openScreen());

  EXPECT_TRUE(driver().tapRightButton());
  EXPECT_EQ(alertTitle(), "New Preset");
  type(0, QStringLiteral("My preset"));
  press("Save");

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_THAT(folder(), ElementsAre("My preset.plist"));
  EXPECT_EQ(preset("My preset"), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(window.settings(),
            (Dictionary{{"CurrentPreset", pathOf("My preset")}, {"SwitchPresetsWithDarkMode", 1}}));
  EXPECT_EQ(window.platform.get(kBackupPath), before);
  EXPECT_THAT(broadcasts(), ElementsAre(kRefresh));
  EXPECT_TRUE(isTicked("My preset"));
}

TEST_F(PresetsWindow, AddWithTextOnThePasteboardAsksFirstAndImportsWhatIsTyped) {
  window.pasteboard.text = "anything";
  window.putSettings({{"HideKeyCaps", 1}});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  EXPECT_TRUE(driver().tapRightButton());
  EXPECT_EQ(alertTitle(), "Import/Add");
  press("Import Existing Preset...");
  EXPECT_EQ(alertTitle(), "Import Preset");
  type(0, QStringLiteral("Got"));
  type(1, QStringLiteral("eyJIaWRlS2V5Q2FwcyI6MH0="));
  press("Import");

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_EQ(preset("Got"), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 1}}));
  EXPECT_FALSE(hasBackup());
  EXPECT_THAT(broadcasts(), IsEmpty());
  EXPECT_NE(itemOfRow("Got"), nullptr);
  EXPECT_FALSE(isTicked("Got"));
}

TEST_F(PresetsWindow, AddWithTextOnThePasteboardAlsoLeadsToANewPreset) {
  window.pasteboard.text = "anything";
  ASSERT_NO_FATAL_FAILURE(openScreen());

  EXPECT_TRUE(driver().tapRightButton());
  press("Create New Preset...");

  EXPECT_EQ(alertTitle(), "New Preset");
  press("Cancel");
  EXPECT_THAT(folder(), IsEmpty());
}

TEST_F(PresetsWindow, AMegabyteThatIsPastedIsImportedWhole) {
  const std::string large(1'000'000, 'k');
  const QByteArray shared =
      QByteArray::fromStdString(R"({"Foreign": ")" + large + R"("})").toBase64();
  window.pasteboard.text = "anything";
  ASSERT_NO_FATAL_FAILURE(openScreen());
  driver().tapRightButton();
  press("Import Existing Preset...");
  type(0, QStringLiteral("Got"));
  EXPECT_TRUE(driver().tapView(*driver().alert()->textFields()[1]));
  QGuiApplication::clipboard()->setText(QString::fromLatin1(shared));

  key(Qt::Key_V, Qt::ControlModifier);
  const std::size_t held = driver().alert()->textFields()[1]->text().size();
  press("Import");

  EXPECT_EQ(held, static_cast<std::size_t>(shared.size()));
  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_EQ(preset("Got"), (Dictionary{{"Foreign", large}}));
  QGuiApplication::clipboard()->clear();
}

TEST_F(PresetsWindow, ImportOfBadDataSaysSoAndGoesBackToTheList) {
  window.pasteboard.text = "anything";
  ASSERT_NO_FATAL_FAILURE(openScreen());
  driver().tapRightButton();
  press("Import Existing Preset...");
  type(0, QStringLiteral("Got"));
  type(1, QStringLiteral("!!!!"));

  press("Import");
  EXPECT_EQ(alertTitle(), "Error");
  press("OK");

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_THAT(folder(), IsEmpty());
}

TEST_F(PresetsWindow, ATapAndConfirmApplyThePreset) {
  putPreset("A", {{"HideKeyCaps", 1}});
  window.putSettings({{"HideKeyCaps", 0}});
  const std::string before = window.platform.get(kSettingsPath);
  ASSERT_NO_FATAL_FAILURE(openScreen());

  EXPECT_TRUE(driver().tapRowWithText("A"));
  EXPECT_EQ(alertTitle(), "Apply Preset");
  press("Confirm");

  EXPECT_EQ(window.settings(), (Dictionary{{"CurrentPreset", pathOf("A")}}));
  EXPECT_EQ(window.platform.get(kBackupPath), before);
  EXPECT_EQ(preset("A"), (Dictionary{{"HideKeyCaps", 1}}));
  EXPECT_THAT(broadcasts(), ElementsAre(kRefresh));
  EXPECT_TRUE(isTicked("A"));
}

TEST_F(PresetsWindow, ATapAndCancelChangeNothing) {
  putPreset("A", {});
  window.putSettings({{"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  EXPECT_TRUE(driver().tapRowWithText("A"));
  press("Cancel");

  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(window.platform.files.count(Operation::Write), 0u);
  EXPECT_FALSE(hasBackup());
  EXPECT_THAT(broadcasts(), IsEmpty());
}

TEST_F(PresetsWindow, ASwipeBringsOutDeleteWhichAsksAndRemoves) {
  putPreset("A", {});
  putPreset("B", {});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  swipeAndTap("A", QStringLiteral("Delete"));
  EXPECT_EQ(alertTitle(), "Delete Preset");
  EXPECT_EQ(alertMessage(), "Are you sure you would like to delete preset \"A\"?");
  press("Confirm");

  EXPECT_THAT(folder(), ElementsAre("B.plist"));
  EXPECT_EQ(itemOfRow("A"), nullptr);
  EXPECT_NE(itemOfRow("B"), nullptr);
  EXPECT_THAT(broadcasts(), IsEmpty());
}

TEST_F(PresetsWindow, ASwipeBringsOutShareWhichCopiesTheTextByteForByte) {
  putPreset("A", {{"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  swipeAndTap("A", QStringLiteral("Share"));
  EXPECT_EQ(alertTitle(), "Share \"A\"...");
  press("Copy to Clipboard");

  EXPECT_EQ(window.pasteboard.text, "ewogICJIaWRlS2V5Q2FwcyIgOiAwCn0=");
  EXPECT_EQ(alertTitle(), "no alert");
}

TEST_F(PresetsWindow, CopiedTextIsOnTheClipboardByteForByteAfterAlertScreenAndWindowAreGone) {
  QtPasteboard clipboard;
  window.clipboard = &clipboard;
  const Dictionary shared{{"Text", std::string(300'000, '~') + "\u00e9\U0001F600\"\\\n"}};
  putPreset("A", shared);
  ASSERT_NO_FATAL_FAILURE(openScreen());

  swipeAndTap("A", QStringLiteral("Share"));
  press("Copy to Clipboard");
  EXPECT_TRUE(driver().tapBack());
  window.driver.reset();
  window.application.reset();

  const QByteArray bytes =
      QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("text/plain"));
  const std::string expected =
      base64EncodedString(window.services.json->prettyPrintedDataWithObject(shared));
  EXPECT_GT(expected.size(), 400'000u);
  EXPECT_EQ(bytes.toStdString(), expected);
  EXPECT_EQ(clipboard.string(), expected);
}

TEST_F(PresetsWindow, LightAndDarkEachHaveAScreenWhereATapChooses) {
  putPreset("A", {});
  for (const std::string key : {"FreltaPresetsLightMode", "FreltaPresetsDarkMode"}) {
    window.putSettings({{"SwitchPresetsWithDarkMode", 1}, {"CurrentPreset", "/x"}});
    window.platform.notifications.posted.clear();
    ASSERT_NO_FATAL_FAILURE(openScreen(key));

    EXPECT_FALSE(driver().tapRightButton());
    EXPECT_TRUE(driver().tapRowWithText("A"));

    EXPECT_EQ(alertTitle(), "no alert");
    EXPECT_EQ(window.settings(),
              (Dictionary{
                  {"SwitchPresetsWithDarkMode", 1}, {"CurrentPreset", "/x"}, {key, pathOf("A")}}));
    EXPECT_FALSE(hasBackup());
    EXPECT_THAT(broadcasts(), ElementsAre(kRefresh));
    EXPECT_TRUE(isTicked("A"));
  }
}

TEST_F(PresetsWindow, AnExceptionThatLeavesShareIsLoggedAndTheScreenLivesOn) {
  putPreset("Dated", {{"A", Date{0}}});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  swipeAndTap("Dated", QStringLiteral("Share"));

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_THAT(window.platform.log.lines,
              ElementsAre("[Frelta] Uncaught exception: JSON cannot hold a date"));
  EXPECT_TRUE(driver().tapRowWithText("Dated"));
  EXPECT_EQ(alertTitle(), "Apply Preset");
}

TEST_F(PresetsWindow, TenThousandPresetsHaveItemsOnlyForRowsInSight) {
  std::filesystem::create_directories(window.platform.hostPath(kFolder));
  for (int i = 0; i < 10'000; ++i)
    std::ofstream(window.platform.hostPath(kFolder) / (std::to_string(i) + ".plist"));

  ASSERT_NO_FATAL_FAILURE(openScreen());

  auto* table = findView<UITableView>(
      window.application->navigationController()->topViewController()->view());
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->numberOfRowsInSection(0), 10'000);
  EXPECT_LT(table->indexPathsForVisibleRows().size(), 30u);
}

}  // namespace
}  // namespace frelta
