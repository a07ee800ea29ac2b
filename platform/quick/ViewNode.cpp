#include "quick/ViewNode.h"

#include <QAccessible>
#include <algorithm>

#include "quick/ShownText.h"
#include "quick/ViewMirror.h"

namespace frelta {

namespace {

int accessibleRole(UIAccessibility::Role role) {
  switch (role) {
    case UIAccessibility::Role::StaticText:
      return QAccessible::StaticText;
    case UIAccessibility::Role::Heading:
      return QAccessible::Heading;
    case UIAccessibility::Role::Button:
      return QAccessible::Button;
    case UIAccessibility::Role::Switch:
      return QAccessible::CheckBox;
    case UIAccessibility::Role::Group:
      return QAccessible::Grouping;
    case UIAccessibility::Role::Link:
      return QAccessible::Link;
    case UIAccessibility::Role::Cell:
      return QAccessible::ListItem;
    case UIAccessibility::Role::None:
      break;
  }
  return QAccessible::Pane;
}

}  // namespace

ViewNode::ViewNode(UIView& view, ViewMirror& mirror) : mirror_(mirror), view_(&view) {
  view.setObserver(this);
}

ViewNode::~ViewNode() {
  letGoOfView();
  mirror_.forget(*this);
  // Bindings of the item read the node to the last, but its signals are for what is no more.
  if (item_) item_->disconnect(this);
  delete item_;
}

void ViewNode::letGoOfView() {
  if (view_) view_->setObserver(nullptr);
  view_ = nullptr;
}

Theme* ViewNode::theme() const {
  return &mirror_.theme();
}

void ViewNode::syncTree(QQuickItem* parentItem) {
  if (!item_) {
    sync();
    item_ = mirror_.makeItem(*this);
    itemMade();
    syncGeometry();
  }
  const bool comesBack = item_->parentItem() != parentItem;
  if (comesBack) item_->setParentItem(parentItem);
  // What changed below it while it was away does not show in its own round.
  if (comesBack || round_ != mirror_.round()) catchUp();
  if (treeDirty_) syncChildren();
}

void ViewNode::syncChildren() {
  treeDirty_ = false;
  auto* content = item_->property("content").value<QQuickItem*>();
  if (!content) content = item_;
  QList<QQuickItem*> kept;
  QQuickItem* previous = nullptr;
  // An item being made may move the keyboard, whose news may change the subviews.
  for (std::size_t i = 0; i < view_->subviews().size(); ++i) {
    ViewNode& node = mirror_.nodeFor(*view_->subviews()[i]);
    node.syncTree(content);
    if (previous) node.item()->stackAfter(previous);
    previous = node.item();
    kept.append(previous);
  }
  for (QQuickItem* child : content->childItems()) {
    if (mirror_.isMirrorItem(child) && !kept.contains(child)) child->setParentItem(nullptr);
  }
}

void ViewNode::catchUp() {
  if (round_ != mirror_.round()) sync();
  for (const auto& subview : view_->subviews()) {
    if (auto* node = dynamic_cast<ViewNode*>(subview->observer())) node->catchUp();
  }
}

void ViewNode::sync() {
  dirty_ = false;
  if (!view_) return;
  // What covers the view is not known while it is in no window: then it has yet to catch up.
  round_ = mirror_.isInTree(*view_) ? mirror_.round() : kNoRound;
  const std::optional<UIColor> color = view_->presentation().backgroundColor;
  backgroundColor_ = color ? mirror_.theme().resolve(*color) : QColor(Qt::transparent);
  cornerRadius_ = view_->cornerRadius();
  masked_ = view_->maskLayer().has_value();
  syncAccessibility();
  syncContents();
  if (item_) syncGeometry();
  if (view_->isAnimating()) mirror_.followAnimation(*this);
  Q_EMIT changed();
}

void ViewNode::syncMask() {
  const std::optional<CAShapeLayer>& mask = view_->maskLayer();
  if (!mask) {
    delete maskedBox_;
    return;
  }
  if (!maskedBox_) maskedBox_ = new MaskedBoxItem(item_);
  maskedBox_->show(backgroundColor_, *mask, item_->size());
}

void ViewNode::syncAccessibility() {
  using Role = UIAccessibility::Role;
  const UIAccessibility accessibility = view_->accessibility();
  bool insideElement = false;
  for (const UIView* above = view_->superview(); above && !insideElement;
       above = above->superview()) {
    const UIAccessibility outer = above->accessibility();
    // A group that has a name says with it what the texts in it say.
    const bool namedGroup = outer.role == Role::Group && !outer.label.empty();
    insideElement = outer.isElement || (namedGroup && accessibility.role == Role::StaticText);
  }
  const bool container = accessibility.role == Role::Group;
  accessibleHidden_ = !mirror_.isReachable(*view_);
  accessibleIgnored_ = accessibleHidden_ || view_->isHidden() || insideElement ||
                       !(accessibility.isElement || container);
  accessibleRole_ = accessibleRole(accessibility.role);
  QString name = shownText(accessibility.label);
  const QString value = shownText(accessibility.value);
  accessibleDescription_ = container ? value : QString();
  if (!container && !value.isEmpty()) name += QStringLiteral(", ") + value;
  accessibleName_ = name;
  accessibleCheckable_ = accessibility.role == UIAccessibility::Role::Switch || accessibility.on;
  accessibleChecked_ = accessibility.on;
}

void ViewNode::syncGeometry() {
  const UIViewPresentation shown = view_->presentation();
  const CGRect& frame = shown.frame;
  double x = frame.minX();
  if (mirror_.isRightToLeft() && view_->superview()) {
    x = view_->superview()->presentation().frame.size.width - frame.maxX();
  }
  item_->setPosition({x, frame.minY()});
  const bool isNewWidth = item_->width() != frame.size.width;
  item_->setSize({frame.size.width, frame.size.height});
  if (isNewWidth && mirror_.isRightToLeft()) {
    // The subviews keep their distance to the other edge.
    for (const auto& subview : view_->subviews()) mirror_.nodeFor(*subview).viewDidChange(*subview);
  }
  item_->setOpacity(shown.alpha);
  item_->setVisible(!view_->isHidden());
  item_->setClip(clips());
  syncMask();
}

// A node that is dirty already is in the mirror's list, or has no item yet and is synced with it.
void ViewNode::viewDidChange(UIView&) {
  if (dirty_) return;
  dirty_ = true;
  mirror_.markDirty(*this);
}

void ViewNode::viewDidChangeSubviews(UIView&) {
  if (treeDirty_) return;
  treeDirty_ = true;
  mirror_.markDirty(*this);
}

void ViewNode::viewNeedsLayout(UIView&) {
  mirror_.scheduleFlush();
}

void ViewNode::viewWillBeDestroyed(UIView&) {
  view_ = nullptr;
  if (item_) item_->setParentItem(nullptr);
  mirror_.retire(*this);
}

}  // namespace frelta
