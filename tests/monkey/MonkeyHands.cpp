#include "tests/monkey/MonkeyHands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <optional>

#include "uikit/UIControl.h"
#include "uikit/UISwitch.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

namespace {

std::string place(QPointF point) {
  return std::to_string(static_cast<int>(point.x())) + "," +
         std::to_string(static_cast<int>(point.y()));
}

/// Controls and rows that can be seen, below the view.
void collect(const UIView& view, std::vector<const UIView*>& found) {
  if (view.isHidden()) return;
  if (dynamic_cast<const UIControl*>(&view) || dynamic_cast<const UITableViewCell*>(&view))
    found.push_back(&view);
  for (const auto& subview : view.subviews()) collect(*subview, found);
}

const std::array<QString, 11> kTexts{QStringLiteral("a"),
                                     QStringLiteral("Work"),
                                     QStringLiteral("  "),
                                     QStringLiteral("A/B.plist"),
                                     QString::fromUtf8("\u00e9\U0001F600\u202e"),
                                     QStringLiteral("Work\vKeys"),
                                     QString(QChar(0xffff)),
                                     QString(QChar(0xd800)),
                                     QStringLiteral("ewogICJIaWRlS2V5Q2FwcyIgOiAwCn0="),
                                     QStringLiteral("#12345678"),
                                     QString(200, QLatin1Char('x'))};

constexpr int kStepsOfAFinger = 5;
// Milliseconds. Taps of different steps are no double tap.
constexpr int kPause = 1000;
constexpr int kBetweenTwoTaps = 50;

struct Stroke {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
};
constexpr std::array kStrokes{
    Stroke{Qt::Key_Tab, {}},
    Stroke{Qt::Key_Tab, {}},
    Stroke{Qt::Key_Tab, {}},
    Stroke{Qt::Key_Backtab, Qt::ShiftModifier},
    Stroke{Qt::Key_Space, {}},
    Stroke{Qt::Key_Space, {}},
    Stroke{Qt::Key_Return, {}},
    Stroke{Qt::Key_Enter, Qt::KeypadModifier},
    Stroke{Qt::Key_Up, {}},
    Stroke{Qt::Key_Down, {}},
    Stroke{Qt::Key_Left, {}},
    Stroke{Qt::Key_Right, {}},
    Stroke{Qt::Key_PageUp, {}},
    Stroke{Qt::Key_PageDown, {}},
    Stroke{Qt::Key_Home, {}},
    Stroke{Qt::Key_End, {}},
    Stroke{Qt::Key_Menu, {}},
    Stroke{Qt::Key_Delete, {}},
    Stroke{Qt::Key_Backspace, {}},
    Stroke{Qt::Key_A, Qt::ControlModifier},
    Stroke{Qt::Key_C, Qt::ControlModifier},
    Stroke{Qt::Key_V, Qt::ControlModifier},
    Stroke{Qt::Key_Z, Qt::ControlModifier},
    Stroke{Qt::Key_Left, Qt::AltModifier},
    Stroke{Qt::Key_Escape, {}},
};

constexpr int kMostKeysHome = 60;

/// A row of the first page, and the background mode that it wants; none for any.
struct Door {
  const char* row;
  std::optional<int> mode;
};
constexpr std::array<Door, 9> kDoors{{{"Settings", {}},
                                      {"FreltaHTMLCell", 1},
                                      {"FreltaImageCell", 2},
                                      {"backgroundImageContentModeInt", 2},
                                      {"FreltaThemesCell", 3},
                                      {"FreltaWidgetCell", 4},
                                      {"CurrentPreset", {}},
                                      {"FreltaPresetsLightMode", {}},
                                      {"CustomTextColour", {}}}};

// One, as long as the process.
QPointingDevice* touchScreen() {
  static QPointingDevice* const screen = QTest::createTouchDevice();
  return screen;
}

}  // namespace

MonkeyHands::MonkeyHands(MonkeyHouse& house, Dice& dice)
    : house_(house), dice_(dice), screen_(touchScreen()) {
  qApp->installEventFilter(this);
}

QPointF MonkeyHands::anywhere() {
  return {static_cast<double>(dice_.below(house_.quick().width())),
          static_cast<double>(dice_.below(house_.quick().height()))};
}

QPointF MonkeyHands::onSomethingThatTakesTaps() {
  const auto layers = house_.quick().uiWindow().subviews();
  std::vector<const UIView*> found;
  if (!layers.empty()) collect(*layers.back(), found);
  std::vector<QPointF> points;
  for (const UIView* view : found) {
    const QQuickItem* item = house_.quick().itemFor(*view);
    if (!item || !item->isVisible()) continue;
    const QPointF point = item->mapToScene({item->width() * (0.1 + 0.1 * dice_.below(9)),
                                            item->height() * (0.1 + 0.1 * dice_.below(9))});
    if (QRectF({}, house_.quick().size()).contains(point)) points.push_back(point);
  }
  return points.empty() ? anywhere() : dice_.pick(points);
}

void MonkeyHands::mouse(QEvent::Type type, QPointF point, Qt::MouseButton button,
                        Qt::MouseButtons held) {
  QMouseEvent event(type, point, house_.quick().mapToGlobal(point), button, held, Qt::NoModifier);
  event.setTimestamp(milliseconds_ += 8);
  QCoreApplication::sendEvent(&house_.quick(), &event);
}

void MonkeyHands::tap(QPointF point, Qt::MouseButton button) {
  mouse(QEvent::MouseButtonPress, point, button, button);
  mouse(QEvent::MouseButtonRelease, point, button, Qt::NoButton);
  milliseconds_ += kPause;
}

void MonkeyHands::dragFromTo(QPointF from, QPointF to, int steps) {
  mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
  for (int step = 1; step <= steps; ++step) {
    mouse(QEvent::MouseMove, from + (to - from) * step / steps, Qt::NoButton, Qt::LeftButton);
    if (dice_.oneIn(4)) house_.pass(0.05);
  }
  mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
  milliseconds_ += kPause;
}

std::string MonkeyHands::tapAnywhere() {
  const QPointF point = anywhere();
  tap(point);
  return "tap " + place(point);
}

std::string MonkeyHands::tapSomethingThatTakesTaps() {
  const QPointF point = onSomethingThatTakesTaps();
  tap(point);
  return "tap on something " + place(point);
}

std::string MonkeyHands::tapTwice() {
  const QPointF point = onSomethingThatTakesTaps();
  tap(point);
  milliseconds_ -= kPause - kBetweenTwoTaps;
  tap(point);
  return "tap twice " + place(point);
}

std::string MonkeyHands::tapWithTheSecondButton() {
  const QPointF point = onSomethingThatTakesTaps();
  tap(point, Qt::RightButton);
  return "tap with the second button " + place(point);
}

std::string MonkeyHands::touch() {
  QuickWindow* const window = &house_.quick();
  const auto fingers = [&] { return QTest::touchEvent(window, screen_); };
  const QPointF from = onSomethingThatTakesTaps();
  const QPointF to = dice_.oneIn(2) ? from : anywhere();
  fingers().press(0, from.toPoint(), window);
  for (int step = 1; step <= kStepsOfAFinger; ++step)
    fingers().move(0, (from + (to - from) * step / kStepsOfAFinger).toPoint(), window);
  if (dice_.oneIn(10)) {
    fingers().stationary(0).press(1, anywhere().toPoint(), window);
    fingers().stationary(0).release(1, to.toPoint(), window);
  }
  fingers().release(0, to.toPoint(), window);
  milliseconds_ += kPause;
  return "touch " + place(from) + " to " + place(to);
}

bool MonkeyHands::eventFilter(QObject*, QEvent* event) {
  // The test library gives a finger the time of day, and a page flies as fast as that says.
  if (auto* touch = dynamic_cast<QTouchEvent*>(event)) touch->setTimestamp(milliseconds_ += 8);
  return false;
}

std::string MonkeyHands::drag() {
  const QPointF from = anywhere();
  const QPointF to = anywhere();
  dragFromTo(from, to, dice_.between(1, 12));
  return "drag " + place(from) + " to " + place(to);
}

std::string MonkeyHands::swipeARow() {
  const QPointF from = onSomethingThatTakesTaps();
  const QPointF to = from + QPointF(dice_.between(-300, 100), 0);
  dragFromTo(from, to, 10);
  return "swipe " + place(from) + " to " + place(to);
}

std::string MonkeyHands::scroll() {
  const QPointF point = anywhere();
  const QPoint notch(dice_.oneIn(5) ? dice_.between(-240, 240) : 0, dice_.between(-600, 600));
  const bool fine = dice_.oneIn(2);
  QWheelEvent event(point, house_.quick().mapToGlobal(point), fine ? notch : QPoint(), notch,
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  event.setTimestamp(milliseconds_ += 8);
  QCoreApplication::sendEvent(&house_.quick(), &event);
  return "scroll " + place(point) + " by " + place(notch);
}

std::string MonkeyHands::pressLong() {
  const QPointF point = onSomethingThatTakesTaps();
  mouse(QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton);
  house_.pass(0.05 * dice_.between(1, 30));
  mouse(QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
  milliseconds_ += kPause;
  return "press long " + place(point);
}

std::string MonkeyHands::pressAKey() {
  const Stroke& stroke = dice_.pick(kStrokes);
  QTest::keyClick(&house_.quick(), stroke.key, stroke.modifiers);
  return "key " + QKeySequence(stroke.key | stroke.modifiers).toString().toStdString();
}

std::string MonkeyHands::type() {
  const QString& text = dice_.pick(kTexts);
  if (dice_.oneIn(3)) {
    QGuiApplication::clipboard()->setText(text);
    house_.window.pasteboard.text = text.toStdString();
    QTest::keyClick(&house_.quick(), Qt::Key_V, Qt::ControlModifier);
    return "paste " + text.toStdString();
  }
  for (const QChar character : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QCoreApplication::sendEvent(&house_.quick(), &press);
    QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(character));
    QCoreApplication::sendEvent(&house_.quick(), &release);
  }
  return "type " + text.toStdString();
}

std::string MonkeyHands::goBack() {
  QTest::keyClick(&house_.quick(), Qt::Key_Escape);
  return "back";
}

bool MonkeyHands::goHome() {
  for (int i = 0; i < kMostKeysHome; ++i) {
    if (house_.alerts() == 0 && house_.navigation().viewControllers().size() == 1) return true;
    goBack();
    house_.settle();
  }
  return false;
}

void MonkeyHands::tapPart(const UIView* view, double share) {
  const QQuickItem* item = view ? house_.quick().itemFor(*view) : nullptr;
  if (item) tap(item->mapToScene({item->width() * share, item->height() / 2}));
  house_.settle();
}

std::string MonkeyHands::openAPage() {
  constexpr double kModes = 5;
  const Door& door = kDoors[nextDoor_++ % kDoors.size()];
  goHome();
  TourDriver& driver = *house_.window.driver;
  // While the master switch is off only a few rows are there.
  UITableViewCell* master = driver.findRow("Enabled");
  const UISwitch* isEnabled = master ? findView<UISwitch>(*master) : nullptr;
  if (isEnabled && !isEnabled->isOn()) tapPart(isEnabled);
  if (door.mode) tapPart(driver.findRow("BackgroundMode"), (*door.mode + 0.5) / kModes);
  tapPart(driver.findRow(door.row));
  return std::string("open the page of ") + door.row;
}

}  // namespace frelta
