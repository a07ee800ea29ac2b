#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "selector/FreltaEditButton.h"
#include "selector/FreltaToggleButton.h"
#include "uikit/UIImageView.h"
#include "uikit/UILabel.h"

namespace frelta {

/// A rounded card with an icon, a title, a subtitle and an enable button. Sizes are points.
class FreltaStyleContentsCell : public UIView {
 public:
  /// Builds the card at once; its height does not depend on the frame's.
  explicit FreltaStyleContentsCell(const CGRect& frame);

  static CGSize buttonSize() { return {76.0, 31.0}; }
  static double padding() { return 10.0; }
  /// How far the card lies within the view, horizontally and vertically.
  static CGSize contentViewPadding() { return {7.5, 7.5}; }
  /// The ground of cards built from now on. Nothing brings back the default, a light grey, which
  /// the next card built finds.
  static void setCustomBackgroundColor(std::optional<UIColor> color);

  // All owned by the view.
  UILabel* headerLabel() const { return headerLabel_; }
  UILabel* subtitleLabel() const { return subtitleLabel_; }
  FreltaToggleButton* enableButton() const { return enableButton_; }
  UIImageView* iconImageView() const { return iconImageView_; }
  /// The card, which holds the others.
  UIView* contentView() const { return contentView_; }
  /// Null unless one was given.
  FreltaEditButton* editButton() const { return editButton_; }
  /// Puts the button on the card, in place of the one before; null for none.
  void setEditButton(std::unique_ptr<FreltaEditButton> button);

  /// Whether room is kept for a drag handle.
  virtual bool isDraggableCell() const { return isDraggableCell_; }
  /// Lays out the buttons and labels. The flag is cleared, whatever is given: rows are not dragged.
  void setIsDraggableCell(bool draggable);

  /// The label takes the text's size, then both are laid out. No text shows as none.
  void setTitleText(const std::optional<std::string>& text);
  void setSubtitleText(const std::optional<std::string>& text);
  /// Null for none. Does not show or hide the icon's view.
  void setIconImage(std::shared_ptr<const UIImage> image);
  /// Has an icon loaded, and shows it once it is there, unless another was set or asked for
  /// meanwhile. Until then the stand-in is shown; null for none.
  using IconLoad = std::function<void(std::weak_ptr<const void> wanted,
                                      std::function<void(std::shared_ptr<const UIImage>)> done)>;
  void loadIconImage(const IconLoad& load, std::shared_ptr<const UIImage> standIn);
  /// Shows another stand-in where the icon is still awaited and none is shown.
  void setStandIn(std::shared_ptr<const UIImage> standIn);
  /// A FreltaEnabledState for the enable button.
  void updateButtonState(std::int32_t state, bool animated = true);
  /// Does nothing: the button is told apart by its state alone.
  void setEnabled(bool) {}
  /// Makes the icon that share of the card's height.
  void updateImageViewScale(float scale);
  /// Sets the labels back to back around the card's middle line, no wider than the room for them.
  void layoutLabels();
  /// Both labels take their texts' sizes, then layoutLabels().
  void fitLabels();
  void prepareForReuse() {}

  virtual void buttonTapped(UIControl&) {}
  virtual void editButtonTapped(UIControl&) {}

 private:
  void setup();
  void addCard();
  void addIcon();
  void addLabels();
  void addEnableButton();
  double cardHeight() const { return contentView_->frame().size.height; }
  void centerVertically(UIView& view) const;
  /// Where labels start beside the icon.
  float labelX() const;

  bool isDraggableCell_ = false;
  UIView* contentView_ = nullptr;
  UIImageView* iconImageView_ = nullptr;
  UILabel* headerLabel_ = nullptr;
  UILabel* subtitleLabel_ = nullptr;
  FreltaToggleButton* enableButton_ = nullptr;
  FreltaEditButton* editButton_ = nullptr;
  /// While the icon is awaited; who asked for it lets it go with the card.
  std::shared_ptr<const void> awaitedIcon_;
};

}  // namespace frelta
