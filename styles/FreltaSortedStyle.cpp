#include "styles/FreltaSortedStyle.h"

#include <array>
#include <cstdio>
#include <utility>

#include "device/Paths.h"
#include "foundation/Log.h"
#include "foundation/MakeBeside.h"
#include "foundation/Platform.h"
#include "foundation/StringPaths.h"
#include "styles/FreltaStyleSelector.h"

namespace frelta {

namespace {

/// "Icon@2.png": other than in the platform's own names there is no x.
std::string logoNameForScreen() {
  std::array<char, 32> name;
  std::snprintf(name.data(), name.size(), "Icon@%.f.png",
                Platform::current().system->screenScale());
  return name.data();
}

std::string logoPath(const std::string& folder) {
  for (const std::string& name : {logoNameForScreen(), std::string("Icon.png")}) {
    std::string path = stringByAppendingPathComponent(folder, name);
    if (Platform::current().fileManager->fileExistsAtPath(path)) return path;
  }
  return std::string(kPlaceholderPath);
}

std::function<std::shared_ptr<const UIImage>()> logoMakerOf(std::string path) {
  return [path = std::move(path), scale = FreltaStyleSelector::screenScale()] {
    const auto image = UIImage::imageWithContentsOfFile(path);
    return image ? FreltaStyleSelector::maskImageWithPad(*image, true, scale) : nullptr;
  };
}

void loadLogo(std::function<std::shared_ptr<const UIImage>()> maker,
              std::weak_ptr<const void> wanted, IconHandler done) {
  makeBeside<std::shared_ptr<const UIImage>>(Platform::current().workQueue, std::move(wanted),
                                             std::move(maker), std::move(done));
}

}  // namespace

std::function<std::shared_ptr<const UIImage>()> FreltaSortedStyle::logoMaker() const {
  freltaLog("self.fullPath: " + fullPath_.value_or("(null)"));
  return logoMakerOf(fullPath_ ? logoPath(*fullPath_) : std::string(kPlaceholderPath));
}

std::shared_ptr<const UIImage> FreltaSortedStyle::styleLogo() const {
  return logoMaker()();
}

void FreltaSortedStyle::loadStyleLogo(std::weak_ptr<const void> wanted, IconHandler done) const {
  loadLogo(logoMaker(), std::move(wanted), std::move(done));
}

void FreltaSortedStyle::loadIcon(std::weak_ptr<const void> wanted, IconHandler done) {
  loadStyleLogo(std::move(wanted), std::move(done));
}

void FreltaSortedStyle::loadPlaceholder(std::weak_ptr<const void> wanted, IconHandler done) {
  loadLogo(logoMakerOf(std::string(kPlaceholderPath)), std::move(wanted), std::move(done));
}

}  // namespace frelta
