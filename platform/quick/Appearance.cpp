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

using Setting = std::pair<QString, QString>;
const QString kSpace = QStringLiteral("org.freedesktop.appearance");
const Setting kColorScheme(kSpace, QStringLiteral("color-scheme"));
const Setting kContrast(kSpace, QStringLiteral("contrast"));
const Setting kReducedMotion(kSpace, QStringLiteral("reduced-motion"));
// Portals from before these two hand out the desktop's own settings.
const Setting kDesktopContrast(QStringLiteral("org.gnome.desktop.a11y.interface"),
                               QStringLiteral("high-contrast"));
const Setting kDesktopAnimations(QStringLiteral("org.gnome.desktop.interface"),
                                 QStringLiteral("enable-animations"));
constexpr uint kNoPreference = 0;
constexpr uint kPreferDark = 1;
constexpr uint kMoreContrast = 1;
constexpr uint kLessMotion = 1;

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
  if (!fixed_) ask(kColorScheme);
  for (const Setting& setting : {kContrast, kDesktopContrast, kReducedMotion, kDesktopAnimations})
    ask(setting);
}

void Appearance::ask(const Setting& setting) {
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  call << setting.first << setting.second;
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, setting] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isValid()) keep(setting, reply.value().variant());
    watcher->deleteLater();
  });
}

void Appearance::portalSettingChanged(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  if (arguments.size() != 3) return;
  keep({arguments[0].toString(), arguments[1].toString()}, arguments[2]);
}

void Appearance::keep(const Setting& setting, const QVariant& value) {
  // Read wraps the value in a variant of its own, the signal does not.
  portal_[setting] =
      value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
  update();
}

uint Appearance::number(const Setting& setting) const {
  return portal_.value(setting).toUInt();
}

UserInterfaceStyle Appearance::desktopStyle() const {
  const uint scheme = number(kColorScheme);
  if (scheme != kNoPreference)
    return scheme == kPreferDark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
  const QPalette palette = QGuiApplication::palette();
  const bool dark =
      palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
  return dark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
}

void Appearance::update() {
  const UserInterfaceStyle style = fixed_.value_or(desktopStyle());
  const bool highContrast =
      number(kContrast) == kMoreContrast || portal_.value(kDesktopContrast).toBool();
  const bool reducedMotion =
      number(kReducedMotion) == kLessMotion || !portal_.value(kDesktopAnimations, true).toBool();
  if (style == style_ && highContrast == highContrast_ && reducedMotion == reducedMotion_) return;
  style_ = style;
  highContrast_ = highContrast;
  reducedMotion_ = reducedMotion;
  Q_EMIT changed();
}

}  // namespace frelta
