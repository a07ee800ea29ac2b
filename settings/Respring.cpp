#include "settings/Respring.h"

#include "foundation/Platform.h"

namespace frelta {

void respring() {
  Platform::current().processes->spawn("/usr/bin/killall", {"killall", "-9", "backboardd"});
}

}  // namespace frelta
