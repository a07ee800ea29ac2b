#include "quick/Appearance.h"

#include <gmock/gmock.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

#include "tests/quick/FakePortal.h"
#include "tests/support/PeakMemory.h"

namespace frelta {
namespace {

class AppearanceTest : public testing::Test {
 protected:
  AppearanceTest() { usePalette(Qt::white, Qt::black); }
  ~AppearanceTest() override { QGuiApplication::setPalette(QPalette()); }

  static void usePalette(QColor window, QColor text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents();
  }
  static void wait() { QTest::qWait(50); }
  static bool waitFor(const Appearance& appearance, UserInterfaceStyle style) {
    return QTest::qWaitFor([&] { return appearance.style() == style; }, 5000);
  }

  const QString space = QStringLiteral("org.freedesktop.appearance");
  const QString key = QStringLiteral("color-scheme");
};

TEST_F(AppearanceTest, AFixedStyleStaysAsItIs) {
  FakePortal portal(1);
  ASSERT_TRUE(portal.isOnTheBus);

  Appearance appearance(UserInterfaceStyle::Light);
  usePalette(Qt::black, Qt::white);
  wait();

  EXPECT_EQ(appearance.style(), UserInterfaceStyle::Light);
  EXPECT_FALSE(portal.wasRead(space, key));
}

TEST_F(AppearanceTest, WithoutAPortalThePaletteDecides) {
  usePalette(Qt::black, Qt::white);
  Appearance appearance(std::nullopt);
  wait();
  const UserInterfaceStyle dark = appearance.style();
  const QSignalSpy changes(&appearance, &Appearance::changed);

  usePalette(Qt::white, Qt::black);

  EXPECT_EQ(dark, UserInterfaceStyle::Dark);
  EXPECT_EQ(appearance.style(), UserInterfaceStyle::Light);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(AppearanceTest, ThePortalDecidesOverThePalette) {
  FakePortal portal(1);
  ASSERT_TRUE(portal.isOnTheBus);
  Appearance appearance(std::nullopt);
  const QSignalSpy changes(&appearance, &Appearance::changed);
  const UserInterfaceStyle atFirst = appearance.style();

  wait();
  usePalette(Qt::lightGray, Qt::black);

  EXPECT_EQ(atFirst, UserInterfaceStyle::Light);
  EXPECT_EQ(appearance.style(), UserInterfaceStyle::Dark);
  EXPECT_EQ(changes.count(), 1);
  EXPECT_TRUE(portal.wasRead(space, key));
}

TEST_F(AppearanceTest, ChangesOfThePortalsSettingAreFollowed) {
  FakePortal portal(1);
  ASSERT_TRUE(portal.isOnTheBus);
  Appearance appearance(std::nullopt);
  ASSERT_TRUE(waitFor(appearance, UserInterfaceStyle::Dark));
  const QSignalSpy changes(&appearance, &Appearance::changed);

  portal.change(space, key, 2);
  const bool becameLight = waitFor(appearance, UserInterfaceStyle::Light);
  // Signals keep their order: these two have been heard when the third has.
  portal.change(space, QStringLiteral("accent-color"), 1);
  portal.change(QStringLiteral("org.other"), key, 1);
  portal.change(space, key, 1);
  const bool becameDark = waitFor(appearance, UserInterfaceStyle::Dark);

  EXPECT_TRUE(becameLight);
  EXPECT_TRUE(becameDark);
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(AppearanceTest, APortalWithoutAPreferenceLeavesItToThePalette) {
  FakePortal portal(0);
  ASSERT_TRUE(portal.isOnTheBus);
  usePalette(Qt::black, Qt::white);

  Appearance appearance(std::nullopt);
  wait();
  const UserInterfaceStyle dark = appearance.style();
  usePalette(Qt::white, Qt::black);

  EXPECT_EQ(dark, UserInterfaceStyle::Dark);
  EXPECT_EQ(appearance.style(), UserInterfaceStyle::Light);
}

struct Wish {
  const char* setting;
  QVariant value;
};

TEST_F(AppearanceTest, ContrastIsHighWhenEitherPortalSettingSaysSo) {
  for (const Wish& wish : {Wish{"org.freedesktop.appearance contrast", 1u},
                           Wish{"org.gnome.desktop.a11y.interface high-contrast", true}}) {
    FakePortal portal(QMap<QString, QVariant>{{QString::fromLatin1(wish.setting), wish.value}});

    Appearance appearance(UserInterfaceStyle::Light);

    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.highContrast(); })) << wish.setting;
    EXPECT_FALSE(appearance.reducedMotion());
  }
}

TEST_F(AppearanceTest, MotionIsReducedWhenEitherPortalSettingSaysSo) {
  for (const Wish& wish : {Wish{"org.freedesktop.appearance reduced-motion", 1u},
                           Wish{"org.gnome.desktop.interface enable-animations", false}}) {
    FakePortal portal(QMap<QString, QVariant>{{QString::fromLatin1(wish.setting), wish.value}});

    Appearance appearance(UserInterfaceStyle::Light);

    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.reducedMotion(); })) << wish.setting;
    EXPECT_FALSE(appearance.highContrast());
  }
}

TEST_F(AppearanceTest, ContrastAndMotionAreFollowedWhileRunning) {
  FakePortal portal(QMap<QString, QVariant>{});
  Appearance appearance(UserInterfaceStyle::Light);
  wait();
  const QSignalSpy changes(&appearance, &Appearance::changed);

  portal.change(space, QStringLiteral("contrast"), 1u);
  portal.change(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"),
                false);
  const bool changed =
      QTest::qWaitFor([&] { return appearance.highContrast() && appearance.reducedMotion(); });

  EXPECT_TRUE(changed);
  EXPECT_EQ(changes.count(), 2);
}

// Who poses as the portal may tell of whatever it likes, as often as it likes.
TEST_F(AppearanceTest, KeepsNothingOfSettingsThatAreNotUsed) {
  Appearance appearance(UserInterfaceStyle::Light);
  const PeakMemory memory;

  for (int i = 0; i < 600; ++i) {
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    const QString megabyte(1 << 19, QChar(u'a' + i % 26));
    signal << (i % 2 ? space : space + QString::number(i))
           << (i % 3 ? QStringLiteral("contrast") + QString::number(i) : megabyte)
           << QVariant::fromValue(QDBusVariant(megabyte));
    QMetaObject::invokeMethod(&appearance, "portalSettingChanged", Qt::DirectConnection,
                              Q_ARG(QDBusMessage, signal));
  }

  EXPECT_LT(memory.growth(), 32U << 20);
  EXPECT_FALSE(appearance.highContrast());
}

}  // namespace
}  // namespace frelta
