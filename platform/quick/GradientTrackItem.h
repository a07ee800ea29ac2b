#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QQuickPaintedItem>

namespace frelta {

/// A slider's track that runs through colours, over a chequered ground where they are not opaque.
class GradientTrackItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_NAMED_ELEMENT(GradientTrack)
  Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)
  /// From right to left.
  Q_PROPERTY(bool mirrored MEMBER mirrored_ NOTIFY changed)
  Q_PROPERTY(QColor outline MEMBER outline_ NOTIFY changed)

 public:
  explicit GradientTrackItem(QQuickItem* parent = nullptr);
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QList<QColor> colors_;
  bool mirrored_ = false;
  QColor outline_ = Qt::transparent;
};

}  // namespace frelta
