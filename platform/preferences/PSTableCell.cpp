#include "preferences/PSTableCell.h"

#include <algorithm>
#include <utility>

#include "preferences/PSListController.h"
#include "uikit/UITableView.h"

namespace frelta {

PSTableCell::PSTableCell(UITableViewCellStyle style, std::string reuseIdentifier,
                         std::shared_ptr<PSSpecifier> specifier)
    : UITableViewCell(style, std::move(reuseIdentifier)), specifier_(std::move(specifier)) {
  // A label that is too long for its row wraps, and the row grows.
  textLabel()->setNumberOfLines(0);
  setAccessibilityIdentifier(specifier_->identifier());
}

void PSTableCell::setSpecifier(std::shared_ptr<PSSpecifier> specifier) {
  specifier_ = std::move(specifier);
  setAccessibilityIdentifier(specifier_->identifier());
}

void PSTableCell::refreshCellContents() {
  const bool isPressable = specifier_->isPressable() || cellAction();
  const bool leadsSomewhere = isPressable && (specifier_->cellType() == PSCellType::PSLinkCell ||
                                              specifier_->cellType() == PSCellType::PSLinkListCell);
  textLabel()->setText(specifier_->name());
  setAccessoryType(leadsSomewhere ? UITableViewCellAccessoryType::DisclosureIndicator
                                  : UITableViewCellAccessoryType::None);
  setSelectionStyle(isPressable ? UITableViewCellSelectionStyle::Default
                                : UITableViewCellSelectionStyle::None);
  setNeedsLayout();
}

std::optional<double> PSTableCell::preferredHeightForWidth(double width) const {
  if (const auto height = specifier_->pointsForKey("height")) return height;
  return std::max(UITableView::kDefaultRowHeight, sizeThatFits({width, 0}).height);
}

std::optional<PropertyListValue> PSTableCell::readValue() const {
  const std::shared_ptr<PSSpecifier> specifier = specifier_;
  PSListController* page = specifier->target();
  return page ? page->readPreferenceValue(*specifier) : std::nullopt;
}

void PSTableCell::writeValue(PropertyListValue value) {
  const std::shared_ptr<PSSpecifier> specifier = specifier_;
  if (PSListController* page = specifier->target()) {
    page->setPreferenceValue(std::move(value), specifier.get());
  }
}

}  // namespace frelta
