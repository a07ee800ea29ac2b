#include "quick/TableNodes.h"

#include "quick/EventGuard.h"
#include "quick/Fonts.h"
#include "quick/ViewMirror.h"

namespace frelta {

namespace {

UITableView* tableOf(const UIView& cell) {
  return dynamic_cast<UITableView*>(cell.superview());
}

/// Does the work with the cell's place in its table, unless the cell is in none any more.
template <typename Work>
void withRow(const ViewNode& node, Work&& work) {
  if (!node.view()) return;
  guardEvent([&] {
    const auto& cell = *viewAs<UITableViewCell>(node);
    UITableView* table = tableOf(cell);
    const auto path = table ? table->indexPathForCell(cell) : std::nullopt;
    if (path) work(*table, *path);
  });
}

}  // namespace

TableNode::TableNode(UITableView& table, ViewMirror& mirror) : ViewNode(table, mirror) {
  connect(&mirror, &ViewMirror::sideMarginChanged, this, &TableNode::sideMarginChanged);
}

double TableNode::sideMargin() const {
  return mirror().sideMargin();
}

void TableNode::syncContents() {
  const UITableView& table = *viewAs<UITableView>(*this);
  contentHeight_ = table.contentSize().height;
  contentY_ = table.contentOffset().y;
  const auto cells = table.visibleCells();
  const bool goesOn = table.style() == UITableViewStyle::Plain && !cells.empty();
  const auto ground = goesOn ? cells.back()->backgroundColor() : std::nullopt;
  groundBelow_ = ground ? mirror().theme().resolve(*ground) : QColor(Qt::transparent);
  title_.clear();
  for (const UIView* view = &table; view && title_.isEmpty(); view = view->superview())
    title_ = QString::fromStdString(view->accessibility().label);
}

void TableNode::scrolledTo(double y) {
  if (!view()) return;
  guardEvent([this, y] { viewAs<UITableView>(*this)->userDidScroll({0, y}); });
  // Rows must be there in the frame that shows them.
  mirror().flush();
}

void TableNode::makeVisible(QQuickItem* item) {
  if (!view() || !item || !this->item()) return;
  auto* content = this->item()->property("content").value<QQuickItem*>();
  if (!content || !content->isAncestorOf(item)) return;
  const QRectF rect = item->mapRectToItem(content, {0, 0, item->width(), item->height()});
  viewAs<UITableView>(*this)->scrollRectToVisible(
      {rect.x(), rect.y(), rect.width(), rect.height()});
}

void CellNode::syncContents() {
  const UITableViewCell& cell = *viewAs<UITableViewCell>(*this);
  using Position = UITableViewCellGroupPosition;
  const Position position = cell.groupPosition();
  roundedTop_ = position == Position::First || position == Position::Single;
  roundedBottom_ = position == Position::Last || position == Position::Single;
  separatorColor_ = mirror().theme().resolve(cell.separatorColor());
  separator_ = !roundedBottom_ && separatorColor_.alpha() > 0;
  separatorInset_ = cell.separatorInset();
  disclosure_ = !cell.accessoryView() &&
                cell.accessoryType() == UITableViewCellAccessoryType::DisclosureIndicator;
  checkmark_ =
      !cell.accessoryView() && cell.accessoryType() == UITableViewCellAccessoryType::Checkmark;
  selectable_ = cell.selectionStyle() != UITableViewCellSelectionStyle::None;
  const UIAccessibility accessibility = cell.accessibility();
  using Role = UIAccessibility::Role;
  focusable_ = accessibility.role == Role::Group ||
               (accessibility.isElement && accessibility.role != Role::StaticText &&
                accessibility.role != Role::Heading);
  selected_ = cell.isSelected();
  mirrored_ = mirror().isRightToLeft();
  editable_ = cell.isEditable();
  if (!cell.rowActions().empty()) setActions(cell.rowActions());
  if (actionsOpen_ == cell.rowActions().empty()) {
    actionsOpen_ = !actionsOpen_;
    Q_EMIT actionsOpenChanged();
  }
}

void CellNode::tap() {
  withRow(*this,
          [](UITableView& table, IndexPath path) { table.userDidSelectRowAtIndexPath(path); });
}

void CellNode::activate() {
  if (!view()) return;
  bool taken = false;
  guardEvent([&] { taken = viewAs<UITableViewCell>(*this)->accessibilityActivate(); });
  if (!taken) tap();
}

void CellNode::openActions() {
  withRow(*this,
          [](UITableView& table, IndexPath path) { table.userDidSwipeRowAtIndexPath(path); });
  // The row starts to move at once.
  mirror().flush();
}

void CellNode::closeActions() {
  withRow(*this, [](UITableView& table, IndexPath path) {
    if (table.indexPathForSwipedRow() == path) table.closeSwipedRow();
  });
  mirror().flush();
}

void CellNode::askActions() {
  withRow(*this, [this](UITableView& table, IndexPath path) {
    setActions(table.rowActionsForRowAtIndexPath(path));
  });
}

void CellNode::pressAction(int index) {
  if (index < 0 || index >= static_cast<int>(actions_.size())) return;
  withRow(*this,
          [action = actions_[static_cast<std::size_t>(index)]](UITableView& table, IndexPath path) {
            table.userDidPressRowAction(action, path);
          });
}

void CellNode::pressDelete() {
  askActions();
  // Its style may be the normal one: only the name tells.
  pressAction(static_cast<int>(actionTitles_.indexOf(QStringLiteral("Delete"))));
}

void CellNode::setActions(UITableViewRowActions actions) {
  actions_ = std::move(actions);
  actionTitles_.clear();
  actionColors_.clear();
  for (const auto& action : actions_) {
    actionTitles_.append(QString::fromStdString(action->title()));
    actionColors_.append(mirror().theme().resolve(action->backgroundColor()));
  }
  actionFont_ = qtFont(UIFont::systemFontOfSize(15));
  Q_EMIT actionsChanged();
}

}  // namespace frelta
