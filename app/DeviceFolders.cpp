#include "app/DeviceFolders.h"

#include <string>

#include "foundation/Log.h"
#include "foundation/Platform.h"

namespace frelta {

void createDeviceFolders() {
  for (const char* folder : {"/var/mobile/Library/Preferences", "/Library/Frelta/Presets",
                             "/Library/Frelta/Themes", "/Library/Frelta/UserImages"}) {
    if (!Platform::current().fileManager->createDirectoryAtPath(folder)) {
      freltaLog(std::string("createDeviceFolders cannot make ") + folder);
    }
  }
}

}  // namespace frelta
