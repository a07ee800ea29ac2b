#include "fake/FakePlatform.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

#include "linux/LinuxFileManager.h"
#include "linux/LinuxJSONSerialization.h"
#include "linux/LinuxPropertyListSerialization.h"

namespace frelta {

namespace {

std::filesystem::path makeTemporaryFolder() {
  std::string path = std::filesystem::temp_directory_path() / "frelta-test-XXXXXX";
  if (!::mkdtemp(path.data()))
    throw std::filesystem::filesystem_error("no temporary folder", path,
                                            std::error_code(errno, std::generic_category()));
  return path;
}

}  // namespace

FakePlatform::FakePlatform()
    : root_(makeTemporaryFolder()),
      realFiles_(std::make_unique<LinuxFileManager>(root_)),
      propertyLists_(std::make_unique<LinuxPropertyListSerialization>()),
      json_(std::make_unique<LinuxJSONSerialization>()),
      files(*realFiles_) {
  Platform::install({&files, propertyLists_.get(), json_.get(), &notifications, &processes, &log,
                     &mainQueue, &random, &system});
}

FakePlatform::~FakePlatform() {
  if (Platform::current().fileManager == &files) Platform::install({});
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

std::filesystem::path FakePlatform::hostPath(std::string_view devicePath) const {
  return root_ / std::filesystem::path(devicePath).relative_path();
}

void FakePlatform::put(std::string_view devicePath, std::string_view bytes) {
  const auto path = hostPath(devicePath);
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
}

std::string FakePlatform::get(std::string_view devicePath) const {
  std::ifstream file(hostPath(devicePath), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void FakePlatform::useWorkQueue() {
  Platform with = Platform::current();
  with.workQueue = &workQueue;
  Platform::install(with);
}

}  // namespace frelta
