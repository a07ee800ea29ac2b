#include "app/SelectorTour.h"

#include <string>

#include "foundation/Platform.h"

namespace frelta {

namespace {

struct Kind {
  const char* title;
  int mode;
  const char* row;
  const char* key;
  const char* example;
  const char* extension;
  /// What a folder has in it that tells the kind.
  const char* marker;
};

constexpr Kind kKinds[] = {
    {"HTML Themes", 1, "FreltaHTMLCell", "EnabledHTMLThemesPath", "Example HTML", ".theme",
     "/HTML"},
    {"Image Themes", 3, "FreltaThemesCell", "EnabledThemePath", "Example Images", ".theme",
     "/Images"},
    {"Widgets", 4, "FreltaWidgetCell", "EnabledWidgetPath", "Example Widget", ".bundle", ""}};
const std::string kSecond = "Tour Style";

std::string pathOf(const Kind& kind, const std::string& name) {
  return "/Library/Frelta/Themes/" + name + kind.extension;
}

/// A second style, since there is one example of each kind, with the example's icons. Nothing that
/// is there is touched.
bool installSecond(const Kind& kind) {
  FileManager& files = *Platform::current().fileManager;
  const std::string folder = pathOf(kind, kSecond);
  if (files.fileExistsAtPath(folder) || !files.createDirectoryAtPath(folder + kind.marker))
    return false;
  for (const char* icon : {"/Icon@1.png", "/Icon@2.png", "/Icon@3.png", "/Icon.png"})
    files.copyItemAtPath(pathOf(kind, kind.example) + icon, folder + icon);
  return true;
}

bool isOn(TourDriver& driver, const std::string& name) {
  return driver.findButton("Disable " + name) != nullptr;
}

void walkThrough(Tour& tour, const Kind& kind) {
  TourDriver& driver = tour.driver();
  const QString title = QString::fromLatin1(kind.title);
  const std::string example = kind.example;
  const auto stores = [&](const std::string& value) {
    return Tour::storedValue(kind.key) == PropertyListValue(value) && tour.heardRefreshes(1);
  };
  const bool installed = installSecond(kind);
  tour.step(QStringLiteral("Open \"%1\"").arg(title), [&] {
    return installed && tour.choosesBackground(kind.mode, kind.row) && driver.tapRow(kind.row) &&
           driver.findButton("Enable " + kSecond);
  });
  tour.step(QStringLiteral("Enable one of %1").arg(title), [&] {
    return driver.tapButton("Enable " + kSecond) && isOn(driver, kSecond) &&
           !isOn(driver, example) && stores(pathOf(kind, kSecond));
  });
  tour.step(QStringLiteral("Enable another, which switches that one off"), [&] {
    return driver.tapButton("Enable " + example) && isOn(driver, example) &&
           !isOn(driver, kSecond) && stores(pathOf(kind, example));
  });
  tour.step(QStringLiteral("Switch %1 off").arg(title), [&] {
    return driver.tapButton("Disable " + example) && !isOn(driver, example) &&
           !isOn(driver, kSecond) && stores("");
  });
  tour.step(QStringLiteral("Back to the root page from \"%1\"").arg(title),
            [&] { return driver.tapBack() && driver.hasRow("Enabled"); });
  if (installed) Platform::current().fileManager->removeItemAtPath(pathOf(kind, kSecond));
}

}  // namespace

void walkThroughSelectors(Tour& tour) {
  for (const Kind& kind : kKinds) walkThrough(tour, kind);
}

}  // namespace frelta
