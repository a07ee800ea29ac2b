#include "pages/FreltaFooterCell.h"

#include <string>
#include <utility>

#include "device/Paths.h"
#include "settings/TarnoPackage.h"

namespace frelta {

namespace {

constexpr double kRowHeight = 25;
constexpr double kLabelHeight = 15;
constexpr double kTextSize = 12;

std::string notice() {
  const auto package = TarnoPackage::packageWithIdentifier(std::string(kPackageIdentifier));
  // "(null)" is how the platform's formats write an object that is not there.
  return "© 2026 Tarno. Frelta package: " + package->version().value_or("(null)");
}

}  // namespace

std::unique_ptr<FreltaFooterCell> FreltaFooterCell::initWithSpecifier(
    std::shared_ptr<PSSpecifier> specifier) {
  return std::unique_ptr<FreltaFooterCell>(new FreltaFooterCell(std::move(specifier)));
}

FreltaFooterCell::FreltaFooterCell(std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, "Cell", std::move(specifier)) {
  setBackgroundColor(UIColor::clearColor());
  setSelectionStyle(UITableViewCellSelectionStyle::None);
  auto label = std::make_unique<UILabel>(CGRect(0, 0, bounds().size.width, kLabelHeight));
  label->setNumberOfLines(1);
  label->setFont(UIFont::systemFontOfSize(kTextSize));
  label->setText(notice());
  label->setBackgroundColor(UIColor::clearColor());
  label->setTextColor(UIColor::grayColor());
  label->setTextAlignment(NSTextAlignment::Center);
  label->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  mainTitleLabel_ = addSubview(std::move(label));
  setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
}

std::optional<double> FreltaFooterCell::preferredHeightForWidth(double) const {
  return kRowHeight;
}

void FreltaFooterCell::refreshCellContents() {}

UIAccessibility FreltaFooterCell::accessibility() const {
  return {.isElement = true,
          .role = UIAccessibility::Role::StaticText,
          .label = mainTitleLabel_->text()};
}

}  // namespace frelta
