#include "app/BroadcastFollower.h"

#include <QPointer>
#include <string>

#include "device/Notifications.h"
#include "foundation/Platform.h"
#include "preferences/PSListController.h"
#include "quick/EventGuard.h"
#include "uikit/UITableViewController.h"

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
    if (self) self->showWhatHolds();
  });
}

void BroadcastFollower::showWhatHolds() {
  isDue_ = false;
  guardEvent([&] {
    UIViewController* page = navigation_.topViewController();
    if (auto* list = dynamic_cast<PSListController*>(page)) {
      list->reloadSpecifiers();
    } else if (page) {
      page->viewWillAppear(false);
      if (auto* screen = dynamic_cast<UITableViewController*>(page))
        screen->tableView().reloadData();
    }
  });
}

}  // namespace frelta
