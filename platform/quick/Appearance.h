#pragma once

#include <QDBusMessage>
#include <QObject>
#include <optional>

#include "foundation/SystemInformation.h"
#include "quick/PortalSettings.h"

namespace frelta {

/// How the desktop wants its windows to look, and the news when that changes.
class Appearance : public QObject {
  Q_OBJECT

 public:
  /// With a fixed style the desktop is not asked for one. Otherwise the desktop's settings portal
  /// decides (org.freedesktop.appearance, color-scheme), and the palette until it has answered or
  /// where there is none.
  explicit Appearance(std::optional<UserInterfaceStyle> fixed);

  /// Light or Dark.
  UserInterfaceStyle style() const { return style_; }
  // Off until the portal has answered, and where there is none.
  /// Whether text and edges are to stand out as far as they can.
  bool highContrast() const { return highContrast_; }
  /// Whether nothing is to move by itself.
  bool reducedMotion() const { return reducedMotion_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// Of any of them.
  void changed();

 private Q_SLOTS:
  // A slot for the values' own types is refused in a process that has not used the types before.
  void portalSettingChanged(const QDBusMessage& signal);

 private:
  void askPortal();
  void ask(const PortalSettings::Name& setting);
  UserInterfaceStyle desktopStyle() const;
  void update();

  const std::optional<UserInterfaceStyle> fixed_;
  PortalSettings portal_;
  UserInterfaceStyle style_ = UserInterfaceStyle::Light;
  bool highContrast_ = false;
  bool reducedMotion_ = false;
};

}  // namespace frelta
