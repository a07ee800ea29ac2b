#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"

namespace frelta {

/// Another process that listens to Darwin notifications on the session bus. It hears all that is
/// posted after the constructor has returned.
class DarwinListener {
 public:
  DarwinListener() {
    if (records(1, std::chrono::seconds(10)) < 1)
      throw std::runtime_error("the listener cannot reach the bus");
  }

  /// The names heard since the start, in order, as soon as there are that many or the time is over.
  /// Signals keep their order: who posts a last name and waits for it has heard all before it.
  std::vector<std::string> heard(std::size_t count,
                                 std::chrono::milliseconds timeout = std::chrono::seconds(10)) {
    records(count + 1, timeout);
    std::vector<std::string> names;
    const std::string text = process_.outputUntil([](const auto&) { return true; }, {});
    for (std::size_t start = 0; start < text.size();) {
      const auto end = text.find('\0', start);
      if (end == std::string::npos) break;
      names.push_back(text.substr(start, end - start));
      start = end + 1;
    }
    names.erase(names.begin());
    return names;
  }

 private:
  std::ptrdiff_t records(std::size_t count, std::chrono::milliseconds timeout) {
    const auto ended = [](const std::string& text) { return std::ranges::count(text, '\0'); };
    return ended(process_.outputUntil(
        [&](const std::string& text) { return ended(text) >= static_cast<std::ptrdiff_t>(count); },
        timeout));
  }

  ChildProcess process_{{FRELTA_DARWIN_LISTENER}};
};

}  // namespace frelta
