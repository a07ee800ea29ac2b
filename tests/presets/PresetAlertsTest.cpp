#include "presets/PresetAlerts.h"

#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using enum UIAlertActionStyle;

class PresetAlerts : public PresetsTest {
 protected:
  std::vector<std::pair<std::string, UIAlertActionStyle>> buttons() {
    std::vector<std::pair<std::string, UIAlertActionStyle>> result;
    for (const auto& action : alert()->actions())
      result.emplace_back(action->title(), action->style());
    return result;
  }
  // Placeholders, after checking what goes for every field.
  std::vector<std::string> fields() {
    std::vector<std::string> result;
    for (const UITextField* field : alert()->textFields()) {
      EXPECT_EQ(field->text(), "");
      EXPECT_EQ(field->clearButtonMode(), UITextFieldViewMode::WhileEditing);
      result.push_back(field->placeholder());
    }
    return result;
  }
  void expectError(const std::string& message, UIAlertActionStyle style) {
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), "Error");
    EXPECT_EQ(alert()->message(), message);
    EXPECT_THAT(buttons(), ElementsAre(Pair("OK", style)));
    EXPECT_THAT(fields(), IsEmpty());
  }
};

TEST_F(PresetAlerts, WithAnEmptyPasteboardAddAsksForANameAtOnce) {
  show().onTapAdd();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "New Preset");
  EXPECT_EQ(alert()->message(), "Enter a name for your preset");
  EXPECT_THAT(fields(), ElementsAre("Preset Name..."));
  EXPECT_THAT(buttons(), ElementsAre(Pair("Save", Default), Pair("Cancel", Cancel)));
}

TEST_F(PresetAlerts, WithAnyTextOnThePasteboardAddAsksWhatToDo) {
  for (const std::string text : {"", "not a preset"}) {
    pasteboard.text = text;

    show().onTapAdd();

    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), "Import/Add");
    EXPECT_EQ(alert()->message(), "What would you like to do?");
    EXPECT_THAT(fields(), IsEmpty());
    EXPECT_THAT(buttons(),
                ElementsAre(Pair("Import Existing Preset...", Default),
                            Pair("Create New Preset...", Default), Pair("Cancel", Cancel)));
  }
  EXPECT_THAT(platform.log.lines, IsEmpty()) << "a second alert was refused";
}

TEST_F(PresetAlerts, TheAddButtonOfTheBarAdds) {
  show();

  screen->navigationItem().rightBarButtonItem()->perform();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "New Preset");
}

TEST_F(PresetAlerts, CreateLeadsFromTheMenuToTheNewPreset) {
  pasteboard.text = "text";
  show().onTapAdd();

  press("Create New Preset...");

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "New Preset");
  EXPECT_THAT(window.presentedViewControllers(), SizeIs(1));
}

TEST_F(PresetAlerts, ImportLeadsFromTheMenuToTwoEmptyFields) {
  pasteboard.text = "e30=";
  show().onTapAdd();

  press("Import Existing Preset...");

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Import Preset");
  EXPECT_EQ(alert()->message(), "Enter a name and paste the preset data below...");
  EXPECT_THAT(fields(), ElementsAre("Preset Name...", "Preset Data..."));
  EXPECT_THAT(buttons(), ElementsAre(Pair("Import", Default), Pair("Cancel", Cancel)));
  EXPECT_THAT(window.presentedViewControllers(), SizeIs(1));
}

TEST_F(PresetAlerts, CancelOnlyCloses) {
  pasteboard.text = "text";
  show();
  const auto closes = [&] {
    press("Cancel");
    return alert() == nullptr && writes() == 0 && platform.notifications.posted.empty();
  };

  screen->onTapAdd();
  EXPECT_TRUE(closes());
  screen->newPresetAlert();
  type(0, "name");
  EXPECT_TRUE(closes());
  screen->importPresetAlert();
  type(0, "name");
  type(1, "e30=");
  EXPECT_TRUE(closes());
}

TEST_F(PresetAlerts, SaveSavesUnderTheCleanedName) {
  show().newPresetAlert();
  type(0, "my/preset.plist");

  press("Save");

  EXPECT_THAT(folder(), ElementsAre("mypreset.plist"));
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(PresetAlerts, SaveKeepsTheBlanksAtTheEndsOfTheName) {
  show().newPresetAlert();
  type(0, "  a  ");

  press("Save");

  EXPECT_THAT(folder(), ElementsAre("  a  .plist"));
}

TEST_F(PresetAlerts, SaveWithABadNameSaysSoAndAsksNoMore) {
  show().newPresetAlert();
  type(0, "   ");

  press("Save");
  expectError("Invalid preset name", Default);
  press("OK");

  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(folder(), IsEmpty());
}

TEST_F(PresetAlerts, SaveWithALongNameSaysSo) {
  show().newPresetAlert();
  type(0, std::string(33, 'x'));

  press("Save");

  expectError("Preset name is too long", Default);
  EXPECT_THAT(folder(), IsEmpty());
}

TEST_F(PresetAlerts, ImportTakesTheNameAndTheData) {
  show().importPresetAlert();
  type(0, "a*b");
  type(1, "e30=");

  press("Import");

  EXPECT_EQ(presetFile("ab"), Dictionary{});
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(PresetAlerts, ImportWithABadNameLooksAtNoData) {
  show().importPresetAlert();
  type(1, "e30=");

  press("Import");

  expectError("Invalid preset name", Default);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(PresetAlerts, ImportOfBadDataSaysSo) {
  show().importPresetAlert();
  type(0, "a");
  type(1, "!!!!");

  press("Import");

  expectError("Failed to import preset. Please check the preset data and try again.", Cancel);
}

TEST_F(PresetAlerts, ATapOnARowAsksBeforeItApplies) {
  putPreset("My preset", {});
  show();

  tapRow(0);

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Apply Preset");
  EXPECT_EQ(
      alert()->message(),
      "Are you sure you would like to apply preset \"My preset\"?\n\nAny current changes will "
      "be lost.");
  EXPECT_THAT(fields(), IsEmpty());
  EXPECT_THAT(buttons(), ElementsAre(Pair("Confirm", Destructive), Pair("Cancel", Cancel)));
}

TEST_F(PresetAlerts, DeleteAsksBeforeItRemoves) {
  putPreset("My preset", {});
  show();

  pressRowAction(0, "Delete");

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Delete Preset");
  EXPECT_EQ(alert()->message(), "Are you sure you would like to delete preset \"My preset\"?");
  EXPECT_THAT(fields(), IsEmpty());
  EXPECT_THAT(buttons(), ElementsAre(Pair("Confirm", Destructive), Pair("Cancel", Cancel)));
  press("Cancel");
  EXPECT_THAT(folder(), SizeIs(1));
}

TEST_F(PresetAlerts, ShareShowsTheTextAndCopiesItByteForByte) {
  putPreset("My preset", {{"HideKeyCaps", 0}});
  show();
  const std::string text = FreltaPresets::base64StringFromDict(presetFile("My preset"));

  pressRowAction(0, "Share");
  platform.mainQueue.runPending();
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Share \"My preset\"...");
  EXPECT_EQ(alert()->message(), "Copy the following to share the preset: \n\n" + text);
  EXPECT_THAT(fields(), IsEmpty());
  EXPECT_THAT(buttons(), ElementsAre(Pair("Copy to Clipboard", Default), Pair("Done", Cancel)));
  press("Copy to Clipboard");

  EXPECT_EQ(pasteboard.text, text);
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(PresetAlerts, DoneLeavesThePasteboardAlone) {
  putPreset("A", {});
  show();
  pressRowAction(0, "Share");
  platform.mainQueue.runPending();

  press("Done");

  EXPECT_EQ(pasteboard.text, std::nullopt);
  EXPECT_EQ(alert(), nullptr);
}

}  // namespace
}  // namespace frelta
