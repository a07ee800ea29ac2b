#include "preferences/PSTableCellCache.h"

#include <utility>

#include "foundation/Platform.h"
#include "preferences/PSTableCellFactory.h"

namespace frelta {

PSTableCell& PSTableCellCache::prepare(UITableView& table,
                                       const std::shared_ptr<PSSpecifier>& specifier,
                                       const PSClassRegistry& classes) {
  return *find(table, specifier, classes)->second;
}

std::unique_ptr<PSTableCell> PSTableCellCache::take(UITableView& table,
                                                    const std::shared_ptr<PSSpecifier>& specifier,
                                                    const PSClassRegistry& classes) {
  return std::move(cells_.extract(find(table, specifier, classes)).mapped());
}

void PSTableCellCache::invalidate(const PSSpecifier& specifier) {
  invalid_.insert(&specifier);
}

PSTableCellCache::Cells::iterator PSTableCellCache::find(
    UITableView& table, const std::shared_ptr<PSSpecifier>& specifier,
    const PSClassRegistry& classes) {
  const std::string key = rowKeyOf(*specifier);
  const auto known = reuseIdentifiers_.find(key);
  collect(table, known == reuseIdentifiers_.end() ? key : known->second);

  auto [found, last] = cells_.equal_range(key);
  for (auto it = found; it != last; ++it) {
    if (it->second->specifier() == specifier) found = it;
  }
  const bool exists = found != last;
  if (exists && found->second->specifier() == specifier && !invalid_.contains(specifier.get())) {
    return found;
  }
  if (exists && !specifier->cellClass()) {
    found->second->setSpecifier(specifier);
  } else {
    if (exists) retire(std::move(cells_.extract(found).mapped()));
    found = cells_.emplace(key, tableCellForSpecifier(specifier, classes));
    reuseIdentifiers_[key] = found->second->reuseIdentifier();
  }
  found->second->refreshCellContents();
  invalid_.erase(specifier.get());
  return found;
}

void PSTableCellCache::collect(UITableView& table, const std::string& reuseIdentifier) {
  while (auto cell = table.dequeueReusableCellWithIdentifier(reuseIdentifier)) {
    std::unique_ptr<PSTableCell> own(static_cast<PSTableCell*>(cell.release()));
    std::string key = rowKeyOf(*own->specifier());
    cells_.emplace(std::move(key), std::move(own));
  }
}

void PSTableCellCache::retire(std::unique_ptr<PSTableCell> cell) {
  // It may be one of its own handlers that made the page load its rows anew.
  Platform::current().mainQueue->async([kept = std::shared_ptr<PSTableCell>(std::move(cell))] {});
}

}  // namespace frelta
