#include "app/FirstPage.h"

namespace frelta {

std::shared_ptr<UIViewController> makeFirstPage(const PSBundle& bundle) {
  std::shared_ptr<UIViewController> page =
      (*bundle.classes().controller(bundle.info().principalClass))();
  if (auto* controller = dynamic_cast<PSController*>(page.get())) {
    controller->setBundle(&bundle);
    controller->setRootController(page);
  }
  return page;
}

std::shared_ptr<PSSpecifier> rowToPage(UIViewController& page, const QString& identifier) {
  auto* list = dynamic_cast<PSListController*>(&page);
  if (!list) return nullptr;
  list->specifiers();
  auto row = list->specifierForID(identifier.toStdString());
  if (!row) return nullptr;
  const bool isLink = row->cellType() == PSCellType::PSLinkCell && row->action();
  return row->detailControllerClass() || isLink ? row : nullptr;
}

}  // namespace frelta
