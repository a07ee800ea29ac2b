#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/monkey/Dice.h"
#include "tests/monkey/Inspection.h"
#include "tests/monkey/MonkeyHands.h"
#include "tests/monkey/MonkeyHouse.h"
#include "tests/monkey/MonkeyWorld.h"
#include "tests/monkey/SettingsWatch.h"

namespace frelta {

/// Uses the application at random. The same seed does the same.
class Monkey {
 public:
  /// Prints each step where it is to.
  explicit Monkey(std::uint64_t seed, bool tracing = false);

  /// Does one thing, looks at the settings file, and says what it did.
  std::string step();
  /// Goes back to the first page by keys alone, and looks at everything.
  void inspect();

  /// What has gone wrong so far, with the steps that led there; empty when nothing has.
  const std::vector<std::string>& faults() const { return faults_; }
  /// Bytes of memory in use at each inspection, on the first page and at rest.
  const std::vector<double>& memory() const { return memory_; }
  /// How many steps ended on the page of that title; those that ended in an alert count for it too.
  const std::map<std::string, int>& pages() const { return pages_; }

 private:
  struct Deed {
    int weight;
    std::function<std::string()> run;
  };

  const Deed& chosen();
  void complain(const std::string& fault);
  void lookAround();

  const bool tracing_;
  Dice dice_;
  MonkeyHouse house_;
  MonkeyHands hands_;
  MonkeyWorld world_;
  SettingsWatch settings_;
  Inspection inspection_;
  std::vector<Deed> deeds_;
  int weights_ = 0;
  int steps_ = 0;
  std::deque<std::string> lately_;
  std::vector<std::string> faults_;
  std::vector<double> memory_;
  std::map<std::string, int> pages_;
};

}  // namespace frelta
