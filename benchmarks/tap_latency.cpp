// From a row's new value to the signal in another process, against the bare sequence of system
// calls and one emit that does the same.

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "fake/FakePlatform.h"
#include "foundation/PropertyListFiles.h"
#include "linux/LinuxDarwinNotificationCenter.h"
#include "linux/LinuxFileManager.h"
#include "pages/freltaprefsRootListController.h"
#include "preferences/PSSpecifier.h"

namespace {

using namespace frelta;
using Clock = std::chrono::steady_clock;

constexpr int kPairs = 400;
constexpr const char* kMatch =
    "type='signal',interface='com.tarno.DarwinNotificationCenter',member='Posted',"
    "arg0='com.tarno.frelta.refresh'";
const std::string kPath = "/var/mobile/Library/Preferences/com.tarno.freltaprefs.plist";

double now() {
  return std::chrono::duration<double, std::micro>(Clock::now().time_since_epoch()).count();
}

[[noreturn]] void die(const char* what) {
  std::perror(what);
  std::exit(1);
}

int writeTime(sd_bus_message*, void* pipe, sd_bus_error*) {
  const double time = now();
  if (write(*static_cast<int*>(pipe), &time, sizeof time) != sizeof time) _exit(1);
  return 0;
}

// Another process that writes into the pipe when it has heard a signal.
void listen(int pipe) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0 || sd_bus_add_match(bus, nullptr, kMatch, writeTime, &pipe) < 0) {
    _exit(1);
  }
  const double ready = 0;
  if (write(pipe, &ready, sizeof ready) != sizeof ready) _exit(1);
  for (;;) {
    const int result = sd_bus_process(bus, nullptr);
    if (result < 0) _exit(1);
    if (result == 0) sd_bus_wait(bus, UINT64_MAX);
  }
}

double heardAt(int pipe) {
  pollfd readable{pipe, POLLIN, 0};
  double time = 0;
  if (poll(&readable, 1, 5000) != 1 || read(pipe, &time, sizeof time) != sizeof time) {
    die("nothing was heard");
  }
  return time;
}

void bareSequence(const std::string& folder, const std::string& bytes, sd_bus* bus) {
  const std::string temporary = folder + "/bare.new";
  const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (file < 0 || write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
      fsync(file) != 0 || close(file) != 0 ||
      rename(temporary.c_str(), (folder + "/bare.plist").c_str()) != 0) {
    die("bare write");
  }
  const int directory = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (directory < 0 || fsync(directory) != 0 || close(directory) != 0) die("bare folder");
  if (sd_bus_emit_signal(bus, "/com/tarno/DarwinNotificationCenter",
                         "com.tarno.DarwinNotificationCenter", "Posted", "s",
                         "com.tarno.frelta.refresh") < 0 ||
      sd_bus_flush(bus) < 0) {
    die("bare emit");
  }
}

double median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
  return values[values.size() / 2];
}

}  // namespace

int main() {
  int ends[2];
  if (pipe(ends) != 0) die("pipe");
  if (fork() == 0) listen(ends[1]);
  heardAt(ends[0]);
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0) {
    std::fputs("There is no session bus; run under dbus-run-session.\n", stderr);
    return 1;
  }

  // On the disk that holds the build, for a file system in memory makes flushing free.
  const std::filesystem::path root = std::filesystem::current_path() / "tap-latency-root";
  FakePlatform fakes;
  Platform platform = Platform::current();
  LinuxFileManager files(root.string());
  LinuxDarwinNotificationCenter notifications;
  platform.fileManager = &files;
  platform.darwinNotificationCenter = &notifications;
  Platform::install(platform);
  files.createDirectoryAtPath("/var/mobile/Library/Preferences");
  Dictionary settings;
  for (int i = 0; i < 40; ++i) settings["Key" + std::to_string(i)] = i;
  writePropertyListToFile(settings, kPath);
  const std::string folder = (root / "var/mobile/Library/Preferences").string();

  auto page = std::make_shared<freltaprefsRootListController>();
  PSSpecifier row(PSCellType::PSSwitchCell, "HideKeyCaps", {{"key", "HideKeyCaps"}});
  std::vector<double> ours, bare, ratios;
  for (int i = 0; i < kPairs; ++i) {
    double start = now();
    page->setPreferenceValue(i % 2, &row);
    ours.push_back(heardAt(ends[0]) - start);
    const std::string bytes = *files.contentsAtPath(kPath, 1 << 20);
    start = now();
    bareSequence(folder, bytes, bus);
    bare.push_back(heardAt(ends[0]) - start);
    ratios.push_back(ours.back() / bare.back());
  }
  std::printf("row write to signal: median %.0f us\n", median(ours));
  std::printf("bare sequence:       median %.0f us\n", median(bare));
  std::printf("ratio of medians %.2f, median of pair ratios %.2f (limit 1.5, %d pairs)\n",
              median(ours) / median(bare), median(ratios), kPairs);
  std::filesystem::remove_all(root);
  return 0;
}
