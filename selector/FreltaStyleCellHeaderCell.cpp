#include "selector/FreltaStyleCellHeaderCell.h"

#include "selector/FullPathLog.h"
#include "styles/CurrentSelector.h"

namespace frelta {

void FreltaStyleCellHeaderCell::updateButtonState() {
  if (styleGroup_) updateButtonState(styleGroup_->enabledState());
}

void FreltaStyleCellHeaderCell::buttonTapped(UIControl&) {
  const auto selector = currentSelector();
  if (selector && selector->isAnimating()) return;
  // Kept: the selector may have the table fill this row anew.
  const auto group = styleGroup_;
  if (group) {
    const bool enable = group->enabledState() == FreltaEnabledStateNone;
    group->setEnabledState(enable ? FreltaEnabledStateAll : FreltaEnabledStateNone);
    if (selector) selector->setStyleGroup(group, enable);
  }
  updateButtonState(group ? group->enabledState() : FreltaEnabledStateNone);
}

void FreltaStyleCellHeaderCell::editButtonTapped(UIControl&) {
  logFullPath(styleGroup_.get());
}

}  // namespace frelta
