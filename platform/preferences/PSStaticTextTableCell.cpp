#include "preferences/PSStaticTextTableCell.h"

#include <utility>

namespace frelta {

namespace {
constexpr double kTextSize = 15;  // the platform's subheadline size
}  // namespace

PSStaticTextTableCell::PSStaticTextTableCell(std::string reuseIdentifier,
                                             std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, std::move(reuseIdentifier), std::move(specifier)) {
  textLabel()->setFont(UIFont::systemFontOfSize(kTextSize));
  textLabel()->setTextColor(UIColor::secondaryLabelColor());
}

}  // namespace frelta
