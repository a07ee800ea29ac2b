#pragma once

#include <QFont>
#include <QQuickTextDocument>

#include "quick/LongText.h"
#include "quick/ViewNode.h"
#include "uikit/UITextView.h"

namespace frelta {

class TextViewNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY changed)
  Q_PROPERTY(int alignment MEMBER alignment_ NOTIFY changed)

 public:
  TextViewNode(UITextView& view, ViewMirror& mirror) : ViewNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("TextView"); }

  /// Puts what is selected in the editor on the clipboard.
  Q_INVOKABLE void copy(const QString& selected);

 protected:
  void syncContents() override;
  void itemMade() override;

 private:
  void fill();

  QString text_;
  QFont font_;
  int alignment_ = Qt::AlignLeft;
  LongText longText_;
  // What the document was filled with.
  QString shownText_;
  double shownWidth_ = -1;
};

}  // namespace frelta
