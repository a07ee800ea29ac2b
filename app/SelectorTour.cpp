#include "app/SelectorTour.h"

#include <algorithm>
#include <span>
#include <string>

#include "device/Paths.h"
#include "device/StyleKinds.h"
#include "foundation/Platform.h"
#include "foundation/StringPaths.h"

namespace frelta {

namespace {

const std::string kSecond = "Tour Style";

std::string nameOf(std::string_view path) {
  return std::string(stringByDeletingPathExtension(lastPathComponent(path)));
}

/// Beside the example, with its suffix.
std::string pathOfSecond(const StyleKind& kind) {
  const std::string_view example = kind.examplePath;
  return std::string(kThemesFolder) + kSecond + std::string(example.substr(example.rfind('.')));
}

/// A second style, since there is one example of each kind, with the example's icons. Nothing that
/// is there is touched.
bool installSecond(const StyleKind& kind) {
  FileManager& files = *Platform::current().fileManager;
  const std::string folder = pathOfSecond(kind);
  if (files.fileExistsAtPath(folder) ||
      !files.createDirectoryAtPath(stringByAppendingPathComponent(folder, kind.folder)))
    return false;
  for (const char* icon : {"/Icon@1.png", "/Icon@2.png", "/Icon@3.png", "/Icon.png"})
    files.copyItemAtPath(std::string(kind.examplePath) + icon, folder + icon);
  return true;
}

bool isOn(TourDriver& driver, const std::string& name) {
  return driver.findButton("Disable " + name) != nullptr;
}

void walkThrough(Tour& tour, const StyleKind& kind) {
  TourDriver& driver = tour.driver();
  const QString title =
      QString::fromUtf8(kind.title.data(), static_cast<qsizetype>(kind.title.size()));
  const std::string example = nameOf(kind.examplePath);
  const std::string row(kind.rowKey);
  const auto stores = [&](const std::string& value) {
    return Tour::storedValue(std::string(kind.enabledPathKey)) == PropertyListValue(value) &&
           tour.heardRefreshes(1);
  };
  const bool installed = installSecond(kind);
  tour.step(QStringLiteral("Open \"%1\"").arg(title), [&] {
    return installed && tour.choosesBackground(kind.firstBackgroundMode, row) &&
           driver.tapRow(row) && driver.findButton("Enable " + kSecond);
  });
  tour.step(QStringLiteral("Enable one of %1").arg(title), [&] {
    return driver.tapButton("Enable " + kSecond) && isOn(driver, kSecond) &&
           !isOn(driver, example) && stores(pathOfSecond(kind));
  });
  tour.step(QStringLiteral("Enable another, which switches that one off"), [&] {
    return driver.tapButton("Enable " + example) && isOn(driver, example) &&
           !isOn(driver, kSecond) && stores(std::string(kind.examplePath));
  });
  tour.step(QStringLiteral("Switch %1 off").arg(title), [&] {
    return driver.tapButton("Disable " + example) && !isOn(driver, example) &&
           !isOn(driver, kSecond) && stores("");
  });
  tour.step(QStringLiteral("Back to the root page from \"%1\"").arg(title),
            [&] { return driver.tapBack() && driver.hasRow("Enabled"); });
  if (installed) Platform::current().fileManager->removeItemAtPath(pathOfSecond(kind));
}

}  // namespace

void walkThroughSelectors(Tour& tour) {
  // The page shows the first kind's row already: choosing its mode again would change nothing.
  const std::span<const StyleKind> kinds = styleKinds();
  std::for_each(kinds.rbegin(), kinds.rend(),
                [&](const StyleKind& kind) { walkThrough(tour, kind); });
}

}  // namespace frelta
