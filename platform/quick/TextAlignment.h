#pragma once

#include "uikit/UILabel.h"

namespace frelta {

/// The Qt::Alignment flag of a text; the natural one is where the reader starts.
int qtAlignment(NSTextAlignment alignment, bool rightToLeft);

}  // namespace frelta
