#include "quick/Appearance.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace frelta {

namespace {

// The settings portal, as its interface description names it.
const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

}  // namespace

Appearance::Appearance(std::optional<UserInterfaceStyle> fixed) : fixed_(fixed) {
  update();
  qGuiApp->installEventFilter(this);
  askPortal();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) update();
  return QObject::eventFilter(watched, event);
}

void Appearance::askPortal() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
              SLOT(portalSettingChanged(QDBusMessage)));
  // The first is of no use beside a fixed style.
  for (const auto& setting : PortalSettings::names().subspan(fixed_ ? 1 : 0)) ask(setting);
}

void Appearance::ask(const PortalSettings::Name& setting) {
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  call << setting.space << setting.key;
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, setting] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isValid()) {
      portal_.take(setting.space, setting.key, reply.value().variant());
      update();
    }
    watcher->deleteLater();
  });
}

void Appearance::portalSettingChanged(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  if (arguments.size() != 3) return;
  portal_.take(arguments[0].toString(), arguments[1].toString(), arguments[2]);
  update();
}

UserInterfaceStyle Appearance::desktopStyle() const {
  if (const auto style = portal_.style()) return *style;
  const QPalette palette = QGuiApplication::palette();
  const bool dark =
      palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
  return dark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
}

void Appearance::update() {
  const UserInterfaceStyle style = fixed_.value_or(desktopStyle());
  const bool highContrast = portal_.highContrast();
  const bool reducedMotion = portal_.reducedMotion();
  if (style == style_ && highContrast == highContrast_ && reducedMotion == reducedMotion_) return;
  style_ = style;
  highContrast_ = highContrast;
  reducedMotion_ = reducedMotion;
  Q_EMIT changed();
}

}  // namespace frelta
