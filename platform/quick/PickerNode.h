#pragma once

#include <QFont>

#include "quick/ModalNode.h"
#include "uikit/UIImagePickerController.h"

namespace frelta {

class PickerNode : public ModalNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(bool busy MEMBER busy_ NOTIFY changed)
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY changed)

 public:
  PickerNode(UIImagePickerControllerView& view, ViewMirror& mirror) : ModalNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("Picker"); }

  /// The Escape key.
  Q_INVOKABLE void cancel();

 protected:
  void syncContents() override;

 private:
  bool busy_ = false;
  QFont font_;
};

}  // namespace frelta
