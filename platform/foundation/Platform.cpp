#include "foundation/Platform.h"

namespace frelta {
namespace {

Platform installed;

}  // namespace

const Platform& Platform::current() {
  return installed;
}

void Platform::install(const Platform& platform) {
  installed = platform;
}

}  // namespace frelta
