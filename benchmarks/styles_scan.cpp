// Scanning the styles folder against a bare loop of the same system calls, and the memory it takes.

#include <dirent.h>
#include <malloc.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

#include "device/Paths.h"
#include "fake/FakePlatform.h"
#include "linux/LinuxFileManager.h"
#include "styles/FreltaStyleLibrary.h"

using namespace frelta;

namespace {

class Selector : public FreltaStyleLibrary, public std::enable_shared_from_this<Selector> {
 protected:
  std::shared_ptr<FreltaStyleLibrary> strongReference() override { return shared_from_this(); }
};

std::string styleName(int number) {
  return "A style of some name " + std::to_string(number) + ".theme";
}

/// Every third an images theme, the others HTML themes.
void makeStyles(const std::filesystem::path& folder, int count) {
  for (int i = 0; i < count; ++i)
    std::filesystem::create_directories(folder / styleName(i) / (i % 3 == 0 ? "Images" : "HTML"));
}

bool exists(const std::string& path) {
  struct stat status;
  return ::stat(path.c_str(), &status) == 0;
}

/// What a scan cannot do without: the names, and for each the questions that tell its kind.
std::size_t bareScan(const std::string& folder) {
  std::size_t found = 0;
  DIR* stream = ::opendir(folder.c_str());
  while (const dirent* entry = ::readdir(stream)) {
    const std::string path = folder + "/" + entry->d_name;
    found += exists(path + "/Images") || exists(path + "/HTML");
  }
  ::closedir(stream);
  return found;
}

double secondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Seconds for one scan; the shortest of several, taken in turns with the bare loop.
double measure(int count, int runs) {
  FakePlatform device;
  const std::string folder = device.hostPath(kThemesFolder);
  makeStyles(folder, count);
  LinuxFileManager files(device.hostPath("/"));
  Platform platform = Platform::current();
  platform.fileManager = &files;
  Platform::install(platform);
  Selector selector;
  selector.setIsExtras(FreltaStyleModeHTML);
  const auto before = ::mallinfo2().uordblks;
  selector.loadStyles();
  const auto memory = (::mallinfo2().uordblks - before) / selector.sortedStyles().size();

  double ours = 1e9;
  double bare = 1e9;
  for (int i = 0; i < runs; ++i) {
    bare = std::min(bare, secondsOf([&] { bareScan(folder); }));
    ours = std::min(ours, secondsOf([&] { selector.loadStyles(); }));
  }
  std::printf("%6d styles: %7.1f ms, bare loop %7.1f ms, ratio %.2f; %zu bytes a style\n", count,
              ours * 1e3, bare * 1e3, ours / bare, memory);
  Platform::install({});
  return ours;
}

}  // namespace

int main() {
  measure(10, 200);
  const double tenThousand = measure(10'000, 15);
  const double hundredThousand = measure(100'000, 5);
  std::printf("100,000 take %.1f times as long as 10,000\n", hundredThousand / tenThousand);
}
