#include "pages/PagesRegistration.h"

#include <memory>
#include <string>
#include <utility>

#include "pages/FreltaKeyLabelLinkCell.h"
#include "pages/freltaAdvancedprefsRootListController.h"
#include "pages/freltaprefsRootListController.h"

namespace frelta {

namespace {

using RootPage = freltaprefsRootListController;

void registerAction(PSClassRegistry& classes, std::string name, void (RootPage::*action)()) {
  classes.registerAction(std::move(name), [action](UIViewController& target, PSSpecifier&) {
    if (auto* page = dynamic_cast<RootPage*>(&target)) (page->*action)();
  });
}

}  // namespace

void registerPages(PSClassRegistry& classes) {
  classes.registerController("freltaprefsRootListController",
                             [] { return std::make_shared<RootPage>(); });
  classes.registerController("freltaAdvancedprefsRootListController", [] {
    return std::make_shared<freltaAdvancedprefsRootListController>();
  });
  classes.registerCell("FreltaKeyLabelLinkCell",
                       [](UITableViewCellStyle style, std::string identifier,
                          std::shared_ptr<PSSpecifier> specifier) {
                         return std::make_unique<FreltaKeyLabelLinkCell>(
                             style, std::move(identifier), std::move(specifier));
                       });
  registerAction(classes, "respring", &RootPage::respring);
  registerAction(classes, "twitterlink", &RootPage::twitterlink);
  registerAction(classes, "supportlink", &RootPage::supportlink);
}

}  // namespace frelta
