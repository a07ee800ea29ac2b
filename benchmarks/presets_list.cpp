#include <benchmark/benchmark.h>
#include <dirent.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "fake/FakePlatform.h"
#include "fake/FakeTextMeasurer.h"
#include "presets/FreltaPresets.h"
#include "presets/PresetStore.h"
#include "settings/SettingsKeys.h"
#include "uikit/UIKitServices.h"

using namespace frelta;

namespace {

/// A folder with that many preset files and a tenth as many others.
class Folder {
 public:
  explicit Folder(int presets) {
    UIKitServices::install({.text = &measurer_});
    platform_.files.createDirectoryAtPath(kPresetsFolder);
    for (int i = 0; i < presets; ++i) {
      put("Preset number " + std::to_string(i) + ".plist");
      if (i % 10 == 0) put("notes " + std::to_string(i) + ".txt");
    }
  }
  std::string hostPath() const { return platform_.hostPath(kPresetsFolder); }
  void forgetCalls() { platform_.files.resetCalls(); }

 private:
  void put(const std::string& name) { std::ofstream(hostPath() + "/" + name); }
  FakePlatform platform_;
  FakeTextMeasurer measurer_;
};

void PresetPaths(benchmark::State& state) {
  Folder folder(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(presetPaths());
    folder.forgetCalls();
  }
}

/// The least that must be done: read the folder, keep what ends right, make the paths.
void BareReaddir(benchmark::State& state) {
  const Folder folder(static_cast<int>(state.range(0)));
  const std::string path = folder.hostPath();
  for (auto _ : state) {
    std::vector<std::string> paths;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(path.c_str()), ::closedir);
    while (const dirent* entry = ::readdir(stream.get())) {
      const std::string_view name = entry->d_name;
      if (name.ends_with(".plist")) paths.push_back("/Library/Frelta/Presets/" + std::string(name));
    }
    benchmark::DoNotOptimize(paths);
  }
}

/// What stands between a table that was reloaded and its next frame.
void FirstFrame(benchmark::State& state) {
  const Folder folder(static_cast<int>(state.range(0)));
  const auto screen = std::make_shared<FreltaPresets>();
  screen->view().setFrame({0, 0, 390, 800});
  for (auto _ : state) {
    screen->tableView().reloadData();
    screen->view().layoutIfNeeded();
  }
}

BENCHMARK(PresetPaths)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareReaddir)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstFrame)->Arg(10)->Arg(20)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
