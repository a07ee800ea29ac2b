#include "quick/PortalSettings.h"

#include <QDBusVariant>
#include <QMetaType>
#include <algorithm>

namespace frelta {

namespace {

// In the order of the names.
enum Setting : std::size_t {
  ColorScheme,
  Contrast,
  ReducedMotion,
  DesktopContrast,
  DesktopAnimations
};

// As the portal's interface description counts.
constexpr std::uint32_t kNoPreference = 0;
constexpr std::uint32_t kPreferDark = 1;
constexpr std::uint32_t kMoreContrast = 1;
constexpr std::uint32_t kLessMotion = 1;

std::optional<std::uint32_t> numberIn(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
      return value.toUInt();
    default:
      return std::nullopt;
  }
}

}  // namespace

std::span<const PortalSettings::Name> PortalSettings::names() {
  static const QString space = QStringLiteral("org.freedesktop.appearance");
  static const std::array<Name, kCount> names{{
      {space, QStringLiteral("color-scheme")},
      {space, QStringLiteral("contrast")},
      {space, QStringLiteral("reduced-motion")},
      // Portals from before these two hand out the desktop's own settings.
      {QStringLiteral("org.gnome.desktop.a11y.interface"), QStringLiteral("high-contrast")},
      {QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations")},
  }};
  return names;
}

void PortalSettings::take(const QString& space, const QString& key, const QVariant& value) {
  const auto all = names();
  const auto name = std::ranges::find_if(
      all, [&](const Name& used) { return used.space == space && used.key == key; });
  if (name == all.end()) return;
  // A reply wraps the value in a variant of its own, a signal does not.
  const auto number = numberIn(value.metaType() == QMetaType::fromType<QDBusVariant>()
                                   ? value.value<QDBusVariant>().variant()
                                   : value);
  if (number) values_.at(static_cast<std::size_t>(name - all.begin())) = number;
}

std::optional<UserInterfaceStyle> PortalSettings::style() const {
  const std::uint32_t scheme = values_[ColorScheme].value_or(kNoPreference);
  if (scheme == kNoPreference) return std::nullopt;
  return scheme == kPreferDark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
}

bool PortalSettings::highContrast() const {
  return values_[Contrast] == kMoreContrast || values_[DesktopContrast].value_or(0) != 0;
}

bool PortalSettings::reducedMotion() const {
  return values_[ReducedMotion] == kLessMotion || values_[DesktopAnimations] == 0U;
}

}  // namespace frelta
