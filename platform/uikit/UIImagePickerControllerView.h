#pragma once

#include "uikit/UIView.h"

namespace frelta {

class UIImagePickerController;

/// Lies over the whole window while a picture is picked, so that nothing below can be used.
class UIImagePickerControllerView : public UIView {
 public:
  /// The controller outlives its view.
  explicit UIImagePickerControllerView(UIImagePickerController& controller)
      : controller_(controller) {}

  UIImagePickerController& controller() const { return controller_; }
  /// Whether to show that a picture is being read.
  bool isBusy() const { return busy_; }
  void setBusy(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    didChange();
  }

 private:
  UIImagePickerController& controller_;
  bool busy_ = false;
};

}  // namespace frelta
