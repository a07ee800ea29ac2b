#pragma once

#include <QHash>
#include <QObject>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSet>
#include <memory>
#include <vector>

#include "quick/ImageTextures.h"
#include "quick/Theme.h"
#include "quick/ViewNode.h"
#include "uikit/UIView.h"

namespace frelta {

/// Keeps a tree of items in a window the same as a tree of views. Changes are gathered and carried
/// over at once before the next frame.
class ViewMirror : public QObject {
  Q_OBJECT

 public:
  /// Mirrors the root's tree below the item. Neither is owned; both outlive the mirror.
  ViewMirror(UIView& root, QQuickItem& rootItem);
  ~ViewMirror() override;

  Theme& theme() { return theme_; }
  /// Everything is drawn anew in the appearance.
  void setStyle(UserInterfaceStyle style, bool highContrast = false, bool reducedMotion = false);

  bool isRightToLeft() const;
  /// Points between each side of the column of views and the window's edge.
  double sideMargin() const { return sideMargin_; }
  void setSideMargin(double margin);

  /// Whether the view is in the front-most of the window's layers; an alert keeps assistive
  /// technology from what it covers.
  bool isReachable(const UIView& view) const;

  /// Whether the view is in the window now; others wait to come back.
  bool isInTree(const UIView& view) const;
  ViewNode& nodeFor(UIView& view);
  QQuickItem* makeItem(ViewNode& node);
  /// One for each view that has been shown and is not gone.
  const QSet<ViewNode*>& nodes() const { return nodes_; }
  bool isMirrorItem(QQuickItem* item) const { return items_.contains(item); }

  ImageTextures& textures() { return textures_; }

  /// How often everything was taken anew so far. A node from before, whose view was in no window
  /// then, catches up when the view comes back.
  unsigned round() const { return round_; }
  void markDirty(ViewNode& node);
  /// Has the node synchronised for each frame until what its view shows stands still.
  void followAnimation(ViewNode& node) { animated_.insert(&node); }
  void forget(ViewNode& node);
  /// The node's view is gone; the node goes when the event at hand has been handled, for it may be
  /// its item that handles it.
  void retire(ViewNode& node);
  void scheduleFlush();
  /// Has every table lay its rows out anew.
  void layoutTables();
  /// Lays the views out and carries the changes over now.
  void flush();
  /// Whether every change has been carried over, and what was taken down is gone.
  bool isSettled() const { return !flushScheduled_ && dirty_.empty() && orphans_.isEmpty(); }

 Q_SIGNALS:
  void sideMarginChanged();

 private:
  void advanceAnimations();
  std::unique_ptr<ViewNode> makeNode(UIView& view);
  void syncAll();
  /// Null for an empty window.
  const UIView* frontLayer() const;
  QQmlComponent& componentFor(const QString& looks);

  UIView& root_;
  QQuickItem& rootItem_;
  QQmlEngine engine_;
  Theme theme_;
  QHash<QString, QQmlComponent*> components_;  // owned by the engine
  QSet<QQuickItem*> items_;                    // alive, owned by their nodes
  QSet<ViewNode*> nodes_;
  QSet<ViewNode*> orphans_;   // waiting for their deletion
  QSet<ViewNode*> animated_;  // of nodes_
  std::vector<ViewNode*> dirty_;
  ImageTextures textures_;
  const UIView* shownFrontLayer_ = nullptr;  // at the last flush; it may be gone
  unsigned round_ = 0;
  double sideMargin_ = 0;
  bool flushScheduled_ = false;
  bool flushing_ = false;
};

}  // namespace frelta
