#pragma once

namespace frelta {

/// Kills the back-board process, so that the system restarts the whole user interface, this process
/// with it. Returns at once and reports no failure.
void respring();

}  // namespace frelta
