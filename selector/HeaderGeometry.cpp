#include "selector/HeaderGeometry.h"

#include "selector/FreltaStyleContentsCell.h"

namespace frelta {

namespace {

double padding() {
  return FreltaStyleContentsCell::padding();
}

double buttonWidth() {
  return FreltaStyleContentsCell::buttonSize().width;
}

}  // namespace

HeaderGeometry HeaderGeometry::collapsed(double cardWidth, const CGRect& icon, bool isDraggable) {
  const double besideIcon = icon.minX() + icon.size.width + padding();
  HeaderGeometry geometry = expanded(cardWidth, isDraggable);
  geometry.labelX = static_cast<float>(besideIcon);
  geometry.labelWidth = static_cast<float>(cardWidth - besideIcon - 4 * padding() - buttonWidth());
  if (isDraggable) {
    geometry.buttonX -= kHandleRoom;
    geometry.labelWidth -= kDraggableLabelInset;
  }
  return geometry;
}

HeaderGeometry HeaderGeometry::expanded(double cardWidth, bool isDraggable) {
  HeaderGeometry geometry{static_cast<float>(cardWidth - buttonWidth() - padding()),
                          static_cast<float>(padding()),
                          static_cast<float>(cardWidth - 3 * padding() - buttonWidth())};
  if (isDraggable) geometry.labelWidth -= kDraggableLabelInset;
  return geometry;
}

}  // namespace frelta
