#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>

#include "foundation/SystemInformation.h"
#include "graphics/UIColor.h"

namespace frelta {

/// The colours that controls are drawn with, in the current appearance.
class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Each node has the one theme.")
  Q_PROPERTY(bool dark READ dark NOTIFY changed)
  Q_PROPERTY(QColor label READ label NOTIFY changed)
  Q_PROPERTY(QColor secondaryLabel READ secondaryLabel NOTIFY changed)
  Q_PROPERTY(QColor placeholder READ placeholder NOTIFY changed)
  Q_PROPERTY(QColor separator READ separator NOTIFY changed)
  Q_PROPERTY(QColor groupedBackground READ groupedBackground NOTIFY changed)
  Q_PROPERTY(QColor tint READ tint NOTIFY changed)
  Q_PROPERTY(QColor switchOn READ switchOn NOTIFY changed)
  Q_PROPERTY(QColor fill READ fill NOTIFY changed)
  Q_PROPERTY(QColor chevron READ chevron NOTIFY changed)
  Q_PROPERTY(QColor pressed READ pressed NOTIFY changed)
  Q_PROPERTY(QColor segment READ segment NOTIFY changed)
  Q_PROPERTY(bool highContrast READ highContrast NOTIFY changed)
  Q_PROPERTY(QColor border READ border NOTIFY changed)
  Q_PROPERTY(int motion READ motion NOTIFY changed)

 public:
  UserInterfaceStyle style() const { return style_; }
  bool highContrast() const { return highContrast_; }
  /// What durations are multiplied with: 0 when nothing is to move by itself, else 1.
  int motion() const { return reducedMotion_ ? 0 : 1; }
  void setStyle(UserInterfaceStyle style, bool highContrast, bool reducedMotion);
  /// In the current appearance; with high contrast the platform's adaptive colours take the values
  /// that it has for that.
  QColor resolve(const UIColor& color) const;

  bool dark() const { return style_ == UserInterfaceStyle::Dark; }
  QColor label() const { return resolve(UIColor::labelColor()); }
  QColor secondaryLabel() const { return resolve(UIColor::secondaryLabelColor()); }
  QColor placeholder() const { return resolve(UIColor::placeholderTextColor()); }
  QColor separator() const { return resolve(UIColor::separatorColor()); }
  QColor groupedBackground() const { return resolve(UIColor::systemGroupedBackgroundColor()); }
  QColor tint() const { return resolve(UIColor::systemBlueColor()); }
  QColor switchOn() const { return resolve(UIColor::systemGreenColor()); }
  QColor fill() const { return resolve(UIColor::secondarySystemFillColor()); }
  QColor chevron() const { return resolve(UIColor::systemGray3Color()); }
  QColor pressed() const { return resolve(UIColor::systemGray4Color()); }
  QColor segment() const;
  /// Of controls that are told from what they lie on by their fill alone; see-through unless
  /// contrast is high.
  QColor border() const;

 Q_SIGNALS:
  void changed();

 private:
  UserInterfaceStyle style_ = UserInterfaceStyle::Light;
  bool highContrast_ = false;
  bool reducedMotion_ = false;
};

}  // namespace frelta
