#pragma once

#include "foundation/FailureListener.h"
#include "uikit/UIKitServices.h"

namespace frelta {

/// Passes every address on to another opener and tells the listener of those that nothing took.
class ReportingAddressOpener : public AddressOpener {
 public:
  /// Neither is owned; both outlive this.
  ReportingAddressOpener(AddressOpener& next, FailureListener& listener)
      : next_(next), listener_(listener) {}

  bool openURL(std::string_view address) override;

 private:
  AddressOpener& next_;
  FailureListener& listener_;
};

}  // namespace frelta
