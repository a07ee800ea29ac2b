#pragma once

#include <QFont>

#include "quick/ElidedText.h"
#include "quick/ViewNode.h"
#include "uikit/UILabel.h"
#include "uikit/UITextField.h"

namespace frelta {

class LabelNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QString text MEMBER text_ NOTIFY changed)
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(int alignment MEMBER alignment_ NOTIFY changed)
  Q_PROPERTY(int lines MEMBER lines_ NOTIFY changed)
  Q_PROPERTY(int minimumPixelSize MEMBER minimumPixelSize_ NOTIFY changed)
  Q_PROPERTY(bool elidesMiddle MEMBER elidesMiddle_ NOTIFY changed)

 public:
  LabelNode(UILabel& label, ViewMirror& mirror) : ViewNode(label, mirror) {}
  QString looks() const override { return QStringLiteral("Label"); }

 protected:
  void syncContents() override;

 private:
  QString text_;
  QFont font_;
  QColor color_;
  int alignment_ = Qt::AlignLeft;
  int lines_ = 1;             // 0 for any number
  int minimumPixelSize_ = 0;  // 0: the text does not shrink
  bool elidesMiddle_ = false;
};

class TextFieldNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QString text MEMBER text_ NOTIFY changed)
  Q_PROPERTY(QString placeholder MEMBER placeholder_ NOTIFY changed)
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY changed)
  Q_PROPERTY(int alignment MEMBER alignment_ NOTIFY changed)
  Q_PROPERTY(bool clearButton MEMBER clearButton_ NOTIFY changed)
  Q_PROPERTY(bool editing MEMBER editing_ NOTIFY changed)
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)
  Q_PROPERTY(bool enabled MEMBER enabled_ NOTIFY changed)

 public:
  TextFieldNode(UITextField& field, ViewMirror& mirror) : ViewNode(field, mirror) {}
  QString looks() const override { return QStringLiteral("TextField"); }

  /// What the item shows now.
  Q_INVOKABLE void edited(const QString& shown);
  /// Puts the clipboard, or the mouse's selection, in the place of that range of what is shown.
  Q_INVOKABLE void paste(int start, int end, bool mouseSelection);
  /// Puts what stands for that range of what is shown on the clipboard.
  Q_INVOKABLE void copy(int start, int end) const;
  Q_INVOKABLE void focusChanged(bool focused);

 protected:
  void syncContents() override;

 private:
  ElidedText elided_;
  QString text_;  // what is shown of it
  QString placeholder_;
  QFont font_;
  int alignment_ = Qt::AlignLeft;
  bool clearButton_ = false;
  bool editing_ = false;
  bool mirrored_ = false;
  bool enabled_ = true;
};

}  // namespace frelta
