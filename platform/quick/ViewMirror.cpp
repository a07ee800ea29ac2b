#include "quick/ViewMirror.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <algorithm>
#include <utility>

#include "quick/AlertNode.h"
#include "quick/ControlNodes.h"
#include "quick/EventGuard.h"
#include "quick/ImageNode.h"
#include "quick/PickerNode.h"
#include "quick/TableNodes.h"
#include "quick/TextNodes.h"
#include "quick/TextViewNode.h"
#include "uikit/UINavigationBar.h"
#include "uikit/UITableViewCellReorderControl.h"

namespace frelta {

namespace {
// Layout may ask for layout again; views that never agree must not stop the window.
constexpr int kMaximumPasses = 4;

QUrl urlOf(const QString& looks) {
  return QUrl(QStringLiteral("qrc:/Frelta/Quick/qml/%1.qml").arg(looks));
}

}  // namespace

ViewMirror::ViewMirror(UIView& root, QQuickItem& rootItem) : root_(root), rootItem_(rootItem) {
  engine_.addImportPath(QStringLiteral("qrc:/"));
  // The rows take a while to load, which the views' first layout need not wait for.
  new QQmlComponent(&engine_, urlOf(QStringLiteral("TableViewCell")), QQmlComponent::Asynchronous,
                    &engine_);
  nodeFor(root);
  scheduleFlush();
}

ViewMirror::~ViewMirror() {
  // An item that loses the keyboard on its way down must not tell a view of it.
  for (ViewNode* node : std::as_const(nodes_)) node->letGoOfView();
  while (!nodes_.isEmpty()) delete *nodes_.begin();
  while (!orphans_.isEmpty()) delete *orphans_.begin();
}

void ViewMirror::setStyle(UserInterfaceStyle style, bool highContrast, bool reducedMotion) {
  theme_.setStyle(style, highContrast, reducedMotion);
  // What views make of the colours that they see now.
  UIView::setAllNeedLayout();
  root_.setNeedsLayout();
  syncAll();
}

void ViewMirror::syncAll() {
  ++round_;
  // Rows that come with new colours make new nodes.
  const QSet<ViewNode*> nodes = nodes_;
  for (ViewNode* node : nodes) {
    if (node->view() && isInTree(*node->view())) node->sync();
  }
}

const UIView* ViewMirror::frontLayer() const {
  return root_.subviews().empty() ? nullptr : root_.subviews().back().get();
}

bool ViewMirror::isInTree(const UIView& view) const {
  return view.isDescendantOfView(root_);
}

bool ViewMirror::isReachable(const UIView& view) const {
  const UIView* front = frontLayer();
  return front && view.isDescendantOfView(*front);
}

bool ViewMirror::isRightToLeft() const {
  return QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

void ViewMirror::setSideMargin(double margin) {
  if (margin == sideMargin_) return;
  sideMargin_ = margin;
  Q_EMIT sideMarginChanged();
}

ViewNode& ViewMirror::nodeFor(UIView& view) {
  if (auto* known = dynamic_cast<ViewNode*>(view.observer())) return *known;
  ViewNode* node = makeNode(view).release();
  nodes_.insert(node);
  return *node;
}

std::unique_ptr<ViewNode> ViewMirror::makeNode(UIView& view) {
  // The most derived kinds come first.
  if (auto* v = dynamic_cast<UITableView*>(&view)) return std::make_unique<TableNode>(*v, *this);
  if (auto* v = dynamic_cast<UITableViewCell*>(&view)) return std::make_unique<CellNode>(*v, *this);
  if (auto* v = dynamic_cast<UILabel*>(&view)) return std::make_unique<LabelNode>(*v, *this);
  if (auto* v = dynamic_cast<UIImageView*>(&view)) return std::make_unique<ImageNode>(*v, *this);
  if (auto* v = dynamic_cast<UIButton*>(&view)) return std::make_unique<ButtonNode>(*v, *this);
  if (auto* v = dynamic_cast<UISwitch*>(&view)) return std::make_unique<SwitchNode>(*v, *this);
  if (auto* v = dynamic_cast<UISegmentedControl*>(&view)) {
    return std::make_unique<SegmentedNode>(*v, *this);
  }
  if (auto* v = dynamic_cast<UITextField*>(&view))
    return std::make_unique<TextFieldNode>(*v, *this);
  if (auto* v = dynamic_cast<UISlider*>(&view)) return std::make_unique<SliderNode>(*v, *this);
  if (auto* v = dynamic_cast<UINavigationBar*>(&view)) {
    return std::make_unique<NavigationBarNode>(*v, *this);
  }
  if (auto* v = dynamic_cast<UITextView*>(&view)) return std::make_unique<TextViewNode>(*v, *this);
  if (auto* v = dynamic_cast<UIImagePickerControllerView*>(&view)) {
    return std::make_unique<PickerNode>(*v, *this);
  }
  if (auto* v = dynamic_cast<UIAlertControllerView*>(&view)) {
    return std::make_unique<AlertNode>(*v, *this);
  }
  if (auto* v = dynamic_cast<UITableViewCellReorderControl*>(&view)) {
    return std::make_unique<ReorderControlNode>(*v, *this);
  }
  return std::make_unique<ViewNode>(view, *this);
}

QQmlComponent& ViewMirror::componentFor(const QString& looks) {
  QQmlComponent*& component = components_[looks];
  if (!component) {
    component =
        new QQmlComponent(&engine_, urlOf(looks), QQmlComponent::PreferSynchronous, &engine_);
    if (component->isError()) qFatal("%s", qPrintable(component->errorString()));
  }
  return *component;
}

QQuickItem* ViewMirror::makeItem(ViewNode& node) {
  QQmlComponent& component = componentFor(node.looks());
  QObject* object =
      component.createWithInitialProperties({{QStringLiteral("node"), QVariant::fromValue(&node)}});
  auto* item = qobject_cast<QQuickItem*>(object);
  if (!item) qFatal("%s", qPrintable(component.errorString()));
  QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
  items_.insert(item);
  connect(item, &QObject::destroyed, this, [this, item] { items_.remove(item); });
  return item;
}

void ViewMirror::markDirty(ViewNode& node) {
  dirty_.push_back(&node);
  scheduleFlush();
}

void ViewMirror::forget(ViewNode& node) {
  nodes_.remove(&node);
  orphans_.remove(&node);
  animated_.remove(&node);
  std::erase(dirty_, &node);
}

void ViewMirror::retire(ViewNode& node) {
  forget(node);
  orphans_.insert(&node);
  node.deleteLater();
}

void ViewMirror::scheduleFlush() {
  if (flushScheduled_ || flushing_) return;
  flushScheduled_ = true;
  QMetaObject::invokeMethod(this, &ViewMirror::flush, Qt::QueuedConnection);
}

void ViewMirror::layoutTables() {
  for (ViewNode* node : std::as_const(nodes_)) {
    if (dynamic_cast<UITableView*>(node->view())) node->view()->setNeedsLayout();
  }
}

void ViewMirror::advanceAnimations() {
  for (ViewNode* node : std::exchange(animated_, {})) node->viewDidChange(*node->view());
}

void ViewMirror::flush() {
  if (flushing_) return;
  flushScheduled_ = false;
  // A window that has no size yet would lay everything out for nothing.
  if (root_.frame().size == CGSize()) return;
  flushing_ = true;
  advanceAnimations();
  for (int pass = 0; pass < kMaximumPasses; ++pass) {
    guardEvent([this] { root_.layoutIfNeeded(); });
    if (pass > 0 && dirty_.empty()) break;
    if (std::exchange(shownFrontLayer_, frontLayer()) != frontLayer()) syncAll();
    // An item being made or set may answer with further changes.
    std::vector<ViewNode*> dirty;
    dirty.swap(dirty_);
    nodeFor(root_).syncTree(&rootItem_);
    for (ViewNode* node : dirty) {
      if (!nodes_.contains(node) || !node->item()) continue;
      if (node->dirty_) node->sync();
      if (node->treeDirty_) node->syncChildren();
    }
  }
  flushing_ = false;
  if (!dirty_.empty()) scheduleFlush();
  if (!animated_.isEmpty() && rootItem_.window()) rootItem_.window()->update();
}

}  // namespace frelta
