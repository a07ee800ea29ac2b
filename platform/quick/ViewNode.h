#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>
#include <QPointer>
#include <QQuickItem>

#include "quick/MaskedBoxItem.h"
#include "quick/Theme.h"
#include "uikit/UIView.h"

namespace frelta {

class ViewMirror;

/// Mirrors one view on the screen: a snapshot of what can be seen of it, for the QML item that
/// shows it. sync() takes the snapshot, so that an item being taken down never reaches a view that
/// is gone.
class ViewNode : public QObject, public UIViewObserver {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(Theme* theme READ theme CONSTANT)
  Q_PROPERTY(QColor backgroundColor MEMBER backgroundColor_ NOTIFY changed)
  Q_PROPERTY(double cornerRadius MEMBER cornerRadius_ NOTIFY changed)
  Q_PROPERTY(bool masked MEMBER masked_ NOTIFY changed)
  Q_PROPERTY(bool accessibleIgnored MEMBER accessibleIgnored_ NOTIFY changed)
  /// Whether something presented covers it, which hides all that is in it.
  Q_PROPERTY(bool accessibleHidden MEMBER accessibleHidden_ NOTIFY changed)
  Q_PROPERTY(int accessibleRole MEMBER accessibleRole_ NOTIFY changed)
  Q_PROPERTY(QString accessibleName MEMBER accessibleName_ NOTIFY changed)
  Q_PROPERTY(QString accessibleDescription MEMBER accessibleDescription_ NOTIFY changed)
  Q_PROPERTY(bool accessibleCheckable MEMBER accessibleCheckable_ NOTIFY changed)
  Q_PROPERTY(bool accessibleChecked MEMBER accessibleChecked_ NOTIFY changed)

 public:
  ViewNode(UIView& view, ViewMirror& mirror);
  ~ViewNode() override;

  /// Name of the QML file that shows the node, without its ending.
  virtual QString looks() const { return QStringLiteral("View"); }

  Theme* theme() const;
  UIView* view() const { return view_; }
  QQuickItem* item() const { return item_; }

  /// Makes the item and those of the subviews, as far as they are missing; puts them in order.
  void syncTree(QQuickItem* parentItem);
  void sync();
  /// Takes the snapshots of the view and all below it that are from before the mirror's last round.
  void catchUp();
  /// Stops the watch; the node is of no use then.
  void letGoOfView();

  void viewDidChange(UIView& view) override;
  void viewDidChangeSubviews(UIView& view) override;
  void viewNeedsLayout(UIView& view) override;
  void viewWillBeDestroyed(UIView& view) override;

 Q_SIGNALS:
  void changed();

 protected:
  /// Takes the snapshot of what is special to the kind of view.
  virtual void syncContents() {}
  /// Called once, when the item has been made.
  virtual void itemMade() {}
  virtual bool clips() const { return view_->clipsToBounds(); }
  ViewMirror& mirror() const { return mirror_; }

 private:
  friend class ViewMirror;
  void syncAccessibility();
  void syncMask();
  void syncGeometry();
  void syncChildren();

  ViewMirror& mirror_;
  UIView* view_;  // null once it is gone
  QPointer<QQuickItem> item_;
  bool treeDirty_ = true;
  bool dirty_ = true;
  static constexpr unsigned kNoRound = -1U;
  unsigned round_ = 0;  // of the mirror, when the snapshot was taken; none while out of the tree

  QColor backgroundColor_ = Qt::transparent;
  double cornerRadius_ = 0;
  bool masked_ = false;
  QPointer<MaskedBoxItem> maskedBox_;  // in the item, which owns it; null while nothing is masked
  bool accessibleIgnored_ = true;
  bool accessibleHidden_ = false;
  int accessibleRole_ = 0;
  QString accessibleName_;
  QString accessibleDescription_;
  bool accessibleCheckable_ = false;
  bool accessibleChecked_ = false;
};

/// The view as the type that the node mirrors; null once it is gone.
template <typename View>
View* viewAs(const ViewNode& node) {
  return static_cast<View*>(node.view());
}

}  // namespace frelta
