#include "styles/FreltaStyleLibrary.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "device/StyleKinds.h"
#include "foundation/Log.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"
#include "settings/RefreshNotification.h"
#include "settings/Respring.h"
#include "settings/SettingsFile.h"
#include "styles/StyleScan.h"

namespace frelta {

namespace {

constexpr int kEnabledSection = 0;
constexpr int kLibrarySection = 1;

bool holds(const FreltaStyleLibrary::Entries& entries, const FreltaStyleLibrary::Entry& entry) {
  return std::ranges::find(entries, entry) != entries.end();
}

bool holdsItem(const FreltaSortedItem& entry, const std::shared_ptr<FreltaStyleItem>& item) {
  return entry.items() && std::ranges::find(*entry.items(), item) != entry.items()->end();
}

}  // namespace

void FreltaStyleLibrary::loadStyles() {
  FileManager& files = *Platform::current().fileManager;
  if (!files.directoryExistsAtPath(kThemesFolder)) files.createDirectoryAtPath(kThemesFolder);
  originalStylesList_ = stylesOfKind(isExtras_, preferencesDictionary().value_or(Dictionary()));
  disableAll();
}

std::string FreltaStyleLibrary::preferencesFilePath() const {
  return std::string(kPreferencesFolder) + "/" + std::string(kSettingsBaseName) + ".plist";
}

std::optional<Dictionary> FreltaStyleLibrary::preferencesDictionary() const {
  const std::string path = preferencesFilePath();
  std::optional<Dictionary> settings = dictionaryWithContentsOfFile(path);
  // Asked last: a file that only seems to be missing must not be replaced by an empty one.
  if (settings || Platform::current().fileManager->fileExistsAtPath(path)) return settings;
  return Dictionary();
}

void FreltaStyleLibrary::updatePreferencesFileWithPath(
    const std::optional<std::string>& path) const {
  try {
    std::optional<Dictionary> settings = preferencesDictionary();
    if (!settings) return;
    if (!path) throw std::invalid_argument("there is no path to store");
    settings->insert_or_assign(std::string(styleKind(isExtras_).enabledPathKey), *path);
    replaceReadSettings(*settings);
  } catch (const std::exception& exception) {
    freltaLog(std::string("Exception: ") + exception.what());
  }
}

bool FreltaStyleLibrary::isPathEnabled(std::string_view path) const {
  return frelta::isPathEnabled(path, isExtras_, preferencesDictionary().value_or(Dictionary()));
}

std::int32_t FreltaStyleLibrary::rankForItemAtPath(std::string_view path, bool& didFind) const {
  const Dictionary settings = preferencesDictionary().value_or(Dictionary());
  const PropertyListValue* value = valueForKey(settings, keys::kActiveMenuItems);
  if (!value || !value->array()) return -1;
  const auto found = std::ranges::find_if(*value->array(), [&](const PropertyListValue& item) {
    return item.string() && *item.string() == path;
  });
  if (found == value->array()->end()) return -1;
  didFind = true;
  return static_cast<std::int32_t>(found - value->array()->begin());
}

FreltaStyleLibrary::Entry FreltaStyleLibrary::groupForStyle(
    const std::shared_ptr<FreltaStyleItem>& item) const {
  for (const Entries* section : {&sortedStyles_, &enabledStyles_})
    for (const Entry& entry : *section)
      if (holdsItem(*entry, item)) return entry;
  return nullptr;
}

std::optional<IndexPath> FreltaStyleLibrary::indexPathForSortedStyle(const Entry& entry) const {
  if (!table_ || !entry) return std::nullopt;
  for (const auto& cell : table_->visibleCells())
    if (cell.sortedStyleItem == entry) return cell.indexPath;
  return std::nullopt;
}

std::optional<IndexPath> FreltaStyleLibrary::indexPathForStyle(
    const std::shared_ptr<FreltaStyleItem>& item) const {
  if (!table_) return std::nullopt;
  for (const auto& cell : table_->visibleCells())
    if (cell.sortedStyleItem && holdsItem(*cell.sortedStyleItem, item)) return cell.indexPath;
  return std::nullopt;
}

void FreltaStyleLibrary::setStyleGroup(const Entry& group, bool enabled) {
  for (const Entry& entry : sortedStyles_) {
    entry->setEnabledState(FreltaEnabledStateNone);
    entry->updateEnabledState();
  }
  auto* style = dynamic_cast<FreltaSortedStyle*>(group.get());
  if (style) style->setEnabledState(enabled ? FreltaEnabledStateAll : FreltaEnabledStateNone);
  if (group) group->updateEnabledState();
  if (enabled)
    updatePreferencesFileWithPath(style ? style->fullPath() : std::nullopt);
  else
    updatePreferencesFileWithPath("");
  if (table_) table_->reloadData();
  notifyObservers();
}

void FreltaStyleLibrary::setStyle(const std::shared_ptr<FreltaStyleItem>& item, bool enabled,
                                  bool updateFile) {
  if (!item) return;
  item->setIsEnabled(enabled);
  if (!updateFile) return;
  const Entry group = groupForStyle(item);
  if (!group) return;
  group->updateEnabledState();
  if (const auto path = indexPathForSortedStyle(group)) {
    table_->updateHeaderCell(*path);
    table_->updateSubCells(*path);
  }

  const bool on = group->enabledState() != FreltaEnabledStateNone;
  if (!holds(on ? sortedStyles_ : enabledStyles_, group)) return;
  Platform::current().mainQueue->async([self = strongReference(), group, on] {
    self->moveToSection(group, on ? kEnabledSection : kLibrarySection);
  });
}

void FreltaStyleLibrary::disableAll() {
  styleList_ = originalStylesList_;
  sortedStyles_ = originalStylesList_;
  enabledStyles_.clear();
}

void FreltaStyleLibrary::notifyObservers() const {
  postRefreshNotification();
}

void FreltaStyleLibrary::respring() const {
  frelta::respring();
}

void FreltaStyleLibrary::moveRowAtIndexPath(IndexPath source, IndexPath destination) {
  Platform::current().mainQueue->async([self = strongReference(), source, destination] {
    Entries entries = self->enabledStyles_;
    const Entry entry = entries.at(static_cast<std::size_t>(source.row));
    std::erase(entries, entry);
    if (destination.row < 0 || destination.row > std::ssize(entries))
      throw std::out_of_range("no row " + std::to_string(destination.row) + " to move to");

    FreltaStyleTable* table = self->table_;
    if (table) table->beginUpdates();
    entries.insert(entries.begin() + destination.row, entry);
    self->enabledStyles_ = std::move(entries);
    if (!table) return;
    table->moveRowAtIndexPath(source, destination);
    table->endUpdates();
    table->reloadSection(kEnabledSection);
  });
}

IndexPath FreltaStyleLibrary::targetIndexPathForMoveFromRowAtIndexPath(IndexPath source,
                                                                       IndexPath proposed) const {
  if (proposed.section == source.section) return proposed;
  if (proposed.section < source.section) return {source.section, 0};
  return {source.section, static_cast<int>(entriesInSection(source.section).size()) - 1};
}

const FreltaStyleLibrary::Entries& FreltaStyleLibrary::entriesInSection(int section) const {
  return section == kEnabledSection ? enabledStyles_ : sortedStyles_;
}

void FreltaStyleLibrary::moveToSection(const Entry& group, int section) {
  Entries& left = section == kEnabledSection ? sortedStyles_ : enabledStyles_;
  Entries& entered = section == kEnabledSection ? enabledStyles_ : sortedStyles_;
  const auto place = std::ranges::find(left, group);
  // A second tap may have asked for the same move before the first one's turn.
  if (place == left.end()) return;
  // Another group's move may have come first, and a group off screen has no cell to ask.
  const IndexPath from{section == kEnabledSection ? kLibrarySection : kEnabledSection,
                       static_cast<int>(place - left.begin())};
  const IndexPath to{section, 0};
  if (table_) table_->beginUpdates();
  std::erase(left, group);
  entered.insert(entered.begin(), group);
  if (!table_) return;
  table_->moveRowAtIndexPath(from, to);
  table_->endUpdates();
  table_->scrollToRowAtIndexPath(to);
}

}  // namespace frelta
