#pragma once

#include <QObject>

#include "app/BroadcastListener.h"
#include "linux/LinuxDarwinNotificationCenter.h"
#include "uikit/UINavigationController.h"

namespace frelta {

/// Keeps the page on top the same as what others write, another window of this application among
/// them: whoever writes, broadcasts.
class BroadcastFollower : public QObject {
  Q_OBJECT

 public:
  /// The centre is the one that this process posts with. Neither is owned; both outlive this.
  BroadcastFollower(LinuxDarwinNotificationCenter& centre, UINavigationController& navigation);

 Q_SIGNALS:
  /// The page shows what others wrote.
  void followed();

 private:
  void heard(const QString& name, const QString& sender);

  LinuxDarwinNotificationCenter& centre_;
  UINavigationController& navigation_;
  BroadcastListener listener_;
  bool isDue_ = false;
};

}  // namespace frelta
