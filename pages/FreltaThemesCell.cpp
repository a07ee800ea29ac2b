#include "pages/FreltaThemesCell.h"

#include <utility>

namespace frelta {

namespace {
constexpr float kEntryHeight = 50;
}  // namespace

std::unique_ptr<FreltaThemesCell> FreltaThemesCell::initWithSpecifier(
    std::shared_ptr<PSSpecifier> specifier) {
  return std::unique_ptr<FreltaThemesCell>(new FreltaThemesCell(std::move(specifier)));
}

FreltaThemesCell::FreltaThemesCell(std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, "Cell", std::move(specifier)) {
  setBackgroundColor(UIColor::colorWithRed(0, 0, 1, 1));
}

std::optional<double> FreltaThemesCell::preferredHeightForWidth(double) const {
  return static_cast<float>(themes_.size()) * kEntryHeight;
}

}  // namespace frelta
