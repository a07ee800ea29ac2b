#include "tests/monkey/MonkeyHouse.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QPalette>
#include <cmath>

namespace frelta {

namespace {

constexpr double kFrame = 0.05;
constexpr int kLongestInstallation = 20'000;  // milliseconds
// Longer than anything is put off.
constexpr double kLeftovers = 10;

}  // namespace

MonkeyHouse::MonkeyHouse() {
  setStyle(UserInterfaceStyle::Light);
}

MonkeyHouse::~MonkeyHouse() {
  letInstallationsGo();
  QGuiApplication::setPalette(QPalette());
}

void MonkeyHouse::start() {
  letInstallationsGo();
  const bool isFirst = !window.application;
  drop.reset();
  window.driver.reset();
  window.notes.reset();
  window.application.reset();
  // What was put off finds its window gone.
  window.platform.mainQueue.advance(kLeftovers);
  window.services.darwinNotificationCenter = &notifications_.emplace();
  // The same code each time: what a bundle remembers stays as long as the process, and would pile
  // up.
  if (isFirst)
    window.open();
  else
    window.openAgain();
  drop = std::make_unique<StyleDrop>(quick(), *window.notes, navigation(),
                                     window.platform.hostPath("/"),
                                     [this](const StyleInstallation& style) {
                                       areInstallationsHeld_.wait(true);
                                       return installStyle(style);
                                     });
  settle();
}

void MonkeyHouse::settle() {
  window.settle();
  if (!drop || areInstallationsHeld_) return;
  // Another thread keeps time of its own: it is waited for, so that a seed replays.
  EXPECT_TRUE(QTest::qWaitFor([this] { return !drop->isInstalling(); }, kLongestInstallation));
  window.settle();
}

void MonkeyHouse::pass(double seconds) {
  for (int frame = 0; frame < std::lround(seconds / kFrame); ++frame) {
    window.platform.mainQueue.advance(kFrame);
    quick().mirror().flush();
  }
  settle();
}

void MonkeyHouse::setStyle(UserInterfaceStyle style) {
  window.platform.system.openWindows = {{true, style}};
  const bool dark = style == UserInterfaceStyle::Dark;
  QPalette palette;
  palette.setColor(QPalette::Window, dark ? Qt::black : Qt::white);
  palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
  QGuiApplication::setPalette(palette);
}

void MonkeyHouse::setPortalSetting(const char* key, unsigned value) {
  QDBusMessage signal = QDBusMessage::createSignal(
      QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
  signal << QStringLiteral("org.freedesktop.appearance") << QString::fromLatin1(key)
         << QVariant::fromValue(QDBusVariant(value));
  QMetaObject::invokeMethod(&window.appearance, "portalSettingChanged",
                            Q_ARG(QDBusMessage, signal));
}

void MonkeyHouse::letInstallationsGo() {
  areInstallationsHeld_ = false;
  areInstallationsHeld_.notify_all();
}

}  // namespace frelta
