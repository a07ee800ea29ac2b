#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/PropertyListValue.h"
#include "preferences/PSCellType.h"

namespace frelta {

class PSListController;

/// One row of a list page, or the group that the rows after it belong to.
class PSSpecifier {
 public:
  using Action = std::function<void()>;

  PSSpecifier(PSCellType cellType, std::string identifier, Dictionary properties = {});

  PSCellType cellType() const { return cellType_; }
  bool isGroup() const { return cellType_ == PSCellType::PSGroupCell; }
  /// Tells rows of a page apart and stays the same when the page loads its rows anew.
  const std::string& identifier() const { return identifier_; }
  /// The "label"; empty when there is none.
  std::string name() const;

  const Dictionary& properties() const { return properties_; }
  /// Null when there is none. Owned by the specifier.
  const PropertyListValue* propertyForKey(std::string_view key) const;
  /// The same when it is text, else null.
  const std::string* stringForKey(std::string_view key) const;
  void setProperty(PropertyListValue value, std::string key);

  /// A length in points, such as "height"; nothing unless it is one.
  std::optional<double> pointsForKey(std::string_view key) const;

  /// The page that reads and writes the row's value; null for none. Not owned.
  PSListController* target() const { return target_; }
  void setTarget(PSListController* target) { target_ = target; }

  /// What a tap on the row does; empty for nothing. A cell may put its own in place.
  const Action& buttonAction() const { return buttonAction_; }
  void setButtonAction(Action action) { buttonAction_ = std::move(action); }

  /// The registered cell class, page class and action that the row asks for.
  const std::optional<std::string>& cellClass() const { return cellClass_; }
  void setCellClass(std::optional<std::string> name) { cellClass_ = std::move(name); }
  const std::optional<std::string>& detailControllerClass() const { return detail_; }
  void setDetailControllerClass(std::optional<std::string> name) { detail_ = std::move(name); }
  const std::optional<std::string>& action() const { return action_; }
  void setAction(std::optional<std::string> name) { action_ = std::move(name); }
  /// Whether a tap on the row does something.
  bool isPressable() const { return buttonAction_ || detail_; }

  /// The group that the row was described in, also where a page leaves the group out of its list;
  /// null above the first.
  const std::shared_ptr<PSSpecifier>& group() const { return group_; }
  void setGroup(std::shared_ptr<PSSpecifier> group);
  /// Whether rows were described in this group.
  bool hasRows() const { return hasRows_; }

 private:
  PSCellType cellType_;
  bool hasRows_ = false;
  std::string identifier_;
  Dictionary properties_;
  PSListController* target_ = nullptr;
  Action buttonAction_;
  std::optional<std::string> cellClass_;
  std::optional<std::string> detail_;
  std::optional<std::string> action_;
  std::shared_ptr<PSSpecifier> group_;
};

using PSSpecifierList = std::vector<std::shared_ptr<PSSpecifier>>;

}  // namespace frelta
