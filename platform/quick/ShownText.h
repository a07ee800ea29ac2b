#pragma once

#include <QString>
#include <string_view>

namespace frelta {

/// The text as labels show and measure it: characters that only turn the direction of what follows
/// (embeddings, overrides, isolates) are seen as replacement characters, so that no name reads as
/// another. As many characters as before.
QString shownText(std::string_view text);

}  // namespace frelta
