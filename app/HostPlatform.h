#pragma once

#include <string>

#include "app/FailureReports.h"
#include "app/FileRemovals.h"
#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"
#include "linux/LinuxDarwinNotificationCenter.h"
#include "linux/LinuxFileManager.h"
#include "linux/LinuxJSONSerialization.h"
#include "linux/LinuxProcessLauncher.h"
#include "linux/LinuxPropertyListSerialization.h"
#include "linux/LinuxRandomSource.h"
#include "linux/SyslogLog.h"
#include "painting/QtImageServices.h"
#include "quick/Appearance.h"
#include "quick/QtAddressOpener.h"
#include "quick/QtMainQueue.h"
#include "quick/QtPasteboard.h"
#include "quick/QtPicturePicker.h"
#include "quick/QtSystemInformation.h"
#include "quick/QtTextMeasurer.h"
#include "quick/QtWorkQueue.h"
#include "reporting/ReportingAddressOpener.h"
#include "reporting/ReportingFileManager.h"
#include "reporting/ReportingProcessLauncher.h"
#include "uikit/UIKitServices.h"

namespace frelta {

/// One of each real service, for this desktop.
class HostPlatform {
 public:
  /// The appearance outlives this. Removes what writes that a crash cut short have left below the
  /// root.
  HostPlatform(const std::string& root, const Appearance& appearance);

  Platform platform();
  GraphicsServices graphicsServices();
  UIKitServices uiKitServices();
  /// What platform() posts with; lives as long as this.
  LinuxDarwinNotificationCenter& notifications() { return notifications_; }
  /// What the services could not do.
  const FailureReports& failures() const { return failures_; }
  const FileRemovals& removals() const { return removals_; }

 private:
  FailureReports failures_;
  FileRemovals removals_;
  LinuxFileManager files_;
  ReportingFileManager reportingFiles_{files_, failures_,
                                       [this](std::string_view path) { removals_.tell(path); }};
  LinuxPropertyListSerialization propertyLists_;
  LinuxJSONSerialization json_;
  LinuxDarwinNotificationCenter notifications_;
  LinuxProcessLauncher processes_;
  ReportingProcessLauncher reportingProcesses_{processes_, failures_};
  SyslogLog log_;
  QtMainQueue mainQueue_;
  LinuxRandomSource random_;
  QtSystemInformation system_;
  QtImageServices images_;
  QtTextMeasurer text_;
  QtAddressOpener addresses_;
  ReportingAddressOpener reportingAddresses_{addresses_, failures_};
  QtPasteboard pasteboard_;
  QtPicturePicker pictures_;
  QtWorkQueue workQueue_;  // its work uses the others
};

}  // namespace frelta
