#include "preferences/PSListSection.h"

namespace frelta {

std::vector<PSListSection> sectionsOfSpecifiers(const PSSpecifierList& specifiers) {
  std::vector<PSListSection> sections;
  for (const auto& specifier : specifiers) {
    if (specifier->isGroup()) {
      sections.push_back({specifier, {}});
    } else {
      if (sections.empty()) sections.emplace_back();
      sections.back().rows.push_back(specifier);
    }
  }
  std::erase_if(sections, [](const PSListSection& section) {
    return section.rows.empty() && section.group->hasRows();
  });
  return sections;
}

}  // namespace frelta
