#pragma once

#include <vector>

#include "preferences/PSSpecifier.h"

namespace frelta {

/// A group of a list page with its rows; no group for the rows above the first.
struct PSListSection {
  std::shared_ptr<PSSpecifier> group;
  PSSpecifierList rows;
};

/// A group that lost all the rows it was described with is left out, title and all.
std::vector<PSListSection> sectionsOfSpecifiers(const PSSpecifierList& specifiers);

}  // namespace frelta
