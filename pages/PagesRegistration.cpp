#include "pages/PagesRegistration.h"

#include <memory>
#include <string>
#include <utility>

#include "pages/FreltaBannerCell.h"
#include "pages/FreltaFooterCell.h"
#include "pages/FreltaHTMLCell.h"
#include "pages/FreltaImageCell.h"
#include "pages/FreltaKeyLabelLinkCell.h"
#include "pages/FreltaThemesCell.h"
#include "pages/TarnoColourPickerCell.h"
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

/// A class whose cells take the page's style and reuse identifier.
template <typename Cell>
void registerStyledCell(PSClassRegistry& classes, const char* name) {
  classes.registerCell(name, [](UITableViewCellStyle style, std::string identifier,
                                std::shared_ptr<PSSpecifier> specifier) {
    return std::make_unique<Cell>(style, std::move(identifier), std::move(specifier));
  });
}

/// A class that chooses its own.
template <typename Cell>
void registerCell(PSClassRegistry& classes, const char* name) {
  classes.registerCell(
      name, [](UITableViewCellStyle, const std::string&, std::shared_ptr<PSSpecifier> specifier) {
        return Cell::initWithSpecifier(std::move(specifier));
      });
}

}  // namespace

void registerPages(PSClassRegistry& classes) {
  classes.registerController("freltaprefsRootListController",
                             [] { return std::make_shared<RootPage>(); });
  classes.registerController("freltaAdvancedprefsRootListController", [] {
    return std::make_shared<freltaAdvancedprefsRootListController>();
  });
  registerCell<FreltaBannerCell>(classes, "FreltaBannerCell");
  registerCell<FreltaFooterCell>(classes, "FreltaFooterCell");
  registerCell<FreltaHTMLCell>(classes, "FreltaHTMLCell");
  registerCell<FreltaThemesCell>(classes, "FreltaThemesCell");
  registerStyledCell<FreltaImageCell>(classes, "FreltaImageCell");
  registerStyledCell<FreltaKeyLabelLinkCell>(classes, "FreltaKeyLabelLinkCell");
  registerStyledCell<TarnoColourPickerCell>(classes, "TarnoColourPickerCell");
  registerAction(classes, "selectTheme", &RootPage::selectTheme);
  registerAction(classes, "selectHTML", &RootPage::selectHTML);
  registerAction(classes, "selectWidget", &RootPage::selectWidget);
  registerAction(classes, "respring", &RootPage::respring);
  registerAction(classes, "twitterlink", &RootPage::twitterlink);
  registerAction(classes, "supportlink", &RootPage::supportlink);
}

}  // namespace frelta
