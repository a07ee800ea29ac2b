#include "quick/QtSystemInformation.h"

#include <gmock/gmock.h>

#include <QTest>
#include <QWindow>

namespace frelta {
namespace {

std::vector<bool> keyWindows(const QtSystemInformation& system) {
  std::vector<bool> keys;
  for (const auto& window : system.windows()) keys.push_back(window.isKeyWindow);
  return keys;
}

TEST(QtSystemInformation, HasNoWindowsWhenNoneIsOpen) {
  const Appearance appearance(UserInterfaceStyle::Light);
  const QtSystemInformation system(appearance);

  EXPECT_TRUE(system.windows().empty());
}

TEST(QtSystemInformation, TheKeyWindowIsTheOneThatIsActive) {
  const Appearance appearance(UserInterfaceStyle::Light);
  const QtSystemInformation system(appearance);
  QWindow first, second;
  first.show();
  second.show();
  first.requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&first));
  const auto before = keyWindows(system);

  second.requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&second));

  EXPECT_THAT(before, testing::ElementsAre(true, false));
  EXPECT_THAT(keyWindows(system), testing::ElementsAre(false, true));
}

TEST(QtSystemInformation, WindowsHaveTheStyleOfTheAppearance) {
  for (const auto style : {UserInterfaceStyle::Light, UserInterfaceStyle::Dark}) {
    const Appearance appearance(style);
    const QtSystemInformation system(appearance);
    QWindow window;
    window.show();

    const auto windows = system.windows();

    ASSERT_EQ(windows.size(), 1u);
    EXPECT_EQ(windows[0].userInterfaceStyle, style);
  }
}

TEST(QtSystemInformation, KnowsDarkModeAndAWholeScale) {
  const Appearance appearance(UserInterfaceStyle::Light);
  const QtSystemInformation system(appearance);

  EXPECT_EQ(system.systemVersion(), (SystemVersion{13, 0, 0}));
  EXPECT_EQ(system.screenScale(), 1);
}

}  // namespace
}  // namespace frelta
