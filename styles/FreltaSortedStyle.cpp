#include "styles/FreltaSortedStyle.h"

#include <array>
#include <cstdio>

#include "device/Paths.h"
#include "foundation/Log.h"
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

}  // namespace

std::shared_ptr<const UIImage> FreltaSortedStyle::styleLogo() const {
  freltaLog("self.fullPath: " + fullPath_.value_or("(null)"));
  const auto image = UIImage::imageWithContentsOfFile(fullPath_ ? logoPath(*fullPath_)
                                                                : std::string(kPlaceholderPath));
  return image ? FreltaStyleSelector::maskImageWithPad(*image, true) : nullptr;
}

}  // namespace frelta
