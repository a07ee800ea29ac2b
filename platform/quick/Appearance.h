#pragma once

#include <QDBusMessage>
#include <QObject>
#include <optional>

#include "foundation/SystemInformation.h"

namespace frelta {

/// Whether the windows are light or dark, and the news when that changes.
class Appearance : public QObject {
  Q_OBJECT

 public:
  /// With a fixed style the desktop is not asked. Otherwise the desktop's settings portal decides
  /// (org.freedesktop.appearance, color-scheme), and the palette until it has answered or where
  /// there is none.
  explicit Appearance(std::optional<UserInterfaceStyle> fixed);

  /// Light or Dark.
  UserInterfaceStyle style() const { return style_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void changed();

 private Q_SLOTS:
  // A slot for the values' own types is refused in a process that has not used the types before.
  void portalSettingChanged(const QDBusMessage& signal);

 private:
  void askPortal();
  void usePortalValue(const QVariant& value);
  void usePalette();
  void setStyle(UserInterfaceStyle style);

  UserInterfaceStyle style_ = UserInterfaceStyle::Light;
  bool portalDecides_ = false;
};

}  // namespace frelta
