#include "preferences/PSControlTableCell.h"

#include <algorithm>
#include <utility>

namespace frelta {

namespace {

constexpr double kMargin = 16;
constexpr double kVerticalMargin = 11;
constexpr double kGap = 12;
// A label leaves the control beside it at least the other share of the row.
constexpr double kLongestLabelShare = 0.45;

}  // namespace

PSControlTableCell::PSControlTableCell(std::string reuseIdentifier,
                                       std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, std::move(reuseIdentifier), std::move(specifier)) {
}

CGSize PSControlTableCell::labelSize(double width) const {
  const double widest = std::max(0.0, width - 2 * kMargin) * kLongestLabelShare;
  CGSize size = textLabel()->sizeThatFits({widest, 0});
  size.width = std::min(size.width, widest);
  return size;
}

std::optional<double> PSControlTableCell::preferredHeightForWidth(double width) const {
  const auto height = PSTableCell::preferredHeightForWidth(width);
  if (specifier()->propertyForKey("height") || !height) return height;
  return std::max(*height, labelSize(width).height + 2 * kVerticalMargin);
}

void PSControlTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  const CGSize size = frame().size;
  const CGSize label = labelSize(size.width);
  textLabel()->setFrame({kMargin, (size.height - label.height) / 2, label.width, label.height});
  const double x = kMargin + label.width + (label.width > 0 ? kGap : 0);
  const double width = std::max(0.0, size.width - kMargin - x);
  const double height = controlView().sizeThatFits({width, size.height}).height;
  controlView().setFrame({x, (size.height - height) / 2, width, height});
}

}  // namespace frelta
