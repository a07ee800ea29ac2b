#pragma once

#include "quick/ModalNode.h"
#include "uikit/UIAlertAction.h"
#include "uikit/UIAlertControllerView.h"

namespace frelta {

/// An alert keeps the keyboard to itself.
class AlertNode : public ModalNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QString title MEMBER title_ NOTIFY changed)

 public:
  AlertNode(UIAlertControllerView& view, ViewMirror& mirror) : ModalNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("Alert"); }

  // The Return and the Escape key.
  Q_INVOKABLE void pressDefault();
  Q_INVOKABLE void pressCancel();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void syncContents() override;
  UIView* initialFocus() const override;

 private:
  void press(UIAlertAction* action);
  void moveFocus(bool forwards);
  /// Such as one that the pointer was pressed on and left again: it does not stand out.
  bool isOnButtonWithoutRing() const;

  QString title_;
};

}  // namespace frelta
