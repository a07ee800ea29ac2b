#include "preferences/PSSegmentTableCell.h"

#include <utility>

namespace frelta {

namespace {
constexpr double kMargin = 16;
// Where the titles do not fit otherwise.
constexpr double kNarrowMargin = 6;
}  // namespace

PSSegmentTableCell::PSSegmentTableCell(std::string reuseIdentifier,
                                       std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, std::move(reuseIdentifier), std::move(specifier)) {
  replaceControl({});
}

void PSSegmentTableCell::replaceControl(std::vector<std::string> titles) {
  if (control_) control_->removeFromSuperview();
  control_ = addSubview(std::make_unique<UISegmentedControl>(std::move(titles)));
  control_->addTarget(
      this, "controlChanged",
      [this](UIControl&) {
        const auto index = static_cast<std::size_t>(control_->selectedSegmentIndex());
        if (index < values_.size()) writeValue(values_[index].value);
      },
      UIControlEventValueChanged);
}

void PSSegmentTableCell::refreshCellContents() {
  PSTableCell::refreshCellContents();
  std::string label = specifier()->name();
  if (label.empty() && specifier()->group()) label = specifier()->group()->name();
  textLabel()->setText({});

  values_ = validValues(*specifier());
  std::vector<std::string> titles;
  for (const PSValidValue& value : values_) titles.push_back(value.title);
  if (titles != control_->titles()) replaceControl(std::move(titles));
  control_->setAccessibility({.label = label});
  const auto index = indexOfValidValue(values_, readValue());
  control_->setSelectedSegmentIndex(index ? static_cast<int>(*index)
                                          : UISegmentedControl::kNoSegment);
}

void PSSegmentTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  const CGSize size = frame().size;
  const bool fits = control_->sizeThatFits(size).width <= size.width - 2 * kMargin;
  const double margin = fits ? kMargin : kNarrowMargin;
  constexpr double kHeight = UISegmentedControl::kHeight;
  control_->setFrame({margin, (size.height - kHeight) / 2, size.width - 2 * margin, kHeight});
}

}  // namespace frelta
