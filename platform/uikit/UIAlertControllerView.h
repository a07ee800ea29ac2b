#pragma once

#include <memory>
#include <vector>

#include "uikit/UIButton.h"
#include "uikit/UILabel.h"
#include "uikit/UITextField.h"
#include "uikit/UITextView.h"

namespace frelta {

class UIAlertController;

/// An alert as large as its window: what lies below is dimmed, a card in the middle holds title,
/// message, fields and buttons. The message scrolls when there is no room for all of it.
class UIAlertControllerView : public UIView {
 public:
  /// Of the message and the fields.
  static constexpr double kTextPointSize = 13;

  /// The controller outlives its view. No content is a null pointer.
  UIAlertControllerView(UIAlertController& controller, std::unique_ptr<UIView> content,
                        std::vector<std::unique_ptr<UITextField>> fields);

  UIAlertController& controller() const { return controller_; }
  // Owned as subviews of the card.
  UIView* card() const { return card_; }
  UITextView* messageView() const { return message_; }
  /// In the order of the alert's actions.
  const std::vector<UIButton*>& buttons() const { return buttons_; }
  /// What takes the keyboard first: the first field, else the button that the Return key presses.
  UIView* initialFocus() const;

  void layoutSubviews() override;

 private:
  void addButtons();
  bool buttonsFitSideBySide(double width) const;
  double layoutButtons(double top, double width);

  UIAlertController& controller_;
  UIView* card_;
  UILabel* title_;
  UITextView* message_;
  UIView* content_ = nullptr;  // null for none
  std::vector<UIView*> fieldFrames_;
  std::vector<UITextField*> fields_;
  std::vector<UIButton*> buttons_;
  std::vector<UIView*> separators_;  // each before the button of the same place
};

}  // namespace frelta
