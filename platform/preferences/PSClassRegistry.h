#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "uikit/UITableViewCell.h"
#include "uikit/UIViewController.h"

namespace frelta {

class PSSpecifier;
class PSTableCell;

/// What page descriptions can refer to by name.
class PSClassRegistry {
 public:
  using ControllerFactory = std::function<std::shared_ptr<UIViewController>()>;
  using CellFactory = std::function<std::unique_ptr<PSTableCell>(
      UITableViewCellStyle, std::string reuseIdentifier, std::shared_ptr<PSSpecifier>)>;
  /// Gets the page that is the row's target, and the row. Does nothing for a page that it does not
  /// know.
  using Action = std::function<void(UIViewController& target, PSSpecifier& specifier)>;

  /// Holds the framework's own page classes.
  PSClassRegistry();

  /// A name registered again stands for the newer one.
  void registerController(std::string name, ControllerFactory factory);
  void registerCell(std::string name, CellFactory factory);
  void registerAction(std::string name, Action action);

  /// Each is null when nothing has the name. Owned by the registry.
  const ControllerFactory* controller(std::string_view name) const;
  const CellFactory* cell(std::string_view name) const;
  const Action* action(std::string_view name) const;

 private:
  std::map<std::string, ControllerFactory, std::less<>> controllers_;
  std::map<std::string, CellFactory, std::less<>> cells_;
  std::map<std::string, Action, std::less<>> actions_;
};

}  // namespace frelta
