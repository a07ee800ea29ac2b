#include <memory>
#include <typeinfo>
#include <utility>

#include "foundation/Platform.h"
#include "selector/FreltaStyleCell.h"
#include "selector/FreltaStyleSubCell.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "styles/FreltaSortedStyle.h"
#include "uikit/UITableViewCellReorderControl.h"

// How a group opens and closes.
namespace frelta {

namespace {

constexpr float kSeconds = 0.2F;
/// The handle waits a little longer than the animation.
constexpr float kHandleDelay = 1.25F;
constexpr double kCornerRadius = 15;
constexpr double kSubCellTitleSize = 18;

/// Of the first of the cell's own subviews that is one; null for none.
UIView* dragHandleOf(const UIView& cell) {
  for (const auto& owner : cell.subviews()) {
    UIView& view = *owner;
    if (typeid(view) == typeid(UITableViewCellReorderControl)) return &view;
  }
  return nullptr;
}

/// Rounds only those corners of a card.
CAShapeLayer cornerMask(const UIView& card, unsigned corners) {
  return {card.bounds(), UIBezierPath::bezierPathWithRoundedRect(card.bounds(), corners,
                                                                 {kCornerRadius, kCornerRadius})};
}

void place(UIView& view, float x, float width) {
  const CGRect before = view.frame();
  view.setFrame({x, before.minY(), width, before.size.height});
}

}  // namespace

void FreltaStyleCell::setSubCellsHidden(bool hidden, bool animated) {
  const bool hasItems =
      sortedStyleItem_ && sortedStyleItem_->items() && !sortedStyleItem_->items()->empty();
  if (isGrouped_ && !hidden && !subCellsView_ && hasItems) addSubCells();
  subCellsHidden_ = hidden;
  if (!headerView_) return;
  const float seconds = animated ? kSeconds : 0;
  if (UIView* handle = dragHandleOf(*this)) {
    if (hidden)
      showHandleLater(seconds * kHandleDelay);
    else
      handle->setHidden(true);
  }
  shapeHeaderCard(hidden);
  animateHeader(hidden, seconds);
  animateSubCells(hidden, seconds);
}

void FreltaStyleCell::addSubCells() {
  const CGRect card = headerView_->contentView()->frame();
  const auto& items = *sortedStyleItem_->items();
  const double height = FreltaStyleSubCell::cellHeight();
  const double padding = FreltaStyleContentsCell::padding();
  auto container = std::make_unique<UIView>(
      CGRect(0, card.size.height, card.size.width, height * static_cast<double>(items.size())));
  container->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  subCellsView_ = addSubview(std::move(container));
  for (std::size_t i = 0; i < items.size(); ++i) {
    const auto place = static_cast<double>(i);
    const auto y = static_cast<float>(height * place - padding * place);
    auto row = std::make_unique<FreltaStyleSubCell>(CGRect(0, y, frame().size.width, height));
    row->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    fillSubCell(*row, items[i]);
    subCellsView_->addSubview(std::move(row));
  }
  roundLastSubCell();
}

void FreltaStyleCell::fillSubCell(FreltaStyleSubCell& row,
                                  const std::shared_ptr<FreltaStyleItem>& item) const {
  FreltaStyleCellHeaderCell& view = *row.contentView();
  view.setIsDraggableCell(false);
  UIFont font = view.headerLabel()->font();
  font.pointSize = kSubCellTitleSize;
  view.headerLabel()->setFont(font);
  row.setStyleItem(item);
  // The identifier is what stays: the full title is told by a long press.
  view.setTitleText(item->fulltitle());
  view.setTitleText(item->identifier());

  const auto style = std::dynamic_pointer_cast<FreltaSortedStyle>(sortedStyleItem_);
  const auto selector = FreltaThemeSelectorViewController::current();
  view.loadIconImage(
      [&](const std::weak_ptr<const void>& wanted, const IconHandler& done) {
        item->loadIcon(wanted, [style, wanted, done](std::shared_ptr<const UIImage> icon) {
          if (icon || !style)
            done(std::move(icon));
          else
            style->loadStyleLogo(wanted, done);
        });
      },
      selector ? selector->iconStandIns().placeholder() : nullptr);
  view.iconImageView()->setHidden(false);

  UIView& card = *view.contentView();
  card.setCornerRadius(0);
  FreltaToggleButton& button = *view.enableButton();
  button.setCenter({button.center().x, card.frame().size.height / 2});
  view.fitLabels();
}

void FreltaStyleCell::roundLastSubCell() {
  const auto& last = static_cast<const FreltaStyleSubCell&>(*subCellsView_->subviews().back());
  UIView& card = *last.contentView()->contentView();
  card.setMaskLayer(cornerMask(card, UIRectCornerBottomLeft | UIRectCornerBottomRight));
}

void FreltaStyleCell::showHandleLater(float seconds) {
  Platform::current().mainQueue->after(seconds, [this, cell = lifetime()] {
    UIView* handle = cell.expired() ? nullptr : dragHandleOf(*this);
    if (handle) handle->setHidden(false);
  });
}

void FreltaStyleCell::shapeHeaderCard(bool hidden) {
  UIView& card = *headerView_->contentView();
  if (hidden) {
    headerView_->iconImageView()->setAlpha(0);
    headerView_->iconImageView()->setHidden(false);
    card.setMaskLayer(std::nullopt);
    card.setCornerRadius(kCornerRadius);
  } else if (isGrouped_) {
    if (subCellsView_) {
      subCellsView_->setAlpha(0);
      subCellsView_->setHidden(false);
    }
    card.setCornerRadius(0);
    card.setMaskLayer(cornerMask(card, UIRectCornerTopLeft | UIRectCornerTopRight));
  }
}

void FreltaStyleCell::animateHeader(bool hidden, float seconds) {
  FreltaStyleCellHeaderCell& header = *headerView_;
  const double width = header.contentView()->frame().size.width;
  const bool isDraggable = header.isDraggableCell();
  const HeaderGeometry target =
      hidden ? HeaderGeometry::collapsed(width, header.iconImageView()->frame(), isDraggable)
             : HeaderGeometry::expanded(width, isDraggable);
  UIView* handle = dragHandleOf(*this);
  const CGRect handleFrame = handle ? handle->frame() : CGRect();
  animateWithDuration(
      seconds,
      [&] {
        header.iconImageView()->setAlpha(hidden ? 1 : 0);
        place(*header.headerLabel(), target.labelX, target.labelWidth);
        place(*header.subtitleLabel(), target.labelX, target.labelWidth);
        place(*header.enableButton(), target.buttonX,
              static_cast<float>(header.enableButton()->frame().size.width));
        if (handle) handle->setFrame(handleFrame);
      },
      [this, hidden, cell = lifetime()](bool finished) {
        if (finished && !cell.expired()) headerView_->iconImageView()->setHidden(!hidden);
      });
}

void FreltaStyleCell::animateSubCells(bool hidden, float seconds) {
  // The container may be gone before its animation is over, and another be there.
  const auto container = subCellsView_ ? subCellsView_->lifetime() : std::weak_ptr<const void>();
  animateWithDuration(
      seconds,
      [&] {
        if (subCellsView_) subCellsView_->setAlpha(isGrouped_ && !hidden ? 1 : 0);
      },
      [view = subCellsView_, hidden, container](bool finished) {
        if (finished && !container.expired()) view->setHidden(hidden);
      });
}

}  // namespace frelta
