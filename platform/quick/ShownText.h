#pragma once

#include <QString>
#include <string_view>

namespace frelta {

/// The text as labels show and measure it: characters that only turn the direction of what follows
/// (embeddings, overrides, isolates) are seen as replacement characters, so that no name reads as
/// another. As many characters as before.
QString shownText(std::string_view text);

/// A name within a sentence of ours: as above, and nothing in it looks like the sentence going on
/// or ending. Control characters and line breaks are seen as replacement characters, and the middle
/// of what is longer than 60 characters is left out.
QString shownName(std::string_view name);

}  // namespace frelta
