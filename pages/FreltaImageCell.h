#pragma once

#include <memory>
#include <optional>
#include <string>

#include "foundation/PropertyListValue.h"
#include "preferences/PSTableCell.h"
#include "uikit/UIImagePickerController.h"
#include "uikit/UIImageView.h"

namespace frelta {

/// The row of the background picture: shows the one that is set and lets the user pick another.
class FreltaImageCell : public PSTableCell, public UIImagePickerControllerDelegate {
 public:
  FreltaImageCell(UITableViewCellStyle style, std::string reuseIdentifier,
                  std::shared_ptr<PSSpecifier> specifier);
  ~FreltaImageCell() override;

  /// What a tap on the row does: openImagePicker(), of this cell.
  PSSpecifier::Action action();
  PSSpecifier::Action cellAction() override { return action(); }
  FreltaImageCell& target() { return *this; }
  FreltaImageCell& cellTarget() { return *this; }

  void didMoveToSuperview() override;

  /// Presents a picker from the current root page. Nothing happens without pictures to pick from or
  /// without a root page.
  void openImagePicker();
  /// Stores the picture, if there is one, and tells the keyboard side in any case.
  void didFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                     const UIImagePickerControllerInfo& info) override;

  /// Shows the image before the row's label.
  void setCurrentImage(std::shared_ptr<const UIImage> image);
  /// Shows the picture that the settings file names, past the manager's cache, once it is read, and
  /// meanwhile what was last known of it. What is shown stays when none is named, or it cannot be
  /// read.
  void loadImageFromDict();

  /// Only kept.
  const std::optional<Dictionary>& options() const { return options_; }
  void setOptions(std::optional<Dictionary> options) { options_ = std::move(options); }

 private:
  void showImage(std::shared_ptr<const UIImage> image);

  // Reserved: set by nobody.
  UIImageView* imagePreviewView_ = nullptr;
  UILabel* cellLabel_ = nullptr;
  std::optional<Dictionary> options_;
  /// The picker that is open, if any.
  std::weak_ptr<UIImagePickerController> picker_;
  /// While a picture is awaited.
  std::shared_ptr<const void> wanted_;
  /// What stays when it cannot be read.
  std::shared_ptr<const UIImage> shownBefore_;
  /// Gone when the cell is.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace frelta
