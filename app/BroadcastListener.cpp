#include "app/BroadcastListener.h"

#include <QDBusConnection>

namespace frelta {

namespace {

QString nextConnection() {
  static int count = 0;
  return QStringLiteral("frelta-broadcast-listener-%1").arg(++count);
}

}  // namespace

BroadcastListener::BroadcastListener() : connection_(nextConnection()) {
  // By its address: the library would keep to the one that it found first.
  const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
  QDBusConnection bus =
      address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection_)
                        : QDBusConnection::connectToBus(address, connection_);
  listening_ = bus.isConnected() &&
               bus.connect(QString(), QStringLiteral("/com/tarno/DarwinNotificationCenter"),
                           QStringLiteral("com.tarno.DarwinNotificationCenter"),
                           QStringLiteral("Posted"), this, SLOT(posted(QString, QDBusMessage)));
}

BroadcastListener::~BroadcastListener() {
  QDBusConnection::disconnectFromBus(connection_);
}

void BroadcastListener::posted(const QString& name, const QDBusMessage& message) {
  if (name.size() <= kLongestName) Q_EMIT heard(name, message.service());
}

}  // namespace frelta
