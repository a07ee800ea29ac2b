#pragma once

#include <string>

#include "tests/monkey/MonkeyHouse.h"

namespace frelta {

/// Looks at whether the settings file is the old one or a whole new one, and whether what others
/// keep in it is still there.
class SettingsWatch {
 public:
  explicit SettingsWatch(MonkeyHouse& house) : house_(house) {}

  /// Puts a key of somebody else's into the file.
  void plant();
  /// What is wrong, in a few words; empty when nothing is. Where files can be copied, a preset that
  /// is applied leaves the old settings beside the new ones.
  std::string look(bool canCopy);

 private:
  /// As it lies on the disk; nothing where that is no dictionary.
  std::optional<Dictionary> read(const std::string& path) const;

  MonkeyHouse& house_;
  std::string last_;
};

}  // namespace frelta
