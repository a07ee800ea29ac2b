#include "preferences/PSCellType.h"

#include <algorithm>
#include <array>
#include <utility>

namespace frelta {

std::optional<PSCellType> cellTypeFromString(std::string_view name) {
  using enum PSCellType;
  static constexpr std::array<std::pair<std::string_view, PSCellType>, 11> kNames{{
      {"PSGroupCell", PSGroupCell},
      {"PSLinkCell", PSLinkCell},
      {"PSLinkListCell", PSLinkListCell},
      {"PSListItemCell", PSListItemCell},
      {"PSTitleValueCell", PSTitleValueCell},
      {"PSSliderCell", PSSliderCell},
      {"PSSwitchCell", PSSwitchCell},
      {"PSStaticTextCell", PSStaticTextCell},
      {"PSEditTextCell", PSEditTextCell},
      {"PSSegmentCell", PSSegmentCell},
      {"PSButtonCell", PSButtonCell},
  }};
  const auto* found =
      std::ranges::find(kNames, name, &std::pair<std::string_view, PSCellType>::first);
  return found == kNames.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace frelta
