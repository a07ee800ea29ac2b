#include "preferences/PSPageDescription.h"

#include <utility>

namespace frelta {

namespace {

/// Reads one item, collecting what is wrong with it.
class ItemReader {
 public:
  ItemReader(const Dictionary& item, std::size_t position, const PSClassRegistry& classes)
      : item_(item), position_(position), classes_(classes) {}

  PSSpecifier specifier() {
    const bool hasCellClass = valueForKey(item_, "cellClass") != nullptr;
    PSCellType type = PSCellType::Plain;
    if (const PropertyListValue* cell = valueForKey(item_, "cell")) {
      const auto known = cell->string() ? cellTypeFromString(*cell->string()) : std::nullopt;
      if (!known) complain("cell", *cell);
      type = known.value_or(PSCellType::Plain);
    } else if (!hasCellClass) {
      complain("no cell");
    }
    auto cellClass = known("cellClass", &PSClassRegistry::cell);
    auto detail = known("detail", &PSClassRegistry::controller);
    auto action = known("action", &PSClassRegistry::action);
    if (type == PSCellType::PSLinkListCell && !valueForKey(item_, "detail")) {
      detail = "PSListItemsController";
    }
    if (!problem_.empty() && type != PSCellType::PSGroupCell) {
      // Half of what the row asks for would promise what it cannot keep.
      return PSSpecifier(PSCellType::Plain, identifier(type), item_);
    }
    PSSpecifier specifier(type, identifier(type), item_);
    specifier.setCellClass(std::move(cellClass));
    specifier.setDetailControllerClass(std::move(detail));
    specifier.setAction(std::move(action));
    return specifier;
  }

  /// Empty when nothing was wrong.
  const std::string& problem() const { return problem_; }

 private:
  template <typename Lookup>
  std::optional<std::string> known(std::string_view key, Lookup lookup) {
    const PropertyListValue* value = valueForKey(item_, key);
    if (!value) return std::nullopt;
    if (value->string() && (classes_.*lookup)(*value->string())) return *value->string();
    complain(key, *value);
    return std::nullopt;
  }

  void complain(std::string_view key, const PropertyListValue& value) {
    complain("unknown " + std::string(key) + (value.string() ? " " + *value.string() : ""));
  }

  void complain(const std::string& what) {
    if (!problem_.empty()) problem_ += ", ";
    problem_ += what;
  }

  std::string identifier(PSCellType type) const {
    for (const std::string_view key : {"id", "key"}) {
      const PropertyListValue* value = valueForKey(item_, key);
      if (value && value->string()) return *value->string();
    }
    return (type == PSCellType::PSGroupCell ? "GROUP-" : "ROW-") + std::to_string(position_);
  }

  const Dictionary& item_;
  std::size_t position_;
  const PSClassRegistry& classes_;
  std::string problem_;
};

}  // namespace

PSSpecifierList PSPageDescription::specifiers() const {
  PSSpecifierList list;
  list.reserve(items.size());
  std::shared_ptr<PSSpecifier> group;
  for (const PSSpecifier& item : items) {
    list.push_back(std::make_shared<PSSpecifier>(item));
    if (item.isGroup()) {
      group = list.back();
    } else {
      list.back()->setGroup(group);
    }
  }
  return list;
}

PSPageDescription pageDescriptionWithValue(const PropertyListValue& value,
                                           const PSClassRegistry& classes) {
  PSPageDescription page;
  const Dictionary* root = value.dictionary();
  if (!root) {
    page.problems.push_back("not a dictionary");
    return page;
  }
  if (const PropertyListValue* title = valueForKey(*root, "title"); title && title->string()) {
    page.title = *title->string();
  }
  const PropertyListValue* items = valueForKey(*root, "items");
  if (!items || !items->array()) {
    page.problems.push_back("no items");
    return page;
  }
  for (std::size_t i = 0; i < items->array()->size(); ++i) {
    const std::string row = "item " + std::to_string(i);
    const Dictionary* item = (*items->array())[i].dictionary();
    if (!item) {
      page.problems.push_back(row + ": not a dictionary");
      continue;
    }
    ItemReader reader(*item, i, classes);
    page.items.push_back(reader.specifier());
    if (!reader.problem().empty()) page.problems.push_back(row + ": " + reader.problem());
  }
  return page;
}

}  // namespace frelta
