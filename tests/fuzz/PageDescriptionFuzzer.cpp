#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "linux/XMLPropertyListReader.h"
#include "preferences/PSBundle.h"
#include "preferences/PSListSection.h"
#include "preferences/PSPageDescription.h"
#include "preferences/PSValidValues.h"

namespace frelta {

// A description only asks whether a name is known: nothing is ever made.
PSClassRegistry::PSClassRegistry() {
  for (const char* name : {"PSListItemsController", "Page"}) registerController(name, {});
  registerCell("Cell", {});
  registerAction("act", {});
}

}  // namespace frelta

/// Every item is a row or a problem, no row asks for anything unknown, and no row gets lost on the
/// way to its section.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  static const PSClassRegistry kClasses;
  const auto value = readXMLPropertyList({reinterpret_cast<const char*>(bytes), size});
  if (!value) return 0;
  if (const auto info = bundleInfoWithValue(*value)) {
    require(PSBundle::isResourceName(info->executable));
  }
  const PSPageDescription page = pageDescriptionWithValue(*value, kClasses);
  const PropertyListValue* items =
      value->dictionary() ? valueForKey(*value->dictionary(), "items") : nullptr;
  const std::size_t described = items && items->array() ? items->array()->size() : 0;
  require(page.items.size() <= described);
  require(described <= page.items.size() + page.problems.size());

  std::size_t rows = 0;
  const PSSpecifierList list = page.specifiers();
  for (const auto& row : list) {
    rows += !row->isGroup();
    require(!row->cellClass() || kClasses.cell(*row->cellClass()));
    require(!row->action() || kClasses.action(*row->action()));
    require(!row->detailControllerClass() || kClasses.controller(*row->detailControllerClass()));
    const auto index = indexOfValidValue(validValues(*row), PropertyListValue(1));
    require(!index || *index < validValues(*row).size());
  }
  for (const PSListSection& section : sectionsOfSpecifiers(list)) rows -= section.rows.size();
  require(rows == 0);
  return 0;
}
