#include "app/DeviceFolders.h"

#include <string>

#include "device/Paths.h"
#include "foundation/Log.h"
#include "foundation/Platform.h"

namespace frelta {

void createDeviceFolders() {
  for (const std::string_view folder :
       {kPreferencesFolder, kPresetsFolder, kThemesFolder, kUserImagesFolder}) {
    if (!Platform::current().fileManager->createDirectoryAtPath(folder)) {
      freltaLog(std::string("createDeviceFolders cannot make ").append(folder));
    }
  }
}

}  // namespace frelta
