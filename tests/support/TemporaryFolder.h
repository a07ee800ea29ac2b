#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace frelta {

/// A folder of the host that goes with the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string path = std::filesystem::temp_directory_path() / "frelta-test-XXXXXX";
    if (!::mkdtemp(path.data())) throw std::runtime_error("no temporary folder");
    path_ = path;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace frelta
