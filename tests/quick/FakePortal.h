#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <utility>

namespace frelta {

/// The desktop's settings portal, as far as the appearance goes.
class FakePortal : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  explicit FakePortal(uint scheme) : FakePortal({{kScheme, scheme}}) {}
  explicit FakePortal(QMap<QString, QVariant> told)
      : values(std::move(told)),
        bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"))) {
    bus.registerObject(
        QStringLiteral("/org/freedesktop/portal/desktop"), this,
        QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableSignals);
    isOnTheBus = bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
  }
  ~FakePortal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

  bool wasRead(const QString& space, const QString& key) const {
    return reads.contains(space + u' ' + key);
  }
  void change(const QString& space, const QString& key, const QVariant& value) {
    Q_EMIT SettingChanged(space, key, QDBusVariant(value));
  }

  inline static const QString kScheme = QStringLiteral("org.freedesktop.appearance color-scheme");

  QMap<QString, QVariant> values;  // by namespace and key
  QStringList reads;
  bool isOnTheBus = false;

 public Q_SLOTS:
  Q_SCRIPTABLE QDBusVariant Read(const QString& space, const QString& key) {
    reads.append(space + u' ' + key);
    if (!values.contains(reads.back()))
      sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"));
    return QDBusVariant(QVariant::fromValue(QDBusVariant(values.value(reads.back(), 0u))));
  }

 Q_SIGNALS:
  Q_SCRIPTABLE void SettingChanged(const QString& space, const QString& key,
                                   const QDBusVariant& value);

 private:
  QDBusConnection bus;
};

}  // namespace frelta
