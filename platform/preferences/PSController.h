#pragma once

#include <memory>

#include "uikit/UIViewController.h"

namespace frelta {

class PSBundle;
class PSSpecifier;

/// What a list page tells a controller that it is about to push, if the controller wants to know.
class PSController {
 public:
  virtual ~PSController() = default;
  /// The first list page of the stack.
  virtual void setRootController(std::weak_ptr<UIViewController> controller) = 0;
  /// The page that pushes.
  virtual void setParentController(std::weak_ptr<UIViewController> controller) = 0;
  /// The row that was tapped.
  virtual void setSpecifier(std::shared_ptr<PSSpecifier> specifier) = 0;
  /// The bundle of the page that pushes; it outlives the controller. Null for none.
  virtual void setBundle(const PSBundle*) {}
};

}  // namespace frelta
