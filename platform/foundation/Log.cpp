#include "foundation/Log.h"

#include <string>

#include "foundation/Platform.h"

namespace frelta {

void freltaLog(std::string_view text) {
  std::string line = "[Frelta] ";
  Platform::current().log->log(line += text);
}

}  // namespace frelta
