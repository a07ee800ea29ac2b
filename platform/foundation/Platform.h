#pragma once

#include "foundation/DarwinNotificationCenter.h"
#include "foundation/FailureListener.h"
#include "foundation/FileManager.h"
#include "foundation/JSONSerialization.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "foundation/ProcessLauncher.h"
#include "foundation/PropertyListSerialization.h"
#include "foundation/RandomSource.h"
#include "foundation/SystemInformation.h"
#include "foundation/WorkQueue.h"

namespace frelta {

/// One of each service. The application or a test fills one and installs it before anything else
/// runs; the services stay owned by whoever made them and must outlive the installation.
struct Platform {
  FileManager* fileManager = nullptr;
  PropertyListSerialization* propertyLists = nullptr;
  JSONSerialization* json = nullptr;
  DarwinNotificationCenter* darwinNotificationCenter = nullptr;
  ProcessLauncher* processes = nullptr;
  Log* log = nullptr;
  MainQueue* mainQueue = nullptr;
  RandomSource* random = nullptr;
  SystemInformation* system = nullptr;
  /// Null where everything is done on the main thread.
  WorkQueue* workQueue = nullptr;
  /// Null where nobody wants to know.
  FailureListener* failures = nullptr;

  /// The installed services. Installing is a must before the first call.
  static const Platform& current();
  /// Installs a copy of the pointers; the previous ones are forgotten.
  static void install(const Platform& platform);
};

}  // namespace frelta
