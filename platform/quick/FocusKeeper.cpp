#include "quick/FocusKeeper.h"

#include <algorithm>

#include "quick/QuickWindow.h"
#include "quick/ViewSearch.h"

namespace frelta {

namespace {

Qt::FocusReason reasonOf(const QQuickItem& item) {
  const QVariant reason = item.property("focusReason");
  return reason.isValid() ? static_cast<Qt::FocusReason>(reason.toInt()) : Qt::OtherFocusReason;
}

}  // namespace

FocusKeeper::FocusKeeper(QuickWindow& window) : QObject(&window), window_(window) {
  connect(&window, &QQuickWindow::activeFocusItemChanged, this, &FocusKeeper::focusMoved);
  // The items of a page that comes are there after the first frame.
  connect(&window, &QQuickWindow::afterAnimating, this, &FocusKeeper::giveFocus);
  // Queued: the window itself gives back what it can.
  connect(&window, &QWindow::activeChanged, this, &FocusKeeper::giveFocus, Qt::QueuedConnection);
}

void FocusKeeper::focusMoved() {
  const QQuickItem* item = window_.activeFocusItem();
  UIView* view = viewOf(item);
  while (view && !dynamic_cast<UITableViewCell*>(view)) view = view->superview();
  if (!view) return;
  const auto& cell = static_cast<const UITableViewCell&>(*view);
  auto* table = dynamic_cast<UITableView*>(cell.superview());
  const auto path = table ? table->indexPathForCell(cell) : std::nullopt;
  if (!path) return;
  std::erase_if(
      places_, [&](const Place& place) { return place.table.expired() || place.address == table; });
  places_.push_back(
      {table->lifetime(), table, cell.accessibilityIdentifier(), *path, reasonOf(*item)});
}

UITableView* FocusKeeper::tableInFront() const {
  const auto layers = window_.uiWindow().subviews();
  return layers.size() == 1 ? frontTable(*layers.front()) : nullptr;
}

std::optional<FocusKeeper::Place> FocusKeeper::placeIn(const UITableView& table) {
  const auto found = std::ranges::find_if(places_, [&](const Place& place) {
    return place.address == &table && !place.table.expired();
  });
  return found == places_.end() ? std::nullopt : std::optional(*found);
}

QQuickItem* FocusKeeper::itemAt(const Place& place, const UITableView& table) const {
  const auto cells = table.visibleCells();
  const auto named = std::ranges::find_if(cells, [&](const UITableViewCell* cell) {
    return !place.identifier.empty() && cell->accessibilityIdentifier() == place.identifier;
  });
  const UITableViewCell* cell =
      named != cells.end() ? *named : table.cellForRowAtIndexPath(place.path);
  QQuickItem* item = cell ? window_.itemFor(*cell) : nullptr;
  return item && item->activeFocusOnTab() ? item : nullptr;
}

void FocusKeeper::giveFocus() {
  // Another window has it, and this one gives it back to whatever had it.
  if (!window_.isActive()) return;
  const QQuickItem* holder = window_.activeFocusItem();
  // The button that led back here may have it and be hidden now.
  if (holder && holder != window_.contentItem() && holder->isVisible()) return;
  UITableView* table = tableInFront();
  if (!table) return;
  const auto place = placeIn(*table);
  QQuickItem* row = place ? itemAt(*place, *table) : nullptr;
  if (row) {
    // Whoever has scrolled away from the row since is not taken back to it.
    const CGPoint offset = table->contentOffset();
    row->forceActiveFocus(window_.isUsedByKeys() ? Qt::TabFocusReason : place->reason);
    table->setContentOffset(offset);
  } else if (QQuickItem* page = window_.itemFor(*table)) {
    page->forceActiveFocus(Qt::OtherFocusReason);
  }
}

}  // namespace frelta
