#include <benchmark/benchmark.h>
#include <dirent.h>

#include <QGuiApplication>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "device/Paths.h"
#include "fake/FakePlatform.h"
#include "presets/FreltaPresets.h"
#include "presets/PresetStore.h"
#include "quick/QtTextMeasurer.h"
#include "quick/QuickWindow.h"
#include "quick/RenderBackend.h"
#include "uikit/UIKitServices.h"

using namespace frelta;

namespace {

/// A folder with that many preset files and a tenth as many others.
class Folder {
 public:
  explicit Folder(int presets) {
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

/// From the first look at the screen's view to the picture of the window with its rows.
void FirstFrame(benchmark::State& state) {
  const Folder folder(static_cast<int>(state.range(0)));
  QtTextMeasurer measurer;
  UIKitServices::install({.text = &measurer});
  Appearance appearance(UserInterfaceStyle::Light);
  for (auto _ : state) {
    state.PauseTiming();
    const auto screen = std::make_shared<FreltaPresets>();
    auto window = std::make_unique<QuickWindow>(std::make_shared<UIViewController>(), appearance);
    // Rows of both tables fill it, and what is kept ready below it.
    window->resize(390, 360);
    window->show();
    QCoreApplication::processEvents();
    window->grabWindow();
    screen->view();
    state.ResumeTiming();
    screen->tableView().reloadData();
    window->uiWindow().setRootViewController(screen);
    window->mirror().flush();
    const QImage picture = window->grabWindow();
    state.PauseTiming();
    if (picture.isNull()) state.SkipWithError("there is no picture");
    window.reset();
    state.ResumeTiming();
  }
}

BENCHMARK(PresetPaths)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareReaddir)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstFrame)->Arg(10)->Arg(10'000)->Iterations(20)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  chooseRenderBackend();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
