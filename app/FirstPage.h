#pragma once

#include <QString>
#include <memory>

#include "preferences/PSBundle.h"
#include "preferences/PSListController.h"

namespace frelta {

/// A new page of the bundle's principal class. The bundle has the class, and outlives the page.
std::shared_ptr<UIViewController> makeFirstPage(const PSBundle& bundle);

/// The row of the page that has the identifier, if a press on it opens another page; null
/// otherwise, also where the row would do something else. The page need not have been shown.
std::shared_ptr<PSSpecifier> rowToPage(UIViewController& page, const QString& identifier);

}  // namespace frelta
