#include "graphics/GraphicsServices.h"

namespace frelta {

namespace {
GraphicsServices installed;
}  // namespace

const GraphicsServices& GraphicsServices::current() {
  return installed;
}

void GraphicsServices::install(const GraphicsServices& services) {
  installed = services;
}

}  // namespace frelta
