#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "device/StyleKinds.h"
#include "foundation/PropertyListValue.h"
#include "styles/FreltaSortedItem.h"
#include "styles/FreltaSortedStyle.h"
#include "styles/FreltaStyleTable.h"

namespace frelta {

/// The selector without its screen: the installed styles of one kind, and which of them is on.
/// Main thread only. No operation reports failure.
class FreltaStyleLibrary {
 public:
  using Entry = std::shared_ptr<FreltaSortedItem>;
  using Entries = std::vector<Entry>;

  virtual ~FreltaStyleLibrary() = default;
  FreltaStyleLibrary(const FreltaStyleLibrary&) = delete;
  FreltaStyleLibrary& operator=(const FreltaStyleLibrary&) = delete;

  /// The kind served, a FreltaStyleMode.
  std::int32_t isExtras() const { return isExtras_; }
  void setIsExtras(std::int32_t kind) { isExtras_ = kind; }
  /// What the last scan found, in the order in which the system lists the folder.
  const Entries& originalStylesList() const { return originalStylesList_; }
  /// A working copy of it.
  const Entries& styleList() const { return styleList_; }
  /// The library section.
  const Entries& sortedStyles() const { return sortedStyles_; }
  void setSortedStyles(Entries entries) { sortedStyles_ = std::move(entries); }
  /// The enabled section; empty after every scan.
  const Entries& enabledStyles() const { return enabledStyles_; }
  void setEnabledStyles(Entries entries) { enabledStyles_ = std::move(entries); }
  /// Whether rows are groups that open into a row for each item.
  bool isGrouped() const { return isGrouped_; }
  void setIsGrouped(bool grouped) { isGrouped_ = grouped; }
  /// While set, rows ignore taps on their buttons.
  bool isAnimating() const { return isAnimating_; }
  void setIsAnimating(bool animating) { isAnimating_ = animating; }
  bool isExtensions() const { return isExtensions_; }
  void setIsExtensions(bool extensions) { isExtensions_ = extensions; }
  /// The table that shows the lists; null while there is none. Not owned.
  void setStyleTable(FreltaStyleTable* table) { table_ = table; }

  /// Scans the styles folder, making it where there is none, and resets the lists. Reads the
  /// settings file once.
  void loadStyles();

  std::string preferencesFilePath() const;
  /// The settings file's contents, empty when there is no file; nothing when there is one that
  /// cannot be read.
  std::optional<Dictionary> preferencesDictionary() const;
  /// Stores the path, "" for none, as the one enabled of its kind. A file that cannot be read stays
  /// as it is, silently; no path at all is logged.
  void updatePreferencesFileWithPath(const std::optional<std::string>& path) const;
  /// Whether the path is the enabled one of its kind. Where the key is absent the example HTML
  /// theme and widget count as enabled.
  bool isPathEnabled(std::string_view path) const;
  /// The path's place in "ActiveMenuItems", with didFind set; -1, and didFind left alone, when it
  /// has none.
  std::int32_t rankForItemAtPath(std::string_view path, bool& didFind) const;

  /// The first entry, library section first, whose items hold the item; null for none.
  Entry groupForStyle(const std::shared_ptr<FreltaStyleItem>& item) const;
  /// Where the entry's cell is on screen; nothing when it is not.
  std::optional<IndexPath> indexPathForSortedStyle(const Entry& entry) const;
  /// Where the cell of the item's group is on screen.
  std::optional<IndexPath> indexPathForStyle(const std::shared_ptr<FreltaStyleItem>& item) const;

  /// Makes the entry the only enabled one of its kind, or switches the kind off; in the model, the
  /// file and the table. Tells the keyboard side.
  void setStyleGroup(const Entry& group, bool enabled);
  /// Switches one item of a group, in the model only; with updateFile the table follows, and a
  /// group that changes section moves there on the main queue's next turn. Neither writes the file
  /// nor tells anyone.
  void setStyle(const std::shared_ptr<FreltaStyleItem>& item, bool enabled, bool updateFile = true);
  /// Resets the lists to the scan's result, no entry's state.
  void disableAll();

  void notifyObservers() const;
  void respring() const;

  /// Moves a row of the enabled section, on the main queue's next turn, whatever the sections
  /// named.
  void moveRowAtIndexPath(IndexPath source, IndexPath destination);
  /// Where a row that is dragged may land: in its own section only.
  IndexPath targetIndexPathForMoveFromRowAtIndexPath(IndexPath source, IndexPath proposed) const;

 protected:
  FreltaStyleLibrary() = default;
  /// A reference to this object, for deferred work to hold.
  virtual std::shared_ptr<FreltaStyleLibrary> strongReference() = 0;

 private:
  const Entries& entriesInSection(int section) const;
  void moveToSection(const Entry& group, int section);

  std::int32_t isExtras_ = FreltaStyleModeImages;
  Entries originalStylesList_;
  Entries styleList_;
  Entries sortedStyles_;
  Entries enabledStyles_;
  bool isGrouped_ = false;
  bool isAnimating_ = false;
  bool isExtensions_ = false;
  FreltaStyleTable* table_ = nullptr;
};

}  // namespace frelta
