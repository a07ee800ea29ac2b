#pragma once

#include <string_view>

namespace frelta {

/// The broadcast that says that the settings, a preset or a style changed. A name and nothing else:
/// whoever hears it reads the files again.
inline constexpr std::string_view kRefreshNotification = "com.tarno.frelta.refresh";

}  // namespace frelta
