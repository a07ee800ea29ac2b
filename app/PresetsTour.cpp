#include "app/PresetsTour.h"

#include "device/Paths.h"
#include "foundation/Platform.h"
#include "uikit/UIPasteboard.h"

namespace frelta {

namespace {

const QString kSaved = QStringLiteral("Tour preset");
const QString kImported = QStringLiteral("Shared preset");

std::string pathOf(const QString& name) {
  return std::string(kPresetsFolder) + "/" + name.toStdString() + ".plist";
}

bool presetExists(const QString& name) {
  return Platform::current().fileManager->fileExistsAtPath(pathOf(name));
}

bool isStored(const std::string& key, const QString& preset) {
  return Tour::storedValue(key) == PropertyListValue(pathOf(preset));
}

bool isAsked(TourDriver& driver, const char* title) {
  return driver.alert() && driver.alert()->title() == title;
}

void saveOne(Tour& tour) {
  TourDriver& driver = tour.driver();
  tour.step(QStringLiteral("Presets page"),
            [&] { return driver.tapRow("CurrentPreset") && !driver.hasRow("Enabled"); });
  tour.step(QStringLiteral("Ask for a new preset's name"), [&] {
    if (!driver.tapRightButton()) return false;
    // The menu comes first when somebody left text on the pasteboard.
    if (isAsked(driver, "Import/Add")) driver.tapAlertButton("Create New Preset...");
    return isAsked(driver, "New Preset") && driver.typeIntoAlert(0, kSaved);
  });
  tour.step(QStringLiteral("Save it"), [&] {
    return driver.tapAlertButton("Save") && presetExists(kSaved) &&
           isStored("CurrentPreset", kSaved) && tour.heardRefreshes(1);
  });
}

void applyIt(Tour& tour) {
  TourDriver& driver = tour.driver();
  tour.step(QStringLiteral("Change two settings"), [&] {
    return driver.tapBack() && tour.flips("HideKeyCaps") && tour.flips("HideKeyShadows");
  });
  tour.step(QStringLiteral("Ask whether to apply the preset"), [&] {
    return driver.tapRow("CurrentPreset") && driver.tapRowWithText(kSaved.toStdString()) &&
           isAsked(driver, "Apply Preset");
  });
  tour.step(QStringLiteral("Apply it"), [&] {
    return driver.tapAlertButton("Confirm") && isStored("CurrentPreset", kSaved) &&
           !Tour::storedValue("HideKeyCaps") && !Tour::storedValue("HideKeyShadows") &&
           tour.heardRefreshes(1);
  });
}

void shareIt(Tour& tour) {
  TourDriver& driver = tour.driver();
  tour.step(QStringLiteral("Share it"), [&] {
    return driver.swipeAndTapAction(kSaved.toStdString(), QStringLiteral("Share")) &&
           driver.waitFor([&] { return driver.alert() != nullptr; });
  });
  tour.step(QStringLiteral("Import the copied text under a new name"), [&] {
    if (!driver.tapAlertButton("Copy to Clipboard")) return false;
    const auto text = UIPasteboard::generalPasteboard().string();
    return text && driver.tapRightButton() && driver.tapAlertButton("Import Existing Preset...") &&
           driver.typeIntoAlert(0, kImported) &&
           driver.typeIntoAlert(1, QString::fromStdString(*text));
  });
  tour.step(QStringLiteral("The imported preset is listed"), [&] {
    return driver.tapAlertButton("Import") && presetExists(kImported) &&
           isStored("CurrentPreset", kSaved) && driver.findRowWithText(kImported.toStdString());
  });
}

void chooseAndDeleteIt(Tour& tour) {
  TourDriver& driver = tour.driver();
  tour.step(QStringLiteral("Choose it for dark mode"), [&] {
    return driver.tapBack() && driver.tapRow("FreltaPresetsDarkMode") &&
           driver.tapRowWithText(kImported.toStdString()) &&
           isStored("FreltaPresetsDarkMode", kImported) && tour.heardRefreshes(1);
  });
  tour.step(QStringLiteral("Ask whether to delete it"), [&] {
    return driver.swipeAndTapAction(kImported.toStdString(), QStringLiteral("Delete")) &&
           isAsked(driver, "Delete Preset");
  });
  tour.step(QStringLiteral("Delete it"), [&] {
    return driver.tapAlertButton("Confirm") && !presetExists(kImported) &&
           !driver.findRowWithText(kImported.toStdString());
  });
  tour.step(QStringLiteral("Back to the root page from the presets"),
            [&] { return driver.tapBack() && driver.hasRow("Enabled"); });
}

}  // namespace

void walkThroughPresets(Tour& tour) {
  saveOne(tour);
  applyIt(tour);
  shareIt(tour);
  chooseAndDeleteIt(tour);
}

}  // namespace frelta
