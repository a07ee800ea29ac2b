#include "app/HostPlatform.h"

#include "device/Paths.h"
#include "installer/StyleInstallation.h"

namespace frelta {

HostPlatform::HostPlatform(const std::string& root, const Appearance& appearance)
    : files_(root), system_(appearance) {
  for (const std::string_view folder : {kPreferencesFolder, kPresetsFolder, kUserImagesFolder}) {
    files_.sweepDirectoryAtPath(folder);
  }
  sweepUnfinishedStyles(root);
}

Platform HostPlatform::platform() {
  Platform platform;
  platform.fileManager = &reportingFiles_;
  platform.propertyLists = &propertyLists_;
  platform.json = &json_;
  platform.darwinNotificationCenter = &notifications_;
  platform.processes = &reportingProcesses_;
  platform.log = &log_;
  platform.mainQueue = &mainQueue_;
  platform.random = &random_;
  platform.system = &system_;
  platform.workQueue = &workQueue_;
  platform.failures = &failures_;
  return platform;
}

GraphicsServices HostPlatform::graphicsServices() {
  return {&images_};
}

UIKitServices HostPlatform::uiKitServices() {
  UIKitServices services;
  services.text = &text_;
  services.addresses = &reportingAddresses_;
  services.pasteboard = &pasteboard_;
  services.pictures = &pictures_;
  return services;
}

}  // namespace frelta
