#include "app/BroadcastListener.h"

#include <QDBusConnection>
#include <utility>

namespace frelta {

namespace {
const QString kConnectionName = QStringLiteral("frelta-broadcast-listener");
}  // namespace

BroadcastListener::BroadcastListener() {
  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnectionName);
  listening_ = bus.isConnected() &&
               bus.connect(QString(), QStringLiteral("/com/tarno/DarwinNotificationCenter"),
                           QStringLiteral("com.tarno.DarwinNotificationCenter"),
                           QStringLiteral("Posted"), this, SLOT(posted(QString)));
}

BroadcastListener::~BroadcastListener() {
  QDBusConnection::disconnectFromBus(kConnectionName);
}

QStringList BroadcastListener::takeHeard() {
  return std::exchange(heard_, {});
}

void BroadcastListener::posted(const QString& name) {
  heard_.append(name);
}

}  // namespace frelta
