#pragma once

#include "preferences/PSSpecifier.h"

namespace frelta {

/// Takes out the rows that the master switch, the background mode and the presets' switch hide, as
/// the preferences manager has them now.
void removeHiddenRows(PSSpecifierList& rows);

}  // namespace frelta
