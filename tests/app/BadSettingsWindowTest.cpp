#include "tests/app/OpenWindow.h"

namespace frelta {
namespace {

using Operation = FailingFiles::Operation;

std::string xml(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body + "</plist>";
}

std::string repeated(const std::string& text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

struct BadFile {
  const char* name;
  std::string bytes;

  friend void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }
};

struct BadValue {
  const char* name;
  PropertyListValue value;

  friend void PrintTo(const BadValue& value, std::ostream* out) { *out << value.name; }
};

class BadSettingsWindow : public testing::TestWithParam<BadFile> {};

TEST_P(BadSettingsWindow, OpensShowsTheDefaultsAndTheNextTapWritesAGoodFile) {
  OpenWindow window;
  window.platform.put(kSettingsPath, GetParam().bytes);

  ASSERT_NO_FATAL_FAILURE(window.open());
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_TRUE(window.driver->hasRow("Enabled"));
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadSettingsWindow,
    testing::Values(BadFile{"Empty", ""},
                    BadFile{"Truncated", xml("<dict><key>A</key>").substr(0, 60)},
                    BadFile{"RandomBytes", std::string("\x80\xff\x00\x13garbage\xfe", 12)},
                    BadFile{"AnArray", xml("<array><string>x</string></array>")},
                    BadFile{"Nested",
                            xml(repeated("<array>", 100000) + repeated("</array>", 100000))},
                    BadFile{"Entities",
                            "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"b\">]>"
                            "<plist><dict><key>&a;</key><true/></dict></plist>"}),
    [](const auto& file) { return std::string(file.param.name); });

class WrongValueWindow : public testing::TestWithParam<BadValue> {};

TEST_P(WrongValueWindow, LivesWithTheValueUnderEveryOtherKeyAndKeepsTheRest) {
  OpenWindow window;
  Dictionary settings;
  for (const SettingKey& key : settingKeys()) settings.emplace(key.name, GetParam().value);
  settings["Enabled"] = 1;
  window.putSettings(settings);

  ASSERT_NO_FATAL_FAILURE(window.open());
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  settings["HideKeyCaps"] = window.settings()["HideKeyCaps"];
  EXPECT_TRUE(settings["HideKeyCaps"].isInteger());
  EXPECT_EQ(window.settings(), settings);
}

TEST_P(WrongValueWindow, LivesWithTheValueUnderTheMasterSwitchAndTurnsItOver) {
  OpenWindow window;
  window.putSettings({{"Enabled", GetParam().value}});

  ASSERT_NO_FATAL_FAILURE(window.open());
  const bool wasOn = window.driver->hasRow("HideKeyCaps");
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("Enabled"));

  EXPECT_EQ(window.settings(), (Dictionary{{"Enabled", wasOn ? 0 : 1}}));
  EXPECT_EQ(window.driver->hasRow("HideKeyCaps"), !wasOn);
}

INSTANTIATE_TEST_SUITE_P(Values, WrongValueWindow,
                         testing::Values(BadValue{"Array", Array{}},
                                         BadValue{"Dictionary", Dictionary{}},
                                         BadValue{"Text", "banana"}, BadValue{"Bytes", Data{"x"}},
                                         BadValue{"Date", Date{0}}, BadValue{"Huge", 1e300}),
                         [](const auto& value) { return std::string(value.param.name); });

TEST(SettingsWindow, ShowsTheStoredValueAgainWhenAWriteFails) {
  OpenWindow window;
  window.putSettings({{"HideKeyCaps", 1}});
  ASSERT_NO_FATAL_FAILURE(window.open());
  window.platform.files.fail(Operation::Write);

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 1}}));
  EXPECT_TRUE(window.driver->hasRow("HideKeyCaps"));
}

TEST(SettingsWindow, DoesNotFollowASettingsFileThatIsALinkOutOfTheRoot) {
  OpenWindow window;
  FakePlatform outside;
  outside.put("/secret", "untouched");
  Platform::install(window.services);
  const auto link = window.platform.hostPath(kSettingsPath);
  std::filesystem::create_directories(link.parent_path());
  std::filesystem::create_symlink(outside.hostPath("/secret"), link);

  ASSERT_NO_FATAL_FAILURE(window.open());
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));

  EXPECT_EQ(outside.get("/secret"), "untouched");
  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
}

}  // namespace
}  // namespace frelta
