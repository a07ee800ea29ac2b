#include "GeneratedPropertyLists.h"

#include <bit>
#include <cmath>
#include <limits>

namespace frelta {
namespace {

constexpr int kDeepest = 5;

}  // namespace

PropertyListValue GeneratedPropertyLists::value(int depth) {
  const bool container = depth == 0 || (depth < kDeepest && below(4) == 0);
  if (container && below(2) == 0) {
    Array array;
    for (std::uint64_t i = below(6); i > 0; --i) array.push_back(value(depth + 1));
    return array;
  }
  if (container) {
    Dictionary dictionary;
    for (std::uint64_t i = below(8); i > 0; --i) dictionary[text()] = value(depth + 1);
    return dictionary;
  }
  switch (below(7)) {
    case 0:
      return below(2) == 0;
    case 1:
      return integer();
    case 2:
      return random_();
    case 3:
      return real();
    case 4:
      // 315,537,897,600 seconds from the year 1 to the year 10000.
      return Date{static_cast<double>(below(315'537'897'600)) - 63'113'904'000.0};
    case 5:
      return Data{bytes()};
    default:
      return text();
  }
}

std::int64_t GeneratedPropertyLists::integer() {
  return static_cast<std::int64_t>(random_()) >> below(64);
}

double GeneratedPropertyLists::real() {
  switch (below(4)) {
    case 0: {
      // No +0.0: Python's binary writer takes it and -0.0 for the same object.
      constexpr double kSpecial[] = {-0.0,
                                     1.0,
                                     0.1,
                                     1e22,
                                     5e-324,
                                     std::numeric_limits<double>::max(),
                                     std::numeric_limits<double>::infinity(),
                                     -std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN()};
      return kSpecial[below(std::size(kSpecial))];
    }
    case 1:
      return static_cast<double>(below(2000) + 1) / 10 - 100.05;
    default: {
      const double number = std::bit_cast<double>(random_());
      return std::isnan(number) ? 0.5 : number;
    }
  }
}

std::string GeneratedPropertyLists::text() {
  static constexpr const char* kPieces[] = {
      "a",      "Key",    " ",      "\n",         "\t",      "\r",     "&",
      "<",      ">",      "\"",     "'",          "]]>",     "&amp;",  "<!--",
      "CF$",    "%@",     "/",      ".plist",     "é",       "ß",      "日本",
      "\u2028", "\u0085", "\uFEFF", "\u200F",     "e\u0301", "😀",      "👨‍👩‍👧",
      "🇩🇪",     "𝔘",      "\uFFFD", "\U0010FFFF", "\u007F",  "\uD7FF", "\uE000",
      "0"};
  std::string text;
  for (std::uint64_t i = below(12); i > 0; --i) text += kPieces[below(std::size(kPieces))];
  return text;
}

std::string GeneratedPropertyLists::bytes() {
  std::string bytes(below(200), '\0');
  for (char& byte : bytes) byte = static_cast<char>(below(256));
  return bytes;
}

}  // namespace frelta
