#pragma once

#include <string>
#include <vector>

#include "tests/monkey/MonkeyHouse.h"

namespace frelta {

/// Looks at whether all is well with an application that is on its first page and at rest.
class Inspection {
 public:
  explicit Inspection(MonkeyHouse& house) : house_(house) {}

  /// What is wrong, in a few words each; empty when nothing is. Forgets what the fakes recorded.
  std::vector<std::string> faults();

 private:
  void lookAtWindow();
  void lookAtFiles();
  void lookAtViews();
  void lookAtLog();
  void forgetRecords();

  MonkeyHouse& house_;
  std::vector<std::string> found_;
};

}  // namespace frelta
