#pragma once

#include <QString>
#include <QVariant>
#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "foundation/SystemInformation.h"

namespace frelta {

/// What the desktop's settings portal has told of the settings that are used. Anybody on the bus
/// may pose as the portal: of all that is told it keeps one number for each of these.
class PortalSettings {
 public:
  /// A setting of the portal.
  struct Name {
    QString space;
    QString key;
  };

  /// The names of those that are used, the light or dark one first.
  static std::span<const Name> names();

  /// Takes the value of a setting, or passes it over: one that is not used, and a value that is
  /// neither a truth nor a whole number of 32 bits. It may lie in a variant of its own.
  void take(const QString& space, const QString& key, const QVariant& value);

  /// Light or Dark; nothing when the portal has no preference or has told of none.
  std::optional<UserInterfaceStyle> style() const;
  // Off until something else has been told.
  /// Whether text and edges are to stand out as far as they can.
  bool highContrast() const;
  /// Whether nothing is to move by itself.
  bool reducedMotion() const;

 private:
  static constexpr std::size_t kCount = 5;

  std::array<std::optional<std::uint32_t>, kCount> values_;  // in the order of the names
};

}  // namespace frelta
