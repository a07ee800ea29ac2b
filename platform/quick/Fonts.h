#pragma once

#include <QFont>

#include "graphics/UIFont.h"

namespace frelta {

/// The desktop's font standing in for the platform's system font; a point is a logical pixel.
QFont qtFont(const UIFont& font);

}  // namespace frelta
