#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "device/Paths.h"
#include "fake/FakePlatform.h"
#include "foundation/PropertyListFiles.h"
#include "presets/PresetCodec.h"
#include "presets/PresetName.h"

using namespace frelta;

namespace {

constexpr int kRepetitions = 20;

/// About a megabyte of what presets hold.
Dictionary bigPreset() {
  Dictionary preset;
  for (int i = 0; i < 12'000; ++i) {
    const std::string number = std::to_string(i);
    preset["HideKeyCaps" + number] = i % 2;
    preset["Path" + number] = "/Library/Frelta/Themes/Theme " + number + ".theme";
    if (i % 10 == 0) preset["Factor" + number] = i / 7.0;
  }
  return preset;
}

template <typename Work>
double shortestSeconds(Work&& work) {
  double shortest = 1e9;
  for (int i = 0; i < kRepetitions; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    shortest = std::min(shortest, time.count());
  }
  return shortest;
}

}  // namespace

int main() {
  FakePlatform platform;
  platform.files.createDirectoryAtPath(kPresetsFolder);
  const std::string path = presetPathForName("Big");
  writePropertyListToFile(bigPreset(), path);
  const std::string text = base64StringFromDict(dictionaryWithContentsOfFile(path));
  std::ofstream(platform.hostPath("/text")) << text;

  const double share = shortestSeconds(
      [&] { benchmark::DoNotOptimize(base64StringFromDict(dictionaryWithContentsOfFile(path))); });
  const double import = shortestSeconds([&] {
    const auto preset = base64StringToDict(text);
    benchmark::DoNotOptimize(Platform::current().propertyLists->dataWithPropertyList(*preset));
  });
  std::printf("file of %zu bytes, text of %zu\n", platform.get(path).size(), text.size());
  std::printf("frelta share %.2f ms, import %.2f ms\n", share * 1e3, import * 1e3);
  std::fflush(stdout);

  const std::string command =
      std::string("/usr/bin/python3 -I " PEER_SCRIPT " '") + platform.hostPath(path).string() +
      "' '" + platform.hostPath("/text").string() + "' " + std::to_string(kRepetitions) + " " +
      std::to_string(share) + " " + std::to_string(import);
  return std::system(command.c_str()) == 0 ? 0 : 1;
}
