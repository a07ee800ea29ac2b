#pragma once

#include "graphics/UIColor.h"

namespace frelta {

// What a cell's ground makes of the rows on it. Each appearance is taken on its own: where the
// ground is opaque white in one, the colour there is the default, so that a ground that is white in
// light and black in dark suits both.

/// Of cards: the ground's own.
UIColor cardColorOnGround(const UIColor& ground);
/// Of pills that are off: a little lighter than the ground.
UIColor disabledColorOnGround(const UIColor& ground);

/// What the colour looks like on the other one; as opaque as both together.
UIColor colorOver(const UIColor& color, const UIColor& behind);

/// Whether the ground is opaque white as it is seen now; also when that cannot be told.
bool isWhiteGround(const UIColor& ground);

/// The colour of cards that nobody gave one.
UIColor defaultCardColor();
/// The colour of pills that are off that nobody gave one: white, or from system version 13 on the
/// platform's secondary fill.
UIColor defaultDisabledColor();

}  // namespace frelta
