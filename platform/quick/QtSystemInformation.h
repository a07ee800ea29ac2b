#pragma once

#include <vector>

#include "foundation/SystemInformation.h"
#include "quick/Appearance.h"

namespace frelta {

/// The application's windows as Qt knows them.
class QtSystemInformation : public SystemInformation {
 public:
  /// The appearance outlives this.
  explicit QtSystemInformation(const Appearance& appearance) : appearance_(appearance) {}

  /// The first version of the platform with a dark appearance, whose behaviour the kit has.
  SystemVersion systemVersion() const override { return {13, 0, 0}; }
  std::vector<Window> windows() const override;
  /// A desktop's screen may lie between two of the platform's scales: the finer one is taken.
  double screenScale() const override;

 private:
  const Appearance& appearance_;
};

}  // namespace frelta
