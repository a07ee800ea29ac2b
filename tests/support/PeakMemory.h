#pragma once

#include <cstdint>
#include <fstream>
#include <limits>
#include <string>

namespace frelta {

/// The most memory that the process has had at a time since this was made, in bytes, less what it
/// had then.
class PeakMemory {
 public:
  PeakMemory() {
    // The kernel begins to count anew.
    std::ofstream("/proc/self/clear_refs") << "5";
    before_ = peak();
  }
  std::uint64_t growth() const { return peak() - before_; }

 private:
  static std::uint64_t peak() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
      std::uint64_t kilobytes = 0;
      if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
    }
    return std::numeric_limits<std::uint64_t>::max();
  }

  std::uint64_t before_;
};

}  // namespace frelta
