#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "foundation/PropertyListValue.h"
#include "styles/FreltaSortedStyle.h"

namespace frelta {

/// Whether the settings, or where they say nothing the kind's default, name the path as enabled.
bool isPathEnabled(std::string_view path, std::int32_t kind, const Dictionary& settings);

/// One entry for each style of the kind in the styles folder, in the order in which the system
/// lists them.
std::vector<std::shared_ptr<FreltaSortedItem>> stylesOfKind(std::int32_t kind,
                                                            const Dictionary& settings);

}  // namespace frelta
