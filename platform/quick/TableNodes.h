#pragma once

#include <QFont>
#include <QStringList>
#include <QVariantList>

#include "quick/ViewNode.h"
#include "uikit/UITableView.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

class ReorderControlNode : public ViewNode {
 public:
  using ViewNode::ViewNode;
  QString looks() const override { return QStringLiteral("ReorderControl"); }
};

class TableNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(double contentHeight MEMBER contentHeight_ NOTIFY changed)
  Q_PROPERTY(double contentY MEMBER contentY_ NOTIFY changed)
  /// The title of the page that it is on.
  Q_PROPERTY(QString title MEMBER title_ NOTIFY changed)
  Q_PROPERTY(double sideMargin READ sideMargin NOTIFY sideMarginChanged)
  /// Of a plain table's last row, which goes on below it; see-through otherwise.
  Q_PROPERTY(QColor groundBelow MEMBER groundBelow_ NOTIFY changed)

 public:
  TableNode(UITableView& table, ViewMirror& mirror);
  QString looks() const override { return QStringLiteral("TableView"); }
  double sideMargin() const;

  Q_INVOKABLE void scrolledTo(double y);
  /// Scrolls to where the item, one of the table's content, can be seen whole.
  Q_INVOKABLE void makeVisible(QQuickItem* item);

 Q_SIGNALS:
  void sideMarginChanged();

 protected:
  void syncContents() override;
  // What scrolls is clipped at the edges of the window, not of the column.
  bool clips() const override { return false; }

 private:
  double contentHeight_ = 0;
  double contentY_ = 0;
  QColor groundBelow_ = Qt::transparent;
  QString title_;
};

class CellNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(bool roundedTop MEMBER roundedTop_ NOTIFY changed)
  Q_PROPERTY(bool roundedBottom MEMBER roundedBottom_ NOTIFY changed)
  Q_PROPERTY(bool separator MEMBER separator_ NOTIFY changed)
  Q_PROPERTY(QColor separatorColor MEMBER separatorColor_ NOTIFY changed)
  Q_PROPERTY(double separatorInset MEMBER separatorInset_ NOTIFY changed)
  Q_PROPERTY(bool disclosure MEMBER disclosure_ NOTIFY changed)
  Q_PROPERTY(bool checkmark MEMBER checkmark_ NOTIFY changed)
  Q_PROPERTY(bool selectable MEMBER selectable_ NOTIFY changed)
  Q_PROPERTY(bool focusable MEMBER focusable_ NOTIFY changed)
  Q_PROPERTY(bool selected MEMBER selected_ NOTIFY changed)
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)
  Q_PROPERTY(bool editable MEMBER editable_ NOTIFY changed)
  Q_PROPERTY(bool actionsOpen MEMBER actionsOpen_ NOTIFY actionsOpenChanged)
  // Of the actions asked for last; they stay for the row to close over them.
  Q_PROPERTY(QStringList actionTitles MEMBER actionTitles_ NOTIFY actionsChanged)
  Q_PROPERTY(QVariantList actionColors MEMBER actionColors_ NOTIFY actionsChanged)
  Q_PROPERTY(QFont actionFont MEMBER actionFont_ NOTIFY actionsChanged)

 public:
  CellNode(UITableViewCell& cell, ViewMirror& mirror) : ViewNode(cell, mirror) {}
  QString looks() const override { return QStringLiteral("TableViewCell"); }

  /// A tap on the row.
  Q_INVOKABLE void tap();
  /// A press by keyboard or assistive technology.
  Q_INVOKABLE void activate();
  /// Moves the row aside for its actions, and back.
  Q_INVOKABLE void openActions();
  Q_INVOKABLE void closeActions();
  /// Asks for the actions and leaves the row where it is.
  Q_INVOKABLE void askActions();
  Q_INVOKABLE void pressAction(int index);
  /// The Delete key: presses the action of that name, if the row has one.
  Q_INVOKABLE void pressDelete();

 Q_SIGNALS:
  void actionsOpenChanged();
  void actionsChanged();

 protected:
  void syncContents() override;

 private:
  void setActions(UITableViewRowActions actions);

  bool roundedTop_ = false;
  bool roundedBottom_ = false;
  bool separator_ = true;
  QColor separatorColor_;
  double separatorInset_ = 0;
  bool disclosure_ = false;
  bool checkmark_ = false;
  bool selectable_ = false;
  bool focusable_ = false;
  bool selected_ = false;
  bool mirrored_ = false;
  bool editable_ = false;
  bool actionsOpen_ = false;
  UITableViewRowActions actions_;
  QStringList actionTitles_;
  QVariantList actionColors_;
  QFont actionFont_;
};

}  // namespace frelta
