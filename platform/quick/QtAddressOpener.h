#pragma once

#include "uikit/UIKitServices.h"

namespace frelta {

/// Hands addresses to the desktop.
class QtAddressOpener : public AddressOpener {
 public:
  bool openURL(std::string_view address) override;
};

}  // namespace frelta
