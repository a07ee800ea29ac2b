#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frelta {

class PSTableCell;

/// What a colour cell asks of the page that it is on.
class TarnoColourPickerCellProtocol {
 public:
  virtual ~TarnoColourPickerCellProtocol() = default;
  /// The colour stored under the key, as it stands; nothing when there is none.
  virtual std::optional<std::string> colourStringForKey(const PSTableCell& cell,
                                                        std::string_view key) = 0;
};

}  // namespace frelta
