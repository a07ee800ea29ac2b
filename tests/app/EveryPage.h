#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "device/SettingsKeys.h"
#include "foundation/PropertyListValue.h"

namespace frelta {

/// A page that the first page leads to.
struct PageBehind {
  /// The row of the first page that leads there.
  std::string row;
  /// The background mode that shows the row.
  int mode = 0;

  /// Settings with which the row is there.
  Dictionary settings() const {
    return {{std::string(keys::kBackgroundMode), mode},
            {std::string(keys::kSwitchPresetsWithDarkMode), 1}};
  }
  friend void PrintTo(const PageBehind& page, std::ostream* out) { *out << page.row; }
};

inline const std::vector<PageBehind> kPagesBehind{{"Settings"},
                                                  {"CurrentPreset"},
                                                  {"FreltaPresetsLightMode"},
                                                  {"FreltaPresetsDarkMode"},
                                                  {"FreltaHTMLCell", 1},
                                                  {"backgroundImageContentModeInt", 2},
                                                  {"FreltaThemesCell", 3},
                                                  {"FreltaWidgetCell", 4}};

}  // namespace frelta
