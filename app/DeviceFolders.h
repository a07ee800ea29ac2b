#pragma once

namespace frelta {

/// Makes the folders of the device root that an installed Frelta finds on a device, as far as they
/// are missing. What is there stays as it is.
void createDeviceFolders();

}  // namespace frelta
