#pragma once

#include <optional>
#include <string_view>

namespace frelta {

/// The kinds of row that a page description can name under "cell".
enum class PSCellType {
  PSGroupCell,
  PSLinkCell,
  PSLinkListCell,
  PSListItemCell,
  PSTitleValueCell,
  PSSliderCell,
  PSSwitchCell,
  PSStaticTextCell,
  PSEditTextCell,
  PSSegmentCell,
  PSButtonCell,
  /// A label and nothing else: what a row of an unknown kind is shown as.
  Plain,
};

/// Nothing for a name that is no kind.
std::optional<PSCellType> cellTypeFromString(std::string_view name);

}  // namespace frelta
