#pragma once

#include <random>
#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Makes values of every type that an XML property list can hold, the same ones for the same seed.
class GeneratedPropertyLists {
 public:
  explicit GeneratedPropertyLists(std::uint64_t seed) : random_(seed) {}

  PropertyListValue next() { return value(0); }

 private:
  std::uint64_t below(std::uint64_t bound) { return random_() % bound; }
  PropertyListValue value(int depth);
  std::int64_t integer();
  double real();
  std::string text();
  std::string bytes();

  std::mt19937_64 random_;
};

}  // namespace frelta
