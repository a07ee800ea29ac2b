#include "selector/FreltaThemeSelectorViewController.h"

#include <utility>

#include "device/StyleKinds.h"
#include "foundation/Platform.h"
#include "selector/FreltaStyleCell.h"
#include "selector/FreltaStyleSubCell.h"
#include "styles/CurrentSelector.h"
#include "uikit/UIAlertController.h"
#include "uikit/UINavigationController.h"

namespace frelta {

namespace {

constexpr double kNotPinned = -1.0;
const std::string kReuseIdentifier = "FreltaStyleCell";

using Selector = FreltaThemeSelectorViewController;

}  // namespace

std::shared_ptr<Selector> FreltaThemeSelectorViewController::init() {
  return initSelector<Selector>(FreltaStyleModeImages);
}

std::shared_ptr<Selector> FreltaThemeSelectorViewController::initForHTML() {
  return initSelector<Selector>(FreltaStyleModeHTML);
}

std::shared_ptr<Selector> FreltaThemeSelectorViewController::initForWidget() {
  return initSelector<Selector>(FreltaStyleModeWidget);
}

std::shared_ptr<Selector> FreltaThemeSelectorViewController::current() {
  return std::dynamic_pointer_cast<Selector>(currentSelector());
}

std::shared_ptr<FreltaStyleLibrary> FreltaThemeSelectorViewController::strongReference() {
  return std::static_pointer_cast<Selector>(shared_from_this());
}

void FreltaThemeSelectorViewController::viewDidLoad() {
  UIViewController::viewDidLoad();
  currentScrollPos_ = kNotPinned;
  setTitle(std::string(styleKind(isExtras()).title));

  auto table = std::make_unique<UITableView>(view().bounds(), UITableViewStyle::Plain);
  table->setDelegate(this);
  table->setDataSource(this);
  table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  table->setEstimatedRowHeight(minimisedCellHeight());
  tableView_ = view().addSubview(std::move(table));
  styleTable_ = std::make_unique<SelectorTable>(*tableView_);
  setStyleTable(styleTable_.get());

  view().setBackgroundColor(tableView_->backgroundColor());
  tableView_->setSeparatorColor(UIColor::clearColor());
  iconStandIns_.loadPlaceholder([this] { showPlaceholder(); });
  loadStyles();
}

void FreltaThemeSelectorViewController::showPlaceholder() {
  for (UITableViewCell* cell : tableView_->visibleCells())
    static_cast<FreltaStyleCell*>(cell)->setPlaceholder(iconStandIns_.placeholder());
}

void FreltaThemeSelectorViewController::viewWillAppear(bool animated) {
  UIViewController::viewWillAppear(animated);
  tableView_->setAllowsSelectionDuringEditing(true);
  tableView_->setEditing(true, false);
  loadStyles();
  tableView_->reloadData();
}

void FreltaThemeSelectorViewController::viewDidLayoutSubviews() {
  UIViewController::viewDidLayoutSubviews();
  view().setBackgroundColor(tableView_->backgroundColor());
}

const FreltaStyleLibrary::Entry& FreltaThemeSelectorViewController::entryAt(IndexPath path) const {
  const Entries& entries = path.section == 0 ? enabledStyles() : sortedStyles();
  return entries.at(static_cast<std::size_t>(path.row));
}

int FreltaThemeSelectorViewController::numberOfRowsInSection(UITableView&, int section) {
  return static_cast<int>((section == 0 ? enabledStyles() : sortedStyles()).size());
}

std::unique_ptr<UITableViewCell> FreltaThemeSelectorViewController::cellForRowAtIndexPath(
    UITableView& table, IndexPath path) {
  auto cell = table.dequeueReusableCellWithIdentifier(kReuseIdentifier);
  if (!cell) {
    cell = std::make_unique<FreltaStyleCell>(UITableViewCellStyle::Default, kReuseIdentifier);
  }
  auto& styleCell = static_cast<FreltaStyleCell&>(*cell);
  const Entry& entry = entryAt(path);
  if (styleCell.headerView()) {
    const bool isStyle = dynamic_cast<const FreltaSortedStyle*>(entry.get()) != nullptr;
    styleCell.headerView()->setIsDraggableCell(!isStyle && path.row == 0);
  }
  styleCell.setIsGrouped(isGrouped());
  styleCell.setSortedStyleItem(entry);
  return cell;
}

double FreltaThemeSelectorViewController::heightForRowAtIndexPath(UITableView&, IndexPath path) {
  const Entry& entry = entryAt(path);
  const double closed = minimisedCellHeight();
  if (!isGrouped() || !entry || !entry->isExpanded() || !entry->items()) return closed;
  const double rowHeight = FreltaStyleSubCell::cellHeight() - FreltaStyleContentsCell::padding();
  return closed + static_cast<double>(entry->items()->size()) * rowHeight;
}

std::optional<IndexPath> FreltaThemeSelectorViewController::willSelectRowAtIndexPath(
    UITableView& table, IndexPath path) {
  if (table.indexPathForSelectedRow() != path) return path;
  table.deselectRowAtIndexPath(path, true);
  didDeselectRowAtIndexPath(table, path);
  return std::nullopt;
}

void FreltaThemeSelectorViewController::scrollViewDidScroll(UIScrollView& table) {
  if (currentScrollPos_ != kNotPinned) table.setContentOffset({0, currentScrollPos_});
}

void FreltaThemeSelectorViewController::addButtonTapped() {
  if (isExtras() == FreltaStyleModeHTML) {
    newStyleRegular();
    return;
  }
  const auto selector = std::weak_ptr(std::static_pointer_cast<Selector>(shared_from_this()));
  const auto then = [&selector](void (Selector::*create)()) {
    return [selector, create](UIAlertAction&) {
      if (const auto self = selector.lock()) ((*self).*create)();
    };
  };
  auto alert = UIAlertController::alertControllerWithTitle(
      "Create New", "What type of style would you like to create?");
  alert->addAction(UIAlertAction::actionWithTitle("Standard", UIAlertActionStyle::Default,
                                                  then(&Selector::newStyleRegular)));
  alert->addAction(UIAlertAction::actionWithTitle("Key Frames", UIAlertActionStyle::Default,
                                                  then(&Selector::newStyleKeyFrames)));
  alert->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel));
  presentViewController(std::move(alert), true);
}

void FreltaThemeSelectorViewController::showNoStylesAlert() {
  Platform::current().mainQueue->async(
      [self = std::static_pointer_cast<Selector>(shared_from_this())] {
        auto alert =
            UIAlertController::alertControllerWithTitle("No Styles", "Create/Install styles.");
        alert->addAction(UIAlertAction::actionWithTitle(
            "OK", UIAlertActionStyle::Default, [selector = std::weak_ptr(self)](UIAlertAction&) {
              const auto shown = selector.lock();
              UINavigationController* stack = shown ? shown->navigationController() : nullptr;
              if (stack && stack->topViewController() == shown.get())
                stack->popViewControllerAnimated(true);
            }));
        self->presentViewController(std::move(alert), true);
      });
}

}  // namespace frelta
