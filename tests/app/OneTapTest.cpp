#include <QFile>
#include <QTemporaryDir>

#include "linux/LinuxDarwinNotificationCenter.h"
#include "tests/app/OpenWindow.h"
#include "tests/support/DarwinListener.h"
#include "tests/support/PrivateBus.h"

namespace frelta {
namespace {

using testing::ElementsAre;

const std::string kLast = "com.tarno.frelta.test.last";

// The whole path: a mouse in a window, a file, a bus, another process.
class OneTap : public testing::Test {
 protected:
  OneTap() { window.services.darwinNotificationCenter = &notifications; }

  // Posts a last name of its own: whatever was posted before has been heard by then.
  std::vector<std::string> heardInOtherProcess(std::size_t expected) {
    notifications.post(kLast);
    std::vector<std::string> names = listener.heard(expected + 1);
    EXPECT_FALSE(names.empty());
    if (!names.empty() && names.back() == kLast) names.pop_back();
    return names;
  }

  PrivateBus bus;
  DarwinListener listener;
  LinuxDarwinNotificationCenter notifications;
  OpenWindow window;
};

TEST_F(OneTap, OnHideKeyCapsStoresAnIntegerKeepsAllOtherKeysAndIsHeardByAnotherProcess) {
  const Dictionary before{{"HideKeyShadows", 0},
                          {"SomebodyElses", Array{1, "two", Date{3}}},
                          {"Bytes", Data{std::string("\0\1\2", 3)}},
                          {"EnabledThemePath", ""}};
  window.putSettings(before);
  ASSERT_NO_FATAL_FAILURE(window.open());

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  Dictionary expected = before;
  expected["HideKeyCaps"] = 0;
  EXPECT_EQ(window.settings(), expected);
  EXPECT_TRUE(window.settings().at("HideKeyCaps").isInteger());
  EXPECT_THAT(heardInOtherProcess(1), ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(OneTap, OnARowWithANotificationOfItsOwnIsHeardTwiceTheRowsFirst) {
  QTemporaryDir folder;
  for (const char* name : {"Info.plist", "freltaprefs"}) {
    ASSERT_TRUE(QFile::copy(QStringLiteral(FRELTA_BUNDLE "/%1").arg(QLatin1String(name)),
                            folder.filePath(QLatin1String(name))));
  }
  const Dictionary row{{"cell", "PSSwitchCell"},
                       {"key", "HideKeyPlane"},
                       {"label", "Hide key plane"},
                       {"PostNotification", "com.tarno.frelta.keyplane"}};
  const auto page =
      window.services.propertyLists->dataWithPropertyList(Dictionary{{"items", Array{row}}});
  QFile file(folder.filePath(QStringLiteral("Root.plist")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(page->data(), static_cast<qint64>(page->size()));
  file.close();
  ASSERT_NO_FATAL_FAILURE(window.open(folder.path()));

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyPlane"));

  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyPlane", 1}}));
  EXPECT_THAT(heardInOtherProcess(2),
              ElementsAre("com.tarno.frelta.keyplane", "com.tarno.frelta.refresh"));
}

TEST_F(OneTap, WithoutABusStillStoresTheValue) {
  bus.stop();
  ASSERT_NO_FATAL_FAILURE(window.open());

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
}

TEST_F(OneTap, AfterTheBusCameBackIsHeardAgain) {
  ASSERT_NO_FATAL_FAILURE(window.open());
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));
  bus.stop();
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));
  bus.start();
  DarwinListener late;

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  EXPECT_THAT(late.heard(1), ElementsAre("com.tarno.frelta.refresh"));
}

}  // namespace
}  // namespace frelta
