#include "preferences/PSListController.h"

#include <algorithm>
#include <utility>

#include "foundation/Log.h"
#include "foundation/Platform.h"
#include "preferences/PSBundle.h"
#include "uikit/UINavigationController.h"
#include "uikit/UITableViewMetrics.h"

namespace frelta {

const PSSpecifierList& PSListController::specifiers() {
  if (!specifiers_) specifiers_.emplace();
  return *specifiers_;
}

const PSClassRegistry& PSListController::classes() const {
  static const PSClassRegistry kFrameworkClasses;
  return bundle_ ? bundle_->classes() : kFrameworkClasses;
}

const PSPageDescription& PSListController::pageDescription(const std::string& name) {
  const auto [entry, isNew] = descriptions_.try_emplace(name);
  PSPageDescription& description = entry->second;
  if (!isNew) return description;
  const auto bytes = bundle_ ? bundle_->contentsOfResource(name + ".plist") : std::nullopt;
  const auto value =
      bytes ? Platform::current().propertyLists->propertyListWithData(*bytes) : std::nullopt;
  if (value) {
    description = pageDescriptionWithValue(*value, classes());
  } else {
    description.problems.push_back(bytes ? "not a property list" : "missing");
  }
  for (const std::string& problem : description.problems) {
    std::string line = "loadSpecifiersFromPlistName ";
    freltaLog(line.append(name).append(": ").append(problem));
  }
  return description;
}

PSSpecifierList PSListController::loadSpecifiersFromPlistName(const std::string& name,
                                                              PSListController& target) {
  const PSPageDescription& description = pageDescription(name);
  if (description.title) setTitle(*description.title);
  PSSpecifierList list = description.specifiers();
  for (const auto& specifier : list) {
    specifier->setTarget(&target);
    if (!specifier->action()) continue;
    if (const PSClassRegistry::Action* action = classes().action(*specifier->action())) {
      specifier->setButtonAction(
          [action = *action, &target, row = specifier.get()] { action(target, *row); });
    }
  }
  return list;
}

void PSListController::reloadSpecifiers() {
  specifiers_.reset();
  cells_.forgetInvalidated();
  specifiers();
  if (table_) table_->reloadData();
}

void PSListController::reloadSpecifierID(std::string_view identifier) {
  if (const auto specifier = specifierForID(identifier)) reloadSpecifier(*specifier);
}

void PSListController::reloadSpecifier(const PSSpecifier& specifier) {
  if (!indexOfSpecifier(specifier)) return;
  cells_.invalidate(specifier);
  // Reading a row's value may ask for it, in the middle of the table's layout; the table then loads
  // its rows once more before it shows them.
  if (table_) table_->reloadData();
}

std::shared_ptr<PSSpecifier> PSListController::specifierForID(std::string_view identifier) const {
  if (!specifiers_) return nullptr;
  const auto found = std::ranges::find(*specifiers_, identifier, &PSSpecifier::identifier);
  return found == specifiers_->end() ? nullptr : *found;
}

PSTableCell* PSListController::cachedCellForSpecifierID(std::string_view identifier) const {
  const auto row = table_ ? specifierForID(identifier) : nullptr;
  const auto path = row ? indexPathForSpecifier(*row) : std::nullopt;
  return path ? static_cast<PSTableCell*>(table_->cellForRowAtIndexPath(*path)) : nullptr;
}

std::optional<std::size_t> PSListController::indexOfSpecifier(const PSSpecifier& specifier) const {
  if (!specifiers_) return std::nullopt;
  const auto found =
      std::ranges::find(*specifiers_, &specifier, &std::shared_ptr<PSSpecifier>::get);
  if (found == specifiers_->end()) return std::nullopt;
  return static_cast<std::size_t>(found - specifiers_->begin());
}

std::optional<IndexPath> PSListController::indexPathForSpecifier(
    const PSSpecifier& specifier) const {
  for (std::size_t section = 0; section < sections_.size(); ++section) {
    const PSSpecifierList& rows = sections_[section].rows;
    const auto found = std::ranges::find(rows, &specifier, &std::shared_ptr<PSSpecifier>::get);
    if (found != rows.end()) {
      return IndexPath{static_cast<int>(section), static_cast<int>(found - rows.begin())};
    }
  }
  return std::nullopt;
}

std::optional<PropertyListValue> PSListController::readPreferenceValue(PSSpecifier& specifier) {
  const PropertyListValue* value = specifier.propertyForKey("default");
  return value ? std::optional(*value) : std::nullopt;
}

// A subclass keeps the value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void PSListController::setPreferenceValue(std::optional<PropertyListValue>, PSSpecifier*) {}

UITableView& PSListController::table() {
  view();
  return *table_;
}

std::unique_ptr<UIView> PSListController::loadView() {
  auto table = std::make_unique<UITableView>(CGRect{}, UITableViewStyle::InsetGrouped);
  table_ = table.get();
  table_->setDataSource(this);
  table_->setDelegate(this);
  return table;
}

void PSListController::viewDidLoad() {
  specifiers();
}

const std::shared_ptr<PSSpecifier>& PSListController::rowAt(IndexPath path) const {
  return sections_.at(static_cast<std::size_t>(path.section))
      .rows.at(static_cast<std::size_t>(path.row));
}

int PSListController::numberOfSectionsInTableView(UITableView&) {
  // Only here, so that the rows a tap is meant for are those that the table shows.
  sections_ = sectionsOfSpecifiers(specifiers());
  return static_cast<int>(sections_.size());
}

int PSListController::numberOfRowsInSection(UITableView&, int section) {
  return static_cast<int>(sections_.at(static_cast<std::size_t>(section)).rows.size());
}

std::string PSListController::titleForHeaderInSection(UITableView&, int section) {
  const auto& group = sections_.at(static_cast<std::size_t>(section)).group;
  return group ? group->name() : std::string();
}

std::optional<double> PSListController::heightForHeaderInSection(UITableView&, int section) {
  const auto& group = sections_.at(static_cast<std::size_t>(section)).group;
  return group ? group->pointsForKey("headerHeight") : std::nullopt;
}

std::string PSListController::titleForFooterInSection(UITableView&, int section) {
  const auto& group = sections_.at(static_cast<std::size_t>(section)).group;
  const std::string* text = group ? group->stringForKey("footerText") : nullptr;
  return text ? *text : std::string();
}

double PSListController::heightForRowAtIndexPath(UITableView& table, IndexPath path) {
  // The cell of a row of a given height need not be made before it is shown.
  if (const auto height = rowAt(path)->pointsForKey("height")) return *height;
  const double width = table.frame().size.width - 2 * UITableViewMetrics::kCardInset;
  // A change of width alone leaves the rows their cells.
  const auto* cell = static_cast<PSTableCell*>(table.cellForRowAtIndexPath(path));
  if (!cell) cell = &cells_.prepare(table, rowAt(path), classes());
  return cell->preferredHeightForWidth(width).value_or(UITableView::kDefaultRowHeight);
}

std::unique_ptr<UITableViewCell> PSListController::cellForRowAtIndexPath(UITableView& table,
                                                                         IndexPath path) {
  return cells_.take(table, rowAt(path), classes());
}

PSSpecifier::Action PSListController::tapAction(IndexPath path) {
  if (auto* cell = static_cast<PSTableCell*>(table().cellForRowAtIndexPath(path))) {
    if (auto action = cell->cellAction()) return action;
  }
  const std::shared_ptr<PSSpecifier>& row = rowAt(path);
  if (row->buttonAction()) return row->buttonAction();
  if (row->detailControllerClass()) return [this, row] { pushControllerForSpecifier(row); };
  return {};
}

std::optional<IndexPath> PSListController::willSelectRowAtIndexPath(UITableView&, IndexPath path) {
  return tapAction(path) ? std::optional(path) : std::nullopt;
}

void PSListController::didSelectRowAtIndexPath(UITableView& table, IndexPath path) {
  // The action may take the page off the stack, or replace its rows.
  const auto page = shared_from_this();
  const std::shared_ptr<PSSpecifier> row = rowAt(path);
  table.deselectRowAtIndexPath(path);
  if (const PSSpecifier::Action action = tapAction(path)) action();
}

void PSListController::pushControllerForSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  const auto* factory = classes().controller(*specifier->detailControllerClass());
  if (!factory || !navigationController()) return;
  const std::shared_ptr<UIViewController> controller = (*factory)();
  if (!controller) return;
  if (auto* page = dynamic_cast<PSController*>(controller.get())) {
    page->setRootController(rootController_.expired() ? weak_from_this() : rootController_);
    page->setParentController(weak_from_this());
    page->setBundle(bundle_);
    page->setSpecifier(specifier);
  }
  controller->setTitle(specifier->name());
  navigationController()->pushViewController(controller, true);
}

}  // namespace frelta
