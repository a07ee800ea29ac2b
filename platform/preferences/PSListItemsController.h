#pragma once

#include "preferences/PSListController.h"

namespace frelta {

/// The values of a link list, one of them checked. A choice is handed at once to the page that the
/// row is on; this page stays.
class PSListItemsController : public PSListController {
 public:
  const PSSpecifierList& specifiers() override;

 private:
  /// The page that the row is on; null once it is gone.
  std::shared_ptr<PSListController> keeperOfValue() const;
  void choose(std::size_t index);
};

}  // namespace frelta
