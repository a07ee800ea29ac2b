#include "linux/LinuxRandomSource.h"

#include <cstdlib>

namespace frelta {

std::uint32_t LinuxRandomSource::random32() {
  return ::arc4random();
}

}  // namespace frelta
