#include "uikit/UITableViewCell.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace frelta {

namespace {

constexpr double kMargin = 16;
constexpr double kVerticalMargin = 11;
constexpr double kGap = 8;
constexpr double kDisclosureWidth = 8;
constexpr double kCheckmarkWidth = 16;
constexpr double kEditingIndent = 38;
constexpr double kReorderWidth = 22;
constexpr double kSmallTextSize = 13;
constexpr double kImageMargin = 6;  // above and below
constexpr double kImageMaximumWidth = 72;
constexpr double kImageMinimumHeight = 32;
constexpr double kSubtitleGap = 2;
// A detail gives way to its title, but not below this share of the row.
constexpr double kLeastDetailShare = 0.4;

}  // namespace

UITableViewCell::UITableViewCell(UITableViewCellStyle style, std::string reuseIdentifier)
    : style_(style), reuseIdentifier_(std::move(reuseIdentifier)) {
  contentView_ = addSubview(std::make_unique<UIView>());
  textLabel_ = contentView_->addSubview(std::make_unique<UILabel>());
  detailTextLabel_ = contentView_->addSubview(std::make_unique<UILabel>());
  if (style == UITableViewCellStyle::Subtitle || style == UITableViewCellStyle::Value2) {
    UILabel* small = style == UITableViewCellStyle::Subtitle ? detailTextLabel_ : textLabel_;
    small->setFont(UIFont::systemFontOfSize(kSmallTextSize));
  }
  if (style != UITableViewCellStyle::Value2) {
    detailTextLabel_->setTextColor(UIColor::secondaryLabelColor());
  }
}

UIImageView* UITableViewCell::imageView() {
  if (!imageView_) {
    imageView_ = contentView_->addSubview(std::make_unique<UIImageView>());
    imageView_->setContentMode(UIViewContentMode::ScaleAspectFit);
  }
  return imageView_;
}

CGSize UITableViewCell::imageSize(double rowHeight) const {
  const CGSize own = imageView_ ? imageView_->sizeThatFits({}) : CGSize();
  if (!(own.width > 0 && own.height > 0)) return {};
  const double height = std::max(kImageMinimumHeight, rowHeight - 2 * kImageMargin);
  const double scale = std::min({1.0, kImageMaximumWidth / own.width, height / own.height});
  return {own.width * scale, own.height * scale};
}

double UITableViewCell::textInset(double rowHeight) const {
  const double width = imageSize(rowHeight).width;
  return width > 0 ? kMargin + width + kMargin : kMargin;
}

void UITableViewCell::setAccessoryType(UITableViewCellAccessoryType type) {
  if (type == accessoryType_) return;
  accessoryType_ = type;
  setNeedsLayout();
  didChange();
}

void UITableViewCell::setAccessoryView(std::unique_ptr<UIView> view) {
  if (accessoryView_) accessoryView_->removeFromSuperview();
  accessoryView_ = view ? addSubview(std::move(view)) : nullptr;
  setNeedsLayout();
}

void UITableViewCell::setSelectionStyle(UITableViewCellSelectionStyle style) {
  if (style == selectionStyle_) return;
  selectionStyle_ = style;
  didChange();
}

void UITableViewCell::setSelected(bool selected) {
  if (selected == selected_) return;
  selected_ = selected;
  didChange();
}

void UITableViewCell::setEditable(bool editable) {
  if (editable == editable_) return;
  editable_ = editable;
  didChange();
}

void UITableViewCell::setRowActions(UITableViewRowActions actions) {
  if (actions == rowActions_) return;
  rowActions_ = std::move(actions);
  didChange();
}

void UITableViewCell::setEditing(std::optional<UITableViewCellEditing> editing) {
  if (editing == editing_) return;
  editing_ = editing;
  if (editing_ && editing_->showsReorderControl) {
    if (!reorderControl_) {
      reorderControl_ = addSubview(std::make_unique<UITableViewCellReorderControl>(
          CGRect(0, 0, kReorderWidth, frame().size.height)));
    }
  } else if (reorderControl_) {
    std::exchange(reorderControl_, nullptr)->removeFromSuperview();
  }
  setNeedsLayout();
  didChange();
}

void UITableViewCell::setSeparatorColor(const UIColor& color) {
  if (color == separatorColor_) return;
  separatorColor_ = color;
  didChange();
}

void UITableViewCell::setGroupPosition(UITableViewCellGroupPosition position) {
  if (position == groupPosition_) return;
  groupPosition_ = position;
  didChange();
}

double UITableViewCell::separatorInset() const {
  return kMargin;
}

double UITableViewCell::leadingEdge() const {
  return editing_ && editing_->indents ? kEditingIndent : 0;
}

double UITableViewCell::trailingEdge(double width) const {
  if (reorderControl_) width -= kMargin + kReorderWidth - kGap;
  if (accessoryView_) return width - accessoryView_->frame().size.width - kGap;
  switch (accessoryType_) {
    case UITableViewCellAccessoryType::None:
      return width;
    case UITableViewCellAccessoryType::DisclosureIndicator:
      return width - kDisclosureWidth - kGap;
    case UITableViewCellAccessoryType::Checkmark:
      return width - kCheckmarkWidth - kGap;
  }
  return width;
}

UITableViewCell::TextSizes UITableViewCell::textSizes(double width) const {
  TextSizes sizes{textLabel_->sizeThatFits({width, 0}), detailTextLabel_->sizeThatFits({width, 0})};
  CGSize& text = sizes.text;
  CGSize& detail = sizes.detail;
  if (style_ == UITableViewCellStyle::Subtitle) return sizes;
  if (style_ == UITableViewCellStyle::Default || detail.width == 0) {
    detail = {};
    return sizes;
  }
  const double room = std::max(0.0, width - kGap);
  if (text.width + detail.width > room) {
    detail.width = std::min(detail.width, std::max(room - text.width, room * kLeastDetailShare));
    // What has to be narrower may need more lines.
    text.height = textLabel_->sizeThatFits({room - detail.width, 0}).height;
    text.width = std::min(text.width, room - detail.width);
    detail.height = detailTextLabel_->sizeThatFits({detail.width, 0}).height;
  }
  return sizes;
}

CGSize UITableViewCell::sizeThatFits(CGSize size) const {
  const auto [text, detail] = textSizes(
      std::max(0.0, trailingEdge(size.width) - leadingEdge() - textInset(size.height) - kMargin));
  const double height = style_ == UITableViewCellStyle::Subtitle && detail.height > 0
                            ? text.height + kSubtitleGap + detail.height
                            : std::max(text.height, detail.height);
  return {size.width, height + 2 * kVerticalMargin};
}

void UITableViewCell::layoutSubviews() {
  const CGSize size = frame().size;
  double edge = size.width;
  if (reorderControl_) {
    edge -= kMargin + kReorderWidth - kGap;
    reorderControl_->setFrame(
        {size.width - kMargin - kReorderWidth, 0, kReorderWidth, size.height});
  }
  if (accessoryView_) {
    CGRect accessory = accessoryView_->frame();
    accessory.origin.x = edge - kMargin - accessory.size.width;
    // On whole points: half ones blur the edges.
    accessory.origin.y = std::floor((size.height - accessory.size.height) / 2);
    accessoryView_->setFrame(accessory);
  }
  const double trailing = trailingEdge(size.width);
  const double width = std::max(0.0, trailing - leadingEdge());
  contentView_->setFrame({leadingEdge(), 0, width, size.height});
  if (imageView_) {
    const CGSize image = imageSize(size.height);
    imageView_->setFrame(
        {kMargin, std::floor((size.height - image.height) / 2), image.width, image.height});
  }
  const double inset = textInset(size.height);
  layoutTexts({inset, 0, std::max(0.0, width - inset - kMargin), size.height});
}

void UITableViewCell::layoutTexts(const CGRect& area) {
  const auto [text, detail] = textSizes(area.size.width);
  if (style_ == UITableViewCellStyle::Subtitle && detail.height > 0) {
    const double top = (area.size.height - text.height - kSubtitleGap - detail.height) / 2;
    textLabel_->setFrame({area.minX(), top, area.size.width, text.height});
    detailTextLabel_->setFrame(
        {area.minX(), top + text.height + kSubtitleGap, area.size.width, detail.height});
    return;
  }
  const auto centred = [&](double x, double width, double height) {
    return CGRect(x, (area.size.height - height) / 2, width, height);
  };
  if (detail.width == 0) {
    textLabel_->setFrame(centred(area.minX(), area.size.width, text.height));
    detailTextLabel_->setFrame({});
    return;
  }
  textLabel_->setFrame(centred(area.minX(), text.width, text.height));
  const double detailX = style_ == UITableViewCellStyle::Value2 ? area.minX() + text.width + kGap
                                                                : area.maxX() - detail.width;
  detailTextLabel_->setFrame(centred(detailX, detail.width, detail.height));
}

UIAccessibility UITableViewCell::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  accessibility.isElement = accessibility.role != UIAccessibility::Role::Group;
  if (accessibility.role == UIAccessibility::Role::None) {
    accessibility.role = selectionStyle_ == UITableViewCellSelectionStyle::None
                             ? UIAccessibility::Role::StaticText
                             : UIAccessibility::Role::Button;
  }
  if (accessibility.label.empty()) accessibility.label = textLabel_->text();
  if (accessibility.value.empty()) accessibility.value = detailTextLabel_->text();
  accessibility.on = accessibility.on || accessoryType_ == UITableViewCellAccessoryType::Checkmark;
  return accessibility;
}

}  // namespace frelta
