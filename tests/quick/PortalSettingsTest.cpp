#include "quick/PortalSettings.h"

#include <gmock/gmock.h>

#include <QDBusVariant>
#include <QVariantList>

#include "tests/support/PeakMemory.h"

namespace frelta {
namespace {

const QString kSpace = QStringLiteral("org.freedesktop.appearance");
const QString kContrast = QStringLiteral("contrast");

QVariant wrapped(const QVariant& value) {
  return QVariant::fromValue(QDBusVariant(value));
}

TEST(PortalSettings, TakesTruthsAndNumbersWrappedOrNot) {
  for (const QVariant& value : {QVariant(1U), QVariant(1), QVariant(true), wrapped(1U)}) {
    PortalSettings settings;

    settings.take(kSpace, kContrast, value);

    EXPECT_TRUE(settings.highContrast()) << value.typeName();
  }
}

TEST(PortalSettings, LeaveWhatWasToldWhereAValueIsOfAnotherKind) {
  const QVariantList others{QStringLiteral("0"), 0.0,        0LL,
                            QVariantList{0},     QVariant(), QByteArray("0"),
                            wrapped(wrapped(0U))};
  for (const QVariant& value : others) {
    PortalSettings settings;
    settings.take(kSpace, kContrast, 1U);

    settings.take(kSpace, kContrast, value);

    EXPECT_TRUE(settings.highContrast()) << value.typeName();
  }
}

TEST(PortalSettings, HaveNoStyleWithoutAPreference) {
  PortalSettings settings;
  const auto before = settings.style();
  settings.take(kSpace, QStringLiteral("color-scheme"), 1U);
  const auto dark = settings.style();
  settings.take(kSpace, QStringLiteral("color-scheme"), 2U);
  const auto light = settings.style();

  settings.take(kSpace, QStringLiteral("color-scheme"), 0U);

  EXPECT_EQ(before, std::nullopt);
  EXPECT_EQ(dark, UserInterfaceStyle::Dark);
  EXPECT_EQ(light, UserInterfaceStyle::Light);
  EXPECT_EQ(settings.style(), std::nullopt);
}

TEST(PortalSettings, AreToldApartByNamespaceAndKey) {
  PortalSettings settings;

  settings.take(QStringLiteral("org.other"), kContrast, 1U);
  settings.take(kSpace, QStringLiteral("high-contrast"), true);
  settings.take(QStringLiteral("org.gnome.desktop.interface"), kContrast, true);

  EXPECT_FALSE(settings.highContrast());
  EXPECT_FALSE(settings.reducedMotion());
}

TEST(PortalSettings, KeepNoTextHoweverLong) {
  PortalSettings settings;
  const PeakMemory memory;

  for (int i = 0; i < 8; ++i) {
    for (const PortalSettings::Name& name : PortalSettings::names())
      settings.take(name.space, name.key, wrapped(QString(1 << 21, QChar(u'0'))));
  }

  EXPECT_LT(memory.growth(), 12U << 20);
  EXPECT_FALSE(settings.highContrast());
  EXPECT_FALSE(settings.reducedMotion());
}

}  // namespace
}  // namespace frelta
