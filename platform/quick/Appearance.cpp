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
const QString kSpace = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");
constexpr uint kNoPreference = 0;
constexpr uint kPreferDark = 1;

}  // namespace

Appearance::Appearance(std::optional<UserInterfaceStyle> fixed) {
  if (fixed) {
    style_ = *fixed;
    return;
  }
  usePalette();
  qGuiApp->installEventFilter(this);
  askPortal();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange && !portalDecides_) usePalette();
  return QObject::eventFilter(watched, event);
}

void Appearance::askPortal() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
              SLOT(portalSettingChanged(QDBusMessage)));
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  call << kSpace << kKey;
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isValid()) usePortalValue(reply.value().variant());
    watcher->deleteLater();
  });
}

void Appearance::portalSettingChanged(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  if (arguments.size() != 3 || arguments[0] != kSpace || arguments[1] != kKey) return;
  usePortalValue(arguments[2]);
}

void Appearance::usePortalValue(const QVariant& value) {
  // Read wraps the value in a variant of its own, the signal does not.
  const QVariant inner =
      value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
  bool isNumber = false;
  const uint scheme = inner.toUInt(&isNumber);
  portalDecides_ = isNumber && scheme != kNoPreference;
  if (portalDecides_) {
    setStyle(scheme == kPreferDark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light);
  } else {
    usePalette();
  }
}

void Appearance::usePalette() {
  const QPalette palette = QGuiApplication::palette();
  const bool dark =
      palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
  setStyle(dark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light);
}

void Appearance::setStyle(UserInterfaceStyle style) {
  if (style == style_) return;
  style_ = style;
  Q_EMIT changed();
}

}  // namespace frelta
