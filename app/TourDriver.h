#pragma once

#include <QPointF>
#include <QString>
#include <functional>
#include <string>

#include "quick/QuickWindow.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIButton.h"
#include "uikit/UINavigationController.h"
#include "uikit/UITableView.h"

namespace frelta {

/// Uses a window as a person does: looks for rows, scrolls to them, and presses with the pointer.
class TourDriver {
 public:
  /// Neither is owned.
  TourDriver(QuickWindow& window, UINavigationController& navigation)
      : window_(window), navigation_(navigation) {}
  virtual ~TourDriver() = default;

  /// The cell of the row with that identifier on the page on top, scrolled into sight; null when
  /// the page has no such row.
  UITableViewCell* findRow(const std::string& identifier);
  /// Whether the page on top has the row.
  bool hasRow(const std::string& identifier) { return findRow(identifier) != nullptr; }

  // Each presses and releases the pointer; false when there is nothing to press.
  bool tapRow(const std::string& identifier);
  bool tapSwitch(const std::string& identifier);
  bool tapSegment(const std::string& identifier, int index);
  bool tapBack();
  bool tapRightButton();
  /// The shares are of the width, from where lines begin, and of the height, from the top.
  bool tapView(const UIView& view, double xShare = 0.5, double yShare = 0.5);

  /// The button in a row of the page on top that assistive technology calls so, scrolled into
  /// sight; null when there is none.
  UIButton* findButton(const std::string& name);
  bool tapButton(const std::string& name);

  /// The cell whose label shows the text, scrolled into sight; null when the page has none.
  UITableViewCell* findRowWithText(const std::string& text);
  bool tapRowWithText(const std::string& text);
  /// Drags the row that shows the text aside and presses the action that comes out.
  bool swipeAndTapAction(const std::string& text, const QString& action);
  /// Drags the row aside, towards its leading edge.
  bool swipeRowWithText(const std::string& text);

  /// The alert in front; null when there is none.
  UIAlertController* alert();
  bool tapAlertButton(const std::string& title);
  /// Taps into the alert's field and types.
  bool typeIntoAlert(std::size_t field, const QString& text);

  /// Lets the window work until nothing moves any more.
  virtual void settle();
  /// Whether the condition came true within the time.
  bool waitFor(const std::function<bool()>& condition, int milliseconds = 2000);
  /// Saves what the window shows. False when the file cannot be written.
  bool grab(const QString& file);

 private:
  UITableView* table();
  UITableViewCell* findCell(const std::function<bool(const UITableViewCell&)>& wanted);
  void sendMouse(QEvent::Type type, QPointF point, Qt::MouseButton button, Qt::MouseButtons held);
  void clickAt(QPointF point);
  bool swipe(const UITableViewCell& cell);

  QuickWindow& window_;
  UINavigationController& navigation_;
};

/// The first view at or below this one that is of the type; null when there is none.
template <typename View>
View* findView(UIView& root) {
  if (auto* found = dynamic_cast<View*>(&root)) return found;
  for (const auto& subview : root.subviews()) {
    if (View* found = findView<View>(*subview)) return found;
  }
  return nullptr;
}

}  // namespace frelta
