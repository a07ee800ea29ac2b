#include "uikit/UIImagePickerController.h"

#include <utility>

#include "uikit/UIAlertController.h"
#include "uikit/UIKitServices.h"
#include "uikit/UIWindow.h"

namespace frelta {

namespace {

PicturePickerService* service() {
  return UIKitServices::current().pictures;
}

}  // namespace

bool UIImagePickerController::isSourceTypeAvailable(UIImagePickerControllerSourceType type) {
  return type != UIImagePickerControllerSourceType::Camera && service() && service()->isAvailable();
}

std::unique_ptr<UIView> UIImagePickerController::loadView() {
  auto view = std::make_unique<UIImagePickerControllerView>(*this);
  cover_ = view.get();
  return view;
}

void UIImagePickerController::viewDidAppear(bool) {
  if (asking_ || !service()) return;
  asking_ = true;
  const auto self = std::static_pointer_cast<UIImagePickerController>(shared_from_this());
  const std::weak_ptr<UIImagePickerController> picker = self;
  service()->pickPicture({.didChoose =
                              [picker] {
                                if (const auto alive = picker.lock()) alive->cover_->setBusy(true);
                              },
                          .didFinish =
                              [picker](const PicturePickerService::Result& result) {
                                if (const auto alive = picker.lock()) alive->finish(result);
                              }});
}

void UIImagePickerController::viewWillDisappear(bool) {
  if (std::exchange(asking_, false) && service()) service()->cancel();
}

void UIImagePickerController::userDidCancel() {
  if (!std::exchange(asking_, false)) return;
  service()->cancel();
  deliver({});
}

void UIImagePickerController::finish(const PicturePickerService::Result& result) {
  asking_ = false;
  if (result.picture) {
    deliver({{std::string(UIImagePickerControllerOriginalImage), result.picture}});
  } else if (result.failure.empty()) {
    deliver({});
  } else {
    cover_->setBusy(false);
    const auto alert =
        UIAlertController::alertControllerWithTitle("Cannot Open the Picture", result.failure);
    alert->addAction(UIAlertAction::actionWithTitle("OK", UIAlertActionStyle::Default,
                                                    [this](UIAlertAction&) { deliver({}); }));
    UIViewController* front = this;
    while (UIViewController* over = front->presentedViewController()) front = over;
    front->presentViewController(alert, true);
  }
}

void UIImagePickerController::dismissItselfAnimated(bool animated) {
  if (UIWindow* shownIn = UIWindow::windowOf(view())) shownIn->takeAway(*this, animated);
}

void UIImagePickerController::deliver(const UIImagePickerControllerInfo& info) {
  const auto self = shared_from_this();
  if (delegate_) {
    delegate_->didFinishPickingMediaWithInfo(*this, info);
  } else {
    dismissItselfAnimated(true);
  }
}

}  // namespace frelta
