#define G_SETTINGS_ENABLE_BACKEND
#include <benchmark/benchmark.h>
#include <gio/gio.h>
#include <gio/gsettingsbackend.h>

#include <QSettings>
#include <cstdio>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "device/SettingsKeys.h"
#include "fake/FakePlatform.h"
#include "settings/FreltaPreferencesManager.h"

using namespace frelta;

namespace {

constexpr const char* kSwitch = "HideKeyCaps";
constexpr const char* kPath = "EnabledThemePath";
constexpr const char* kStoredPath = "/Library/Frelta/Themes/Another Images.theme";

/// The three stores, each either empty, so that every read falls back to its default, or with a
/// value of its own under all 21 keys.
class Stores {
 public:
  explicit Stores(bool filled)
      : qSettings_(QString::fromStdString(platform_.hostPath("/qt.ini").string()),
                   QSettings::IniFormat) {
    GSettingsSchemaSource* source =
        g_settings_schema_source_new_from_directory(SCHEMA_FOLDER, nullptr, FALSE, nullptr);
    GSettingsSchema* schema =
        g_settings_schema_source_lookup(source, "com.tarno.freltaprefs", FALSE);
    GSettingsBackend* backend = g_memory_settings_backend_new();
    gSettings_ = g_settings_new_full(schema, backend, nullptr);
    g_object_unref(backend);
    g_settings_schema_unref(schema);
    g_settings_schema_source_unref(source);
    if (filled) fill();
    qSettings_.sync();
    FreltaPreferencesManager::clearCache();
  }
  ~Stores() { g_object_unref(gSettings_); }
  Stores(const Stores&) = delete;
  Stores& operator=(const Stores&) = delete;

  QSettings& qSettings() { return qSettings_; }
  GSettings* gSettings() { return gSettings_; }

 private:
  void fill() {
    Dictionary stored;
    for (const SettingKey& key : settingKeys()) {
      if (!key.defaultValue) continue;
      const std::string name(key.name);
      if (key.kind == SettingKind::Path) {
        stored.emplace(name, kStoredPath);
        qSettings_.setValue(name.c_str(), kStoredPath);
        g_settings_set_string(gSettings_, name.c_str(), kStoredPath);
      } else {
        stored.emplace(name, 7);
        qSettings_.setValue(name.c_str(), 7);
        g_settings_set_int(gSettings_, name.c_str(), 7);
      }
    }
    FreltaPreferencesManager::savePrefs(stored);
  }

  FakePlatform platform_;
  QSettings qSettings_;
  GSettings* gSettings_ = nullptr;
};

void readFrelta(benchmark::State& state, bool filled, const char* key) {
  Stores stores(filled);
  for (auto _ : state) benchmark::DoNotOptimize(FreltaPreferencesManager::getPrefForKey(key));
}

void readQSettings(benchmark::State& state, bool filled, const char* key) {
  Stores stores(filled);
  const QString name(key);
  const QVariant fallback = name == kPath ? QVariant(kStoredPath) : QVariant(1);
  for (auto _ : state) benchmark::DoNotOptimize(stores.qSettings().value(name, fallback));
}

void readGSettings(benchmark::State& state, bool filled, const char* key) {
  Stores stores(filled);
  for (auto _ : state) {
    GVariant* value = g_settings_get_value(stores.gSettings(), key);
    benchmark::DoNotOptimize(value);
    g_variant_unref(value);
  }
}

/// Keeps the shortest time of each case, the one least disturbed.
class Fastest : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const double time = run.GetAdjustedCPUTime();
      const auto [at, isNew] = times.emplace(run.run_name.function_name, time);
      if (!isNew && time < at->second) at->second = time;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  std::map<std::string, double> times;
};

}  // namespace

int main(int argc, char** argv) {
  // A process with threads counts references atomically, as the application does.
  std::thread([] {}).join();
  const std::map<std::string, std::pair<bool, const char*>> cases{
      {"stored switch", {true, kSwitch}},
      {"stored path", {true, kPath}},
      {"default switch", {false, kSwitch}},
      {"default path", {false, kPath}},
  };
  for (const auto& [name, reading] : cases) {
    const auto [filled, key] = reading;
    benchmark::RegisterBenchmark((name + ", getPrefForKey").c_str(), readFrelta, filled, key);
    benchmark::RegisterBenchmark((name + ", QSettings").c_str(), readQSettings, filled, key);
    benchmark::RegisterBenchmark((name + ", GSettings").c_str(), readGSettings, filled, key);
  }

  benchmark::Initialize(&argc, argv);
  Fastest fastest;
  benchmark::RunSpecifiedBenchmarks(&fastest);

  std::puts("\nHow many times as long the others take:");
  for (const auto& [name, reading] : cases) {
    const double ours = fastest.times[name + ", getPrefForKey"];
    std::printf("%-16s QSettings %6.1f   GSettings %6.1f\n", name.c_str(),
                fastest.times[name + ", QSettings"] / ours,
                fastest.times[name + ", GSettings"] / ours);
  }
}
