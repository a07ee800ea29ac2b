#include "settings/RefreshNotification.h"

#include "foundation/Platform.h"

namespace frelta {

void postRefreshNotification() {
  postNotification(kRefreshNotification);
}

void postNotification(std::string_view name) {
  Platform::current().darwinNotificationCenter->post(name);
}

}  // namespace frelta
