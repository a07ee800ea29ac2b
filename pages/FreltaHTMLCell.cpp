#include "pages/FreltaHTMLCell.h"

#include <utility>

namespace frelta {

namespace {
constexpr float kEntryHeight = 50;
}  // namespace

std::unique_ptr<FreltaHTMLCell> FreltaHTMLCell::initWithSpecifier(
    std::shared_ptr<PSSpecifier> specifier) {
  return std::unique_ptr<FreltaHTMLCell>(new FreltaHTMLCell(std::move(specifier)));
}

FreltaHTMLCell::FreltaHTMLCell(std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, "Cell", std::move(specifier)) {
  setBackgroundColor(UIColor::colorWithRed(0, 1, 0, 1));
}

std::optional<double> FreltaHTMLCell::preferredHeightForWidth(double) const {
  return static_cast<float>(htmlThemes_.size()) * kEntryHeight;
}

}  // namespace frelta
