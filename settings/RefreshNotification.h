#pragma once

#include <string_view>

namespace frelta {

inline constexpr std::string_view kRefreshNotification = "com.tarno.frelta.refresh";

/// Tells every listening process that the settings changed. Returns at once; whether anyone heard
/// it is not told.
void postRefreshNotification();

/// Posts another name in the same way: a row's own "PostNotification".
void postNotification(std::string_view name);

}  // namespace frelta
