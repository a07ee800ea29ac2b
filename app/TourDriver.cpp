#include "app/TourDriver.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QMouseEvent>
#include <QThread>

#include "uikit/UIAlertControllerView.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISwitch.h"

namespace frelta {

namespace {
// Longer than any animation of a control.
constexpr int kSettleMilliseconds = 350;
constexpr unsigned long kPollMilliseconds = 5;

/// Of the width, counted from the left, for one counted from where lines begin.
double shareFromLeft(double share) {
  return QGuiApplication::layoutDirection() == Qt::RightToLeft ? 1 - share : share;
}

/// The first item below this one that is wanted; null when there is none.
const QQuickItem* findItem(const QQuickItem& root,
                           const std::function<bool(const QQuickItem&)>& wanted) {
  for (const QQuickItem* child : root.childItems()) {
    if (wanted(*child)) return child;
    if (const QQuickItem* found = findItem(*child, wanted)) return found;
  }
  return nullptr;
}

/// Below the view.
UIButton* buttonCalled(const UIView& view, const std::string& name) {
  for (const auto& subview : view.subviews()) {
    auto* button = dynamic_cast<UIButton*>(subview.get());
    if (button && button->accessibility().label == name) return button;
    if (UIButton* found = buttonCalled(*subview, name)) return found;
  }
  return nullptr;
}
}  // namespace

UITableView* TourDriver::table() {
  UIViewController* page = navigation_.topViewController();
  return page ? findView<UITableView>(page->view()) : nullptr;
}

UITableViewCell* TourDriver::findCell(const std::function<bool(const UITableViewCell&)>& wanted) {
  UITableView* rows = table();
  if (!rows) return nullptr;
  for (int section = 0; section < rows->numberOfSections(); ++section) {
    for (int row = 0; row < rows->numberOfRowsInSection(section); ++row) {
      const IndexPath path{section, row};
      if (!rows->cellForRowAtIndexPath(path)) {
        rows->scrollToRowAtIndexPath(path);
        window_.mirror().flush();
      }
      UITableViewCell* cell = rows->cellForRowAtIndexPath(path);
      if (!cell || !wanted(*cell)) continue;
      rows->scrollToRowAtIndexPath(path);
      window_.mirror().flush();
      return cell;
    }
  }
  return nullptr;
}

UITableViewCell* TourDriver::findRow(const std::string& identifier) {
  return findCell(
      [&](const UITableViewCell& cell) { return cell.accessibilityIdentifier() == identifier; });
}

UIButton* TourDriver::findButton(const std::string& name) {
  const UITableViewCell* cell =
      findCell([&](const UITableViewCell& row) { return buttonCalled(row, name) != nullptr; });
  return cell ? buttonCalled(*cell, name) : nullptr;
}

bool TourDriver::tapButton(const std::string& name) {
  const UIButton* button = findButton(name);
  return button && tapView(*button);
}

UITableViewCell* TourDriver::findRowWithText(const std::string& text) {
  return findCell([&](const UITableViewCell& cell) { return cell.textLabel()->text() == text; });
}

bool TourDriver::tapRowWithText(const std::string& text) {
  const UITableViewCell* cell = findRowWithText(text);
  return cell && tapView(*cell);
}

bool TourDriver::tapRow(const std::string& identifier) {
  const UITableViewCell* cell = findRow(identifier);
  return cell && tapView(*cell);
}

bool TourDriver::tapSwitch(const std::string& identifier) {
  UITableViewCell* cell = findRow(identifier);
  const UISwitch* control = cell ? findView<UISwitch>(*cell) : nullptr;
  return control && tapView(*control);
}

bool TourDriver::tapSegment(const std::string& identifier, int index) {
  UITableViewCell* cell = findRow(identifier);
  const UISegmentedControl* control = cell ? findView<UISegmentedControl>(*cell) : nullptr;
  if (!control || control->titles().empty()) return false;
  return tapView(*control, (index + 0.5) / static_cast<double>(control->titles().size()));
}

bool TourDriver::tapBack() {
  const UIButton* back = navigation_.navigationBar().backButton();
  return !back->isHidden() && tapView(*back);
}

bool TourDriver::tapView(const UIView& view, double xShare, double yShare) {
  QQuickItem* item = window_.itemFor(view);
  if (!item || !item->isVisible()) return false;
  clickAt(item->mapToScene({item->width() * shareFromLeft(xShare), item->height() * yShare}));
  settle();
  return true;
}

bool TourDriver::tapRightButton() {
  const UIButton* button = navigation_.navigationBar().rightButton();
  return !button->isHidden() && tapView(*button);
}

bool TourDriver::swipeRowWithText(const std::string& text) {
  const UITableViewCell* cell = findRowWithText(text);
  return cell && swipe(*cell);
}

bool TourDriver::swipe(const UITableViewCell& cell) {
  const QQuickItem* item = window_.itemFor(cell);
  if (!item) return false;
  const auto at = [&](double share) {
    return item->mapToScene({item->width() * shareFromLeft(share), item->height() / 2});
  };
  const QPointF start = at(0.9);
  const QPointF end = at(0.1);
  sendMouse(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
  for (int step = 1; step <= 10; ++step) {
    sendMouse(QEvent::MouseMove, start + (end - start) * step / 10, Qt::NoButton, Qt::LeftButton);
  }
  sendMouse(QEvent::MouseButtonRelease, end, Qt::LeftButton, Qt::NoButton);
  settle();
  return true;
}

bool TourDriver::swipeAndTapAction(const std::string& text, const QString& action) {
  const UITableViewCell* cell = findRowWithText(text);
  if (!cell || !swipe(*cell)) return false;
  const QQuickItem* button = findItem(*window_.itemFor(*cell), [&](const QQuickItem& item) {
    return item.objectName() == QLatin1String("rowAction") && item.property("text") == action;
  });
  if (!button || !button->isVisible()) return false;
  clickAt(button->mapToScene({button->width() / 2, button->height() / 2}));
  settle();
  return true;
}

UIAlertController* TourDriver::alert() {
  const auto presented = window_.uiWindow().presentedViewControllers();
  return presented.empty() ? nullptr : dynamic_cast<UIAlertController*>(presented.back().get());
}

bool TourDriver::tapAlertButton(const std::string& title) {
  UIAlertController* shown = alert();
  const auto* view = shown ? findView<UIAlertControllerView>(shown->view()) : nullptr;
  if (!view) return false;
  for (const UIButton* button : view->buttons()) {
    if (button->title() == title) return tapView(*button);
  }
  return false;
}

bool TourDriver::typeIntoAlert(std::size_t field, const QString& text) {
  UIAlertController* shown = alert();
  if (!shown || field >= shown->textFields().size() || !tapView(*shown->textFields()[field]))
    return false;
  for (const QChar character : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QCoreApplication::sendEvent(&window_, &press);
    QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(character));
    QCoreApplication::sendEvent(&window_, &release);
  }
  settle();
  return true;
}

void TourDriver::sendMouse(QEvent::Type type, QPointF point, Qt::MouseButton button,
                           Qt::MouseButtons held) {
  QMouseEvent event(type, point, window_.mapToGlobal(point), button, held, Qt::NoModifier);
  // Gestures are told apart by when their events happened.
  event.setTimestamp(static_cast<quint64>(QDeadlineTimer::current().deadline()));
  QCoreApplication::sendEvent(&window_, &event);
}

void TourDriver::clickAt(QPointF point) {
  sendMouse(QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton);
  sendMouse(QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
}

void TourDriver::settle() {
  waitFor([] { return false; }, kSettleMilliseconds);
}

bool TourDriver::waitFor(const std::function<bool()>& condition, int milliseconds) {
  QElapsedTimer timer;
  timer.start();
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    // Objects that were taken down wait for an event loop to go.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (condition()) return true;
    QThread::msleep(kPollMilliseconds);
  } while (!timer.hasExpired(milliseconds));
  return condition();
}

bool TourDriver::grab(const QString& file) {
  settle();
  const QImage image = window_.grabWindow();
  return !image.isNull() && image.save(file);
}

}  // namespace frelta
