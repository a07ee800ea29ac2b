#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "fake/FailingFiles.h"
#include "fake/FakeServices.h"
#include "foundation/Platform.h"

namespace frelta {

/// A whole Platform for one test: real files under a temporary device root, everything else a fake.
/// Constructing installs it; destroying removes the root and what is in it.
class FakePlatform {
 public:
  FakePlatform();
  ~FakePlatform();
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;

  /// Where a device path lies on the host.
  std::filesystem::path hostPath(std::string_view devicePath) const;
  /// Puts a file there, behind the file manager's back, its folders too.
  void put(std::string_view devicePath, std::string_view bytes);
  /// The file's bytes, behind the file manager's back; empty when there is none.
  std::string get(std::string_view devicePath) const;
  /// Has long work wait in the work queue from now on; until then it is done at once.
  void useWorkQueue();

 private:
  std::filesystem::path root_;
  std::unique_ptr<FileManager> realFiles_;
  std::unique_ptr<PropertyListSerialization> propertyLists_;
  std::unique_ptr<JSONSerialization> json_;

 public:
  FailingFiles files;
  FakeDarwinNotificationCenter notifications;
  FakeProcessLauncher processes;
  FakeLog log;
  FakeMainQueue mainQueue;
  FakeRandomSource random;
  FakeSystemInformation system;
  FakeWorkQueue workQueue;
};

}  // namespace frelta
