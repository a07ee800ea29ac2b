#pragma once

#include <QPointer>
#include <QQuickWindow>

#include "quick/ViewNode.h"

namespace frelta {

/// What lies over the whole window takes the keyboard, and hands it back to what had it before.
class ModalNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(double sideMargin READ sideMargin NOTIFY sideMarginChanged)

 public:
  ModalNode(UIView& view, ViewMirror& mirror);
  double sideMargin() const;

 Q_SIGNALS:
  void sideMarginChanged();

 protected:
  void itemMade() override;
  /// The view that takes the keyboard first; null for the item itself.
  virtual UIView* initialFocus() const { return nullptr; }
  QQuickWindow* window() const { return window_; }

 private:
  void windowChanged(QQuickWindow* window);
  void takeKeyboard();

  QPointer<QQuickWindow> window_;
  QPointer<QQuickItem> focusBefore_;
};

}  // namespace frelta
