#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "uikit/UIAlertAction.h"
#include "uikit/UITextField.h"
#include "uikit/UIViewController.h"

namespace frelta {

class UIAlertControllerView;

/// A question or message over the screen that presents it. Any action closes it.
class UIAlertController : public UIViewController {
 public:
  using Configure = std::function<void(UITextField&)>;

  /// In the alert style, the only one there is.
  static std::shared_ptr<UIAlertController> alertControllerWithTitle(std::string title,
                                                                     std::string message);

  const std::string& message() const { return message_; }

  /// Buttons and fields stand in the order in which they are added, before the alert is presented.
  void addAction(std::shared_ptr<UIAlertAction> action);
  void addTextFieldWithConfigurationHandler(const Configure& configure);
  /// A view between the message and the fields, set before the alert is presented. It is as wide as
  /// the texts, and as high as its sizeThatFits() says within the room that there is.
  void setContentView(std::unique_ptr<UIView> view) { newContentView_ = std::move(view); }
  std::span<const std::shared_ptr<UIAlertAction>> actions() const { return actions_; }
  /// Owned by the alert.
  std::span<UITextField* const> textFields() const { return textFields_; }

  /// What the Return key presses: the first action of the default style, else what Escape does.
  UIAlertAction* defaultAction() const;
  /// What the Escape key presses: the action of the cancel style, else the only one there is. Null
  /// when there is a choice to be made.
  UIAlertAction* cancelAction() const;
  /// What a tap on the action's button does: closes the alert, then performs the action. Nothing
  /// happens when the alert is not shown or the action is not one of its own.
  void userDidPressAction(const UIAlertAction& action);

  void viewDidAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;

 protected:
  std::unique_ptr<UIView> loadView() override;

 private:
  UIAlertController(std::string title, std::string message);

  std::string message_;
  std::vector<std::shared_ptr<UIAlertAction>> actions_;
  // Until the alert's view takes them.
  std::unique_ptr<UIView> newContentView_;
  std::vector<std::unique_ptr<UITextField>> newTextFields_;
  std::vector<UITextField*> textFields_;
};

}  // namespace frelta
