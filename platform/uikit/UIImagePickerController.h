#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "uikit/PicturePickerService.h"
#include "uikit/UIImagePickerControllerView.h"
#include "uikit/UIViewController.h"

namespace frelta {

class UIImagePickerController;

/// The key of the picture as it was chosen, in what a picker hands over.
inline constexpr std::string_view UIImagePickerControllerOriginalImage =
    "UIImagePickerControllerOriginalImage";
using UIImagePickerControllerInfo = std::map<std::string, std::shared_ptr<const UIImage>>;

enum class UIImagePickerControllerSourceType { PhotoLibrary = 0, Camera = 1, SavedPhotosAlbum = 2 };

/// Learns what was picked, and then dismisses the picker.
class UIImagePickerControllerDelegate {
 public:
  virtual ~UIImagePickerControllerDelegate() = default;
  /// Called once. Without a picture when none was chosen, or none that can be shown.
  virtual void didFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                             const UIImagePickerControllerInfo& info) = 0;
};

/// Asks for a picture when it is presented. While the chosen one is read, and until it is
/// dismissed, it shows that something is going on. Tells the user why a file cannot be taken.
class UIImagePickerController : public UIViewController {
 public:
  /// There is no camera; the other two are the user's files.
  static bool isSourceTypeAvailable(UIImagePickerControllerSourceType type);

  UIImagePickerControllerSourceType sourceType() const { return sourceType_; }
  void setSourceType(UIImagePickerControllerSourceType type) { sourceType_ = type; }
  /// Not owned; null for none, when the picker dismisses itself.
  UIImagePickerControllerDelegate* delegate() const { return delegate_; }
  void setDelegate(UIImagePickerControllerDelegate* delegate) { delegate_ = delegate; }

  /// Takes the picker away. What was presented over it meanwhile stays: the user, who was with the
  /// desktop's dialogue, has not answered it.
  void dismissItselfAnimated(bool animated);

  /// What the Escape key does: no picture is picked.
  void userDidCancel();

  void viewDidAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;

 protected:
  std::unique_ptr<UIView> loadView() override;

 private:
  void finish(const PicturePickerService::Result& result);
  void deliver(const UIImagePickerControllerInfo& info);

  UIImagePickerControllerSourceType sourceType_ = UIImagePickerControllerSourceType::PhotoLibrary;
  UIImagePickerControllerDelegate* delegate_ = nullptr;
  UIImagePickerControllerView* cover_ = nullptr;  // the view
  bool asking_ = false;
};

}  // namespace frelta
