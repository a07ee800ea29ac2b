#include "app/BroadcastFollower.h"

#include <QPointer>
#include <string>

#include "app/ShownPage.h"
#include "device/Notifications.h"
#include "foundation/Platform.h"

namespace frelta {

BroadcastFollower::BroadcastFollower(LinuxDarwinNotificationCenter& centre,
                                     UINavigationController& navigation)
    : centre_(centre), navigation_(navigation) {
  connect(&listener_, &BroadcastListener::heard, this, &BroadcastFollower::heard);
}

void BroadcastFollower::heard(const QString& name, const QString& sender) {
  // What this process posts its own pages know.
  if (sender.toStdString() == centre_.senderName()) return;
  const std::string posted = name.toStdString();
  centre_.deliver(posted);
  if (isDue_ || posted != kRefreshNotification) return;
  isDue_ = true;
  // After those that the name is delivered to; many broadcasts in one turn are one change.
  Platform::current().mainQueue->async([self = QPointer(this)] {
    if (!self) return;
    self->isDue_ = false;
    showWhatIsStored(self->navigation_);
    Q_EMIT self->followed();
  });
}

}  // namespace frelta
