#pragma once

#include <cstdint>
#include <fstream>
#include <limits>
#include <string>

namespace frelta {

/// The most memory that the process has had at a time since this was made, in bytes, less what it
/// had then. Under the address sanitizer, which keeps back what is freed and shadows the rest,
/// nothing is counted.
class PeakMemory {
 public:
  PeakMemory() {
    // The kernel begins to count anew.
    std::ofstream("/proc/self/clear_refs") << "5";
    before_ = peak();
  }
  std::uint64_t growth() const { return kIsCounted ? peak() - before_ : 0; }

 private:
#ifdef __SANITIZE_ADDRESS__
  static constexpr bool kIsCounted = false;
#else
  static constexpr bool kIsCounted = true;
#endif

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
