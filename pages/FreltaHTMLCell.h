#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "preferences/PSTableCell.h"

namespace frelta {

/// Holds the HTML themes' place until the row lists them: a block of one colour as high as a fixed
/// list. The bundle's page has a plain row there, which leads to the style selector.
class FreltaHTMLCell : public PSTableCell {
 public:
  static std::unique_ptr<FreltaHTMLCell> initWithSpecifier(std::shared_ptr<PSSpecifier> specifier);

  const std::vector<std::string>& htmlThemes() const { return htmlThemes_; }
  void setHtmlThemes(std::vector<std::string> themes) { htmlThemes_ = std::move(themes); }

  /// 50 points for each entry.
  std::optional<double> preferredHeightForWidth(double width) const override;

 private:
  explicit FreltaHTMLCell(std::shared_ptr<PSSpecifier> specifier);

  std::vector<std::string> htmlThemes_{"Egg", "egg2"};
};

}  // namespace frelta
