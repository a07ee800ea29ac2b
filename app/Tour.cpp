#include "app/Tour.h"

#include <QDir>
#include <cstdio>

#include "app/PresetsTour.h"
#include "app/SelectorTour.h"
#include "app/TerminalText.h"
#include "device/Notifications.h"
#include "device/Paths.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"

namespace frelta {

namespace {

const QString kRefresh =
    QString::fromUtf8(kRefreshNotification.data(), kRefreshNotification.size());

void printSettingsFile() {
  const auto bytes = Platform::current().fileManager->contentsAtPath(
      kSettingsPath, PropertyListSerialization::kMaximumBytes);
  const QString text = QString::fromStdString(bytes.value_or("(no settings file)"));
  for (const QString& line : text.split(QLatin1Char('\n')))
    std::puts(terminalText(line).constData());
}

}  // namespace

Tour::Tour(SettingsApplication& application, QString folder)
    : driver_(*application.window(), *application.navigationController()),
      folder_(std::move(folder)) {
  QObject::connect(&listener_, &BroadcastListener::heard,
                   [this](const QString& name) { heard_.append(name); });
}

bool Tour::run() {
  if (!listener_.isListening()) {
    std::puts("There is no session bus: broadcasts are not listened for.");
  }
  driver_.settle();

  step(QStringLiteral("Root page"), [&] { return driver_.hasRow("Enabled"); });
  step(QStringLiteral("Turn \"HideKeyCaps\" over"), [&] { return flips("HideKeyCaps"); });
  step(QStringLiteral("Background: HTML theme"),
       [&] { return choosesBackground(1, "FreltaHTMLCell"); });
  step(QStringLiteral("Background: picture"),
       [&] { return choosesBackground(2, "FreltaImageCell"); });
  step(QStringLiteral("Background: images theme"),
       [&] { return choosesBackground(3, "FreltaThemesCell"); });
  step(QStringLiteral("Background: widget"),
       [&] { return choosesBackground(4, "FreltaWidgetCell"); });
  walkThroughSelectors(*this);
  step(QStringLiteral("Background: colours"), [&] {
    return choosesBackground(0, "CustomBackgroundColour") && !driver_.hasRow("FreltaWidgetCell");
  });
  step(QStringLiteral("Presets follow light and dark"), [&] {
    return !driver_.hasRow("FreltaPresetsDarkMode") && flips("SwitchPresetsWithDarkMode") &&
           driver_.hasRow("FreltaPresetsLightMode") && driver_.hasRow("FreltaPresetsDarkMode");
  });
  walkThroughPresets(*this);
  step(QStringLiteral("Advanced page"),
       [&] { return driver_.tapRow("Settings") && driver_.hasRow("HideEmojiSlider"); });
  step(QStringLiteral("Turn \"HideEmojiSlider\" over"), [&] { return flips("HideEmojiSlider"); });
  step(QStringLiteral("Back to the root page"),
       [&] { return driver_.tapBack() && driver_.hasRow("Enabled"); });
  step(QStringLiteral("Turn Frelta off"),
       [&] { return flips("Enabled") && !driver_.hasRow("HideKeyCaps"); });
  step(QStringLiteral("Turn Frelta on again"),
       [&] { return flips("Enabled") && driver_.hasRow("HideKeyCaps"); });

  std::puts("The settings file now:");
  printSettingsFile();
  std::printf("%d of %d steps went well. Pictures are in %s\n", steps_ - failures_, steps_,
              terminalText(QDir(folder_).absolutePath()).constData());
  return failures_ == 0;
}

void Tour::step(const QString& title, const std::function<bool()>& work) {
  ++steps_;
  const bool well = work();
  const QString picture =
      QStringLiteral("%1/%2.png").arg(folder_).arg(steps_, 2, 10, QLatin1Char('0'));
  const bool saved = driver_.grab(picture);
  if (!well || !saved) ++failures_;
  std::printf("%2d. %s: %s\n", steps_, qPrintable(title),
              !saved ? "no picture"
              : well ? "ok"
                     : "FAILED");
  std::fflush(stdout);
}

std::optional<PropertyListValue> Tour::storedValue(const std::string& key) {
  const auto file = dictionaryWithContentsOfFile(kSettingsPath);
  const PropertyListValue* value = file ? valueForKey(*file, key) : nullptr;
  return value ? std::optional(*value) : std::nullopt;
}

bool Tour::flips(const std::string& key) {
  const auto before = storedValue(key);
  if (!driver_.tapSwitch(key)) return false;
  const auto after = storedValue(key);
  if (!after || !after->isInteger() || after == before) return false;
  std::printf("    %s is now %d in the settings file\n", key.c_str(), after->intValue());
  return heardRefreshes(1);
}

bool Tour::choosesBackground(int mode, const std::string& visibleRow) {
  if (!driver_.tapSegment("BackgroundMode", mode)) return false;
  if (storedValue("BackgroundMode") != PropertyListValue(mode)) return false;
  std::printf("    BackgroundMode is now %d in the settings file\n", mode);
  return heardRefreshes(1) && driver_.hasRow(visibleRow) && driver_.hasRow("BackgroundMode");
}

bool Tour::heardRefreshes(int count) {
  if (!listener_.isListening()) return true;
  driver_.waitFor([&] { return heard_.size() >= count; });
  const QStringList heard = std::exchange(heard_, {});
  for (const QString& name : heard) std::printf("    heard %s\n", terminalText(name).constData());
  return heard == QStringList(count, kRefresh);
}

}  // namespace frelta
