#pragma once

#include <memory>
#include <optional>

#include "graphics/UIImage.h"
#include "preferences/PSTableCell.h"
#include "uikit/UIImageView.h"

namespace frelta {

/// The top of the page: the icon, the product's name and who made it. It draws past its row.
class FreltaBannerCell : public PSTableCell {
 public:
  static std::unique_ptr<FreltaBannerCell> initWithSpecifier(
      std::shared_ptr<PSSpecifier> specifier);

  UILabel* mainTitleLabel() const { return mainTitleLabel_; }
  UILabel* subTitleLabel() const { return subTitleLabel_; }
  /// The icon as it was loaded; null when there is none, and until it is there.
  const std::shared_ptr<const UIImage>& unmaskedImage() const { return unmaskedImage_; }
  UIImageView* bannerView() const { return bannerView_; }

  /// The image with its corners rounded, drawn at the main screen's scale; the radius in points.
  /// The image itself for radius 0, null for none.
  static std::shared_ptr<const UIImage> roundedRectImageFromImage(
      const std::shared_ptr<const UIImage>& image, double radius);

  /// 150 points, although the frame is higher.
  std::optional<double> preferredHeightForWidth(double width) const override;
  /// In a superview: all its width from its origin, 195 points high.
  CGRect frame() const override;
  /// Takes the frame above, whatever is asked.
  void setFrame(const CGRect& frame) override;
  void didMoveToSuperview() override;
  /// Nothing of the banner comes from the row's description.
  void refreshCellContents() override;
  UIAccessibility accessibility() const override;

 private:
  struct Icon {
    std::shared_ptr<const UIImage> unmasked;
    std::shared_ptr<const UIImage> rounded;
  };

  /// Touches nothing of the main thread's.
  static Icon iconAtScale(double scale);
  /// The one that was last shown: a page that is loaded anew has it from the start.
  static Icon& lastIcon();
  void loadIcon();
  void showIcon(const Icon& icon);
  explicit FreltaBannerCell(std::shared_ptr<PSSpecifier> specifier);
  /// A centred line at that height, as wide as the cell.
  std::unique_ptr<UILabel> makeLabel(double top, double fontSize, std::string text) const;

  // Owned as subviews.
  UILabel* mainTitleLabel_;
  UILabel* subTitleLabel_;
  UIImageView* bannerView_;
  std::shared_ptr<const UIImage> unmaskedImage_;
  /// While the icon is awaited.
  std::shared_ptr<const void> wanted_;
  // Reserved: set by nobody.
  UILabel* subSubTitleLabel_ = nullptr;
  std::shared_ptr<void> prevRadiusRequest_;
  std::shared_ptr<void> prevScaleRequest_;
};

}  // namespace frelta
