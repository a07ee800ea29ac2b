#pragma once

#include <string_view>

namespace frelta {

/// Tells every listening process that the settings changed. Returns at once; whether anyone heard
/// it is not told.
void postRefreshNotification();

/// Posts another name in the same way: a row's own "PostNotification".
void postNotification(std::string_view name);

/// From now on the preferences manager forgets what it has loaded whenever a refresh was posted, on
/// the main queue's next turn. Some writers leave its cache as it is, and a page that opens after
/// them must show what is stored. Nothing happens where the platform has no notification centre.
void forgetSettingsAtRefresh();

}  // namespace frelta
