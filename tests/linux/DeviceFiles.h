#pragma once

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "linux/LinuxFileManager.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {

/// A device root in a temporary folder, beside a folder that nothing may reach from it.
class DeviceFiles {
 public:
  DeviceFiles() {
    std::filesystem::create_directory(root());
    std::filesystem::create_directory(outside());
  }

  std::filesystem::path root() const { return folder_.path() / "root"; }
  std::filesystem::path outside() const { return folder_.path() / "outside"; }
  std::filesystem::path host(std::string_view devicePath) const {
    return root() / std::filesystem::path(devicePath).relative_path();
  }

  void put(std::string_view devicePath, std::string_view bytes) const {
    std::filesystem::create_directories(host(devicePath).parent_path());
    std::ofstream(host(devicePath), std::ios::binary) << bytes;
  }
  std::string get(std::string_view devicePath) const { return read(host(devicePath)); }
  static std::string read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  void link(std::string_view devicePath, const std::filesystem::path& target) const {
    std::filesystem::create_symlink(target, host(devicePath));
  }
  /// Names in a folder of the host.
  static std::set<std::string> names(const std::filesystem::path& path) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path))
      names.insert(entry.path().filename());
    return names;
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace frelta
