#include "app/ShownPage.h"

#include "preferences/PSListController.h"
#include "quick/EventGuard.h"
#include "uikit/UITableViewController.h"

namespace frelta {

void showWhatIsStored(UINavigationController& navigation) {
  guardEvent([&] {
    UIViewController* page = navigation.topViewController();
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
