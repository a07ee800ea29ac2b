#pragma once

#include <QStringList>

#include "app/BroadcastListener.h"

namespace frelta {

/// The names that any process has broadcast since this was made, in order.
class HeardNames {
 public:
  HeardNames() {
    QObject::connect(&listener_, &BroadcastListener::heard,
                     [this](const QString& name) { names.append(name); });
  }

  QStringList names;

 private:
  BroadcastListener listener_;
};

}  // namespace frelta
