#include "reporting/ReportingAddressOpener.h"

namespace frelta {

bool ReportingAddressOpener::openURL(std::string_view address) {
  if (next_.openURL(address)) return true;
  listener_.failed({Failure::Operation::OpenAddress, std::string(address)});
  return false;
}

}  // namespace frelta
