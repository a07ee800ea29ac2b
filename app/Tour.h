#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <string>

#include "app/BroadcastListener.h"
#include "app/SettingsApplication.h"
#include "app/TourDriver.h"

namespace frelta {

/// Walks through the real pages by taps, prints each step with the settings file and the broadcasts
/// heard, and saves a picture of each.
class Tour {
 public:
  /// The application is open and its window shown; it outlives the tour.
  Tour(SettingsApplication& application, QString folder);

  /// True when every step went well.
  bool run();

  // For the parts of the tour that have files of their own.
  TourDriver& driver() { return driver_; }
  /// One step: does the work, tells how it went and saves a picture.
  void step(const QString& title, const std::function<bool()>& work);
  /// What the settings file holds under the key; nothing when it is absent.
  static std::optional<PropertyListValue> storedValue(const std::string& key);
  /// Whether a tap on the row's switch changed what is stored, and was told once.
  bool flips(const std::string& key);
  /// Whether the segment stored that mode, told it once and brought the row.
  bool choosesBackground(int mode, const std::string& visibleRow);
  /// Whether exactly that many refreshes were heard since the last time.
  bool heardRefreshes(int count);

 private:
  TourDriver driver_;
  BroadcastListener listener_;
  QStringList heard_;  // since the last look
  QString folder_;
  int steps_ = 0;
  int failures_ = 0;
};

}  // namespace frelta
