#pragma once

#include <QFont>
#include <QStringList>

#include "quick/ViewNode.h"
#include "uikit/UIButton.h"
#include "uikit/UINavigationBar.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISlider.h"
#include "uikit/UISwitch.h"

namespace frelta {

class ButtonNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QString title MEMBER title_ NOTIFY changed)
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(bool back MEMBER back_ NOTIFY changed)
  Q_PROPERTY(bool add MEMBER add_ NOTIFY changed)
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)
  Q_PROPERTY(bool enabled MEMBER enabled_ NOTIFY changed)

 public:
  ButtonNode(UIButton& button, ViewMirror& mirror) : ViewNode(button, mirror) {}
  QString looks() const override { return QStringLiteral("Button"); }
  Q_INVOKABLE void press();

 protected:
  void syncContents() override;

 private:
  QString title_;
  QFont font_;
  QColor color_;
  bool back_ = false;
  bool add_ = false;
  bool mirrored_ = false;
  bool enabled_ = true;
};

class SwitchNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(bool on MEMBER on_ NOTIFY changed)
  Q_PROPERTY(bool animated MEMBER animated_ NOTIFY changed)
  Q_PROPERTY(bool enabled MEMBER enabled_ NOTIFY changed)
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)

 public:
  SwitchNode(UISwitch& view, ViewMirror& mirror) : ViewNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("Switch"); }
  Q_INVOKABLE void toggle();

 protected:
  void syncContents() override;

 private:
  bool on_ = false;
  bool animated_ = false;
  bool enabled_ = true;
  bool mirrored_ = false;
};

class SegmentedNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(QStringList titles MEMBER titles_ NOTIFY changed)
  Q_PROPERTY(int selected MEMBER selected_ NOTIFY changed)
  Q_PROPERTY(QString fontFamily MEMBER fontFamily_ NOTIFY changed)
  Q_PROPERTY(bool enabled MEMBER enabled_ NOTIFY changed)
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)

 public:
  SegmentedNode(UISegmentedControl& view, ViewMirror& mirror) : ViewNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("Segmented"); }
  Q_INVOKABLE void select(int index);

 protected:
  void syncContents() override;

 private:
  QStringList titles_;
  int selected_ = UISegmentedControl::kNoSegment;
  QString fontFamily_;
  bool enabled_ = true;
  bool mirrored_ = false;
};

class SliderNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(double value MEMBER value_ NOTIFY changed)
  Q_PROPERTY(double minimum MEMBER minimum_ NOTIFY changed)
  Q_PROPERTY(double maximum MEMBER maximum_ NOTIFY changed)
  Q_PROPERTY(double keyStep MEMBER keyStep_ NOTIFY changed)
  Q_PROPERTY(QList<QColor> trackColors MEMBER trackColors_ NOTIFY changed)
  Q_PROPERTY(QString label MEMBER label_ NOTIFY changed)
  /// The value as text, with its unit; empty where the number says it all.
  Q_PROPERTY(QString valueText MEMBER valueText_ NOTIFY changed)
  Q_PROPERTY(bool enabled MEMBER enabled_ NOTIFY changed)
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)

 public:
  SliderNode(UISlider& view, ViewMirror& mirror) : ViewNode(view, mirror) {}
  QString looks() const override { return QStringLiteral("Slider"); }
  Q_INVOKABLE void drag(double value);
  Q_INVOKABLE void commit();

 protected:
  void syncContents() override;

 private:
  double value_ = 0;
  double minimum_ = 0;
  double maximum_ = 1;
  double keyStep_ = 0.1;
  QList<QColor> trackColors_;
  QString label_;
  QString valueText_;
  bool enabled_ = true;
  bool mirrored_ = false;
};

class NavigationBarNode : public ViewNode {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Nodes are made by the mirror.")
  Q_PROPERTY(double sideMargin READ sideMargin NOTIFY sideMarginChanged)

 public:
  NavigationBarNode(UINavigationBar& view, ViewMirror& mirror);
  QString looks() const override { return QStringLiteral("NavigationBar"); }
  double sideMargin() const;

 Q_SIGNALS:
  void sideMarginChanged();
};

}  // namespace frelta
