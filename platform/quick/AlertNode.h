#pragma once

#include <QPointer>

#include "quick/ViewNode.h"
#include "uikit/UIAlertAction.h"
#include "uikit/UIAlertControllerView.h"

namespace frelta {

/// An alert keeps the keyboard to itself, and hands it back to what had it before.
class AlertNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QString title MEMBER title_ NOTIFY changed)
  Q_PROPERTY(double sideMargin READ sideMargin NOTIFY sideMarginChanged)

 public:
  AlertNode(UIAlertControllerView& view, ViewMirror& mirror);
  QString looks() const override { return QStringLiteral("Alert"); }
  double sideMargin() const;

  // The Return and the Escape key.
  Q_INVOKABLE void pressDefault();
  Q_INVOKABLE void pressCancel();

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void sideMarginChanged();

 protected:
  void syncContents() override;
  void itemMade() override;

 private:
  void press(UIAlertAction* action);
  void windowChanged(QQuickWindow* window);
  void takeKeyboard();
  void moveFocus(bool forwards);

  QString title_;
  QPointer<QQuickWindow> window_;
  QPointer<QQuickItem> focusBefore_;
};

}  // namespace frelta
