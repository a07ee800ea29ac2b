#include "quick/PickerNode.h"

#include "quick/EventGuard.h"
#include "quick/Fonts.h"

namespace frelta {

void PickerNode::syncContents() {
  busy_ = viewAs<UIImagePickerControllerView>(*this)->isBusy();
  font_ = qtFont(UIFont());
}

void PickerNode::cancel() {
  if (!view()) return;
  guardEvent([this] { viewAs<UIImagePickerControllerView>(*this)->controller().userDidCancel(); });
}

}  // namespace frelta
