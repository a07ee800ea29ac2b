#pragma once

#include "graphics/ImageServices.h"

namespace frelta {

/// What graphics needs of a back end beside Platform. Same rules: fill, install, keep alive.
struct GraphicsServices {
  ImageServices* images = nullptr;

  static const GraphicsServices& current();
  static void install(const GraphicsServices& services);
};

}  // namespace frelta
