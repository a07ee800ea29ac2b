#pragma once

#include <QObject>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "uikit/IndexPath.h"
#include "uikit/UITableView.h"
#include "uikit/UITableViewCell.h"

class QQuickItem;

namespace frelta {

class QuickWindow;

/// Gives the keyboard a place on the page in front when it has none: the row that had it there
/// before, also when that row got another cell meanwhile, or the page itself, which tells assistive
/// technology that it has opened. What is presented over the pages looks after itself.
class FocusKeeper : public QObject {
 public:
  /// Belongs to the window.
  explicit FocusKeeper(QuickWindow& window);

 private:
  /// Where the keyboard was in a table.
  struct Place {
    std::weak_ptr<const void> table;
    const UITableView* address;
    std::string identifier;
    IndexPath path;
    Qt::FocusReason reason;
  };

  void focusMoved();
  void giveFocus();
  /// The table of the page in front; null where there is none, or something is presented.
  UITableView* tableInFront() const;
  std::optional<Place> placeIn(const UITableView& table);
  /// The item that shows the row of the place now; null while it is out of sight.
  QQuickItem* itemAt(const Place& place, const UITableView& table) const;

  QuickWindow& window_;
  std::vector<Place> places_;  // at most one of each table
};

}  // namespace frelta
