#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace frelta {

/// An item that takes the keyboard and knows whether to show it. Unlike the templates' controls,
/// which tell assistive technology a role of their own, it has the role that it is given.
class FocusItem : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// Why it has the keyboard, Qt::FocusReason.
  Q_PROPERTY(int focusReason READ focusReason NOTIFY focusReasonChanged)
  /// Whether it has the keyboard and came to it by a key.
  Q_PROPERTY(bool visualFocus READ visualFocus NOTIFY focusReasonChanged)

 public:
  using QQuickItem::QQuickItem;

  int focusReason() const { return reason_; }
  bool visualFocus() const;

 Q_SIGNALS:
  void focusReasonChanged();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void setFocusReason(Qt::FocusReason reason);
  Qt::FocusReason reason_ = Qt::OtherFocusReason;
};

}  // namespace frelta
