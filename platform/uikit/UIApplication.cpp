#include "uikit/UIApplication.h"

#include "uikit/UIKitServices.h"

namespace frelta {

UIApplication& UIApplication::sharedApplication() {
  static UIApplication application;
  return application;
}

bool UIApplication::openURL(std::string_view address) {
  AddressOpener* addresses = UIKitServices::current().addresses;
  return addresses && addresses->openURL(address);
}

}  // namespace frelta
