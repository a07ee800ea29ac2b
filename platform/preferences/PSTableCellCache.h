#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include "preferences/PSClassRegistry.h"
#include "preferences/PSTableCell.h"
#include "uikit/UITableView.h"

namespace frelta {

/// Keeps the cells of a list page that the table does not hold, so that a row that is loaded anew
/// gets its cell back, and that each row's value is read once for each load.
class PSTableCellCache {
 public:
  /// The cell of the row, up to date, for a look before the table asks for it. Owned by the cache.
  PSTableCell& prepare(UITableView& table, const std::shared_ptr<PSSpecifier>& specifier,
                       const PSClassRegistry& classes);
  /// The same for the table to keep.
  std::unique_ptr<PSTableCell> take(UITableView& table,
                                    const std::shared_ptr<PSSpecifier>& specifier,
                                    const PSClassRegistry& classes);
  /// The row's value is read again before its cell is next given out.
  void invalidate(const PSSpecifier& specifier);
  /// Every row is about to be replaced.
  void forgetInvalidated() { invalid_.clear(); }

 private:
  using Cells = std::multimap<std::string, std::unique_ptr<PSTableCell>>;

  Cells::iterator find(UITableView& table, const std::shared_ptr<PSSpecifier>& specifier,
                       const PSClassRegistry& classes);
  void collect(UITableView& table, const std::string& reuseIdentifier);
  static void retire(std::unique_ptr<PSTableCell> cell);

  Cells cells_;
  /// Registered classes choose their own reuse identifier: which, by row key.
  std::map<std::string, std::string> reuseIdentifiers_;
  std::set<const PSSpecifier*> invalid_;
};

}  // namespace frelta
