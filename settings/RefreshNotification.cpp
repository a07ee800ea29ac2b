#include "settings/RefreshNotification.h"

#include <string>

#include "device/Notifications.h"
#include "foundation/Platform.h"
#include "settings/FreltaPreferencesManager.h"

namespace frelta {

void postRefreshNotification() {
  postNotification(kRefreshNotification);
}

void postNotification(std::string_view name) {
  Platform::current().darwinNotificationCenter->post(name);
}

void forgetSettingsAtRefresh() {
  if (auto* centre = Platform::current().darwinNotificationCenter)
    centre->addObserver(std::string(kRefreshNotification), &FreltaPreferencesManager::clearCache);
}

}  // namespace frelta
