#pragma once

#include <QQuickItem>

#include "uikit/UITableView.h"

namespace frelta {

/// The view that the item shows, or is a part of what shows; null for none.
UIView* viewOf(const QQuickItem* item);

/// The table in front among the view and those in it; null when none is shown.
UITableView* frontTable(UIView& view);

}  // namespace frelta
