#pragma once

#include <memory>
#include <optional>

#include "preferences/PSTableCell.h"

namespace frelta {

/// The line at the end of the page: who made it, and which version is installed. Asks the package
/// manager when it is made.
class FreltaFooterCell : public PSTableCell {
 public:
  /// Throws LaunchFailure when the package manager cannot be asked.
  static std::unique_ptr<FreltaFooterCell> initWithSpecifier(
      std::shared_ptr<PSSpecifier> specifier);

  UILabel* mainTitleLabel() const { return mainTitleLabel_; }

  /// 25 points.
  std::optional<double> preferredHeightForWidth(double width) const override;
  /// The line is all there is to show.
  void refreshCellContents() override;
  UIAccessibility accessibility() const override;

 private:
  explicit FreltaFooterCell(std::shared_ptr<PSSpecifier> specifier);

  UILabel* mainTitleLabel_;  // owned as a subview
};

}  // namespace frelta
