#pragma once

#include <filesystem>
#include <string>

#include "tests/monkey/Dice.h"
#include "tests/monkey/MonkeyHouse.h"

namespace frelta {

/// What happens to the application without its window being touched. Each returns what happened, in
/// a few words.
class MonkeyWorld {
 public:
  static constexpr const char* kHiddenStyle = ".hidden.theme";

  MonkeyWorld(MonkeyHouse& house, Dice& dice) : house_(house), dice_(dice) {}

  std::string changeAppearance();
  std::string changeSize();
  std::string letTimePass();
  std::string dropFiles();
  std::string changeAStyle();
  std::string changeAPreset();
  std::string changeSettings();
  std::string broadcast();
  std::string changeTheBus();
  std::string answerThePicker();
  std::string failForAWhile();
  std::string restart();

  /// Whether the application can copy a file now.
  bool canCopy() const { return canCopy_; }

  /// Counts the steps for which things fail or stand still.
  void stepDone();
  /// Nothing fails or stands still any more, and nobody is asked for a picture.
  void comeToRest();

 private:
  std::filesystem::path host(const std::string& device) const {
    return house_.window.platform.hostPath(device);
  }
  void endTrouble();
  void makeStyle(const std::filesystem::path& folder);
  std::string bytesOf(const PropertyListValue& value);
  std::string bytesOfAPreset();

  MonkeyHouse& house_;
  Dice& dice_;
  /// Until the files and the installations go well again; none while they do.
  int stepsToGo_ = 0;
  bool canCopy_ = true;
  bool isBusGone_ = false;
};

}  // namespace frelta
