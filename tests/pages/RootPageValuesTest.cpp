#include "preferences/PSSegmentTableCell.h"
#include "preferences/PSSwitchTableCell.h"
#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// Notes in one list what a write does, in order.
class RecordedPage : public freltaprefsRootListController {
 public:
  explicit RecordedPage(FakePlatform& platform) : platform_(platform) {}

  const PSSpecifierList& specifiers() override {
    if (!specifiers_) noteWithPosts("load");
    return freltaprefsRootListController::specifiers();
  }
  void noteWithPosts(const std::string& what) {
    events.push_back(what + " after " + std::to_string(platform_.notifications.posted.size()) +
                     " posts");
  }
  std::vector<std::string> events;

 private:
  FakePlatform& platform_;
};

class RootPageValuesTest : public PagesTest {
 protected:
  static void set(PSListController& page, std::string_view identifier, PropertyListValue value) {
    page.setPreferenceValue(std::move(value), page.specifierForID(identifier).get());
  }
  std::vector<std::string>& posted() { return platform.notifications.posted; }
};

TEST_F(RootPageValuesTest, AValueComesFromTheManagerElseFromTheRowsDefault) {
  describeRoot({row("PSTitleValueCell", "HideKeyCaps", {{"default", 5}}),
                row("PSTitleValueCell", "CustomTextColour", {{"default", "none"}}),
                row("PSTitleValueCell", "CurrentPreset"),
                Dictionary{{"cell", "PSTitleValueCell"}, {"id", "keyless"}, {"default", "d"}}});
  const auto page = showRoot();
  const auto read = [&](std::string_view identifier) {
    return page->readPreferenceValue(*page->specifierForID(identifier));
  };

  EXPECT_EQ(read("HideKeyCaps"), PropertyListValue(1));
  EXPECT_EQ(read("CustomTextColour"), PropertyListValue("none"));
  EXPECT_EQ(read("CurrentPreset"), std::nullopt);
  EXPECT_EQ(read("keyless"), PropertyListValue("d"));
}

TEST_F(RootPageValuesTest, AStoredZeroIsShownThoughTheDefaultIsOne) {
  putSettings({{"HideKeyCaps", 0}});

  const auto page = showRoot();

  EXPECT_FALSE(cell<PSSwitchTableCell>(*page, "HideKeyCaps")->control()->isOn());
  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "HideKeyShadows")->control()->isOn());
}

TEST_F(RootPageValuesTest, APageOfRowsReadsTheSettingsFileOnce) {
  putSettings({{"HideKeyCaps", 0}});
  platform.files.resetCalls();

  const auto page = showRoot();
  page->reloadSpecifiers();
  layout();

  EXPECT_EQ(platform.files.count(Operation::Read, kSettingsPath), 1u);
  EXPECT_EQ(platform.files.count(Operation::Write), 0u);
  EXPECT_THAT(posted(), IsEmpty());
}

TEST_F(RootPageValuesTest, OneTapReadsTheFileTwiceAndWritesItOnce) {
  putSettings({{"HideKeyCaps", 1}});
  const auto page = showRoot();
  platform.files.resetCalls();

  cell<PSSwitchTableCell>(*page, "HideKeyCaps")->control()->toggle();
  layout();
  page->reloadSpecifiers();
  layout();

  EXPECT_EQ(platform.files.count(Operation::Read, kSettingsPath), 2u);
  EXPECT_EQ(platform.files.count(Operation::Write, kSettingsPath), 1u);
  EXPECT_EQ(settingsFile().at("HideKeyCaps"), PropertyListValue(0));
}

TEST_F(RootPageValuesTest, AWriteKeepsWhatTheFileHoldsByThen) {
  const auto page = showRoot();
  putSettings({{"HideKeyCaps", 1}, {"unknown", Date{12.5}}, {"blob", Data{"x"}}});

  set(*page, "HideKeyShadows", 0);

  EXPECT_THAT(settingsFile(), ElementsAre(Pair("HideKeyCaps", PropertyListValue(1)),
                                          Pair("HideKeyShadows", PropertyListValue(0)),
                                          Pair("blob", PropertyListValue(Data{"x"})),
                                          Pair("unknown", PropertyListValue(Date{12.5}))));
}

TEST_F(RootPageValuesTest, AWriteDropsTheManagersCacheAndPostsTheRefreshOnce) {
  const auto page = showRoot();

  set(*page, "HideKeyCaps", 0);

  EXPECT_EQ(*FreltaPreferencesManager::getPrefForKey("HideKeyCaps"), PropertyListValue(0));
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(RootPageValuesTest, ARowsOwnNotificationIsPostedBeforeTheRefresh) {
  describeRoot({row("PSSwitchCell", "A", {{"PostNotification", "com.example.changed"}}),
                row("PSSwitchCell", "B", {{"PostNotification", 7}})});
  const auto page = showRoot();

  set(*page, "A", 1);
  set(*page, "B", 1);

  EXPECT_THAT(posted(), ElementsAre("com.example.changed", "com.tarno.frelta.refresh",
                                    "com.tarno.frelta.refresh"));
}

TEST_F(RootPageValuesTest, WhoeverHearsOfAWriteFindsTheValueInTheFileAndThroughTheManager) {
  describeRoot({row("PSSwitchCell", "HideKeyCaps", {{"PostNotification", "com.example.changed"}})});
  const auto page = showRoot();
  ASSERT_EQ(*FreltaPreferencesManager::getPrefForKey("HideKeyCaps"), PropertyListValue(1));
  std::vector<std::string> heard;
  lookAtPosts([&](std::string_view name) {
    heard.emplace_back(name);
    EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}})) << name;
    EXPECT_EQ(*FreltaPreferencesManager::getPrefForKey("HideKeyCaps"), PropertyListValue(0))
        << name;
  });

  set(*page, "HideKeyCaps", 0);

  EXPECT_THAT(heard, ElementsAre("com.example.changed", "com.tarno.frelta.refresh"));
}

TEST_F(RootPageValuesTest, WhatIsReadWhileAValueIsWrittenDoesNotStay) {
  const auto page = showRoot();
  platform.files.beforeCall = [](const FailingFiles::Call& call) {
    if (call.operation == Operation::Write) FreltaPreferencesManager::getPrefs();
  };

  set(*page, "HideKeyCaps", 0);

  EXPECT_EQ(*FreltaPreferencesManager::getPrefForKey("HideKeyCaps"), PropertyListValue(0));
}

TEST_F(RootPageValuesTest, TheOwnNotificationComesBeforeTheReloadAndTheRefreshAfterIt) {
  const std::vector<std::string> keys{"Enabled", "enabled", "BackgroundMode",
                                      "SwitchPresetsWithDarkMode"};
  for (const std::string& key : keys) {
    describeRoot({row("PSSwitchCell", key, {{"PostNotification", "com.example.changed"}})});
    auto page = std::make_shared<RecordedPage>(platform);
    show(page);
    posted().clear();
    page->events.clear();

    set(*page, key, 1);

    EXPECT_THAT(page->events, ElementsAre("load after 1 posts")) << key;
    EXPECT_THAT(posted(), ElementsAre("com.example.changed", "com.tarno.frelta.refresh")) << key;
  }
}

TEST_F(RootPageValuesTest, OtherKeysReloadNothing) {
  describeRoot({row("PSSwitchCell", "HideKeyCaps"), row("PSSwitchCell", "ENABLED")});
  auto page = std::make_shared<RecordedPage>(platform);
  show(page);
  page->events.clear();

  set(*page, "HideKeyCaps", 0);
  set(*page, "ENABLED", 0);

  EXPECT_THAT(page->events, IsEmpty());
}

TEST_F(RootPageValuesTest, NothingHappensWithoutAValueARowOrAKey) {
  describeRoot({row("PSSwitchCell", "A"), Dictionary{{"cell", "PSSwitchCell"}, {"id", "keyless"}},
                Dictionary{{"cell", "PSSwitchCell"}, {"id", "number"}, {"key", 1}}});
  const auto page = showRoot();
  platform.files.resetCalls();

  page->setPreferenceValue(std::nullopt, page->specifierForID("A").get());
  page->setPreferenceValue(PropertyListValue(1), nullptr);
  set(*page, "keyless", 1);
  set(*page, "number", 1);

  EXPECT_TRUE(platform.files.calls().empty());
  EXPECT_THAT(posted(), IsEmpty());
}

TEST_F(RootPageValuesTest, AFailedWriteIsSilentAndStillAnnounced) {
  const auto page = showRoot();
  platform.files.fail(Operation::Write);

  cell<PSSwitchTableCell>(*page, "HideKeyCaps")->control()->toggle();

  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(platform.log.lines, IsEmpty());
  EXPECT_EQ(*FreltaPreferencesManager::getPrefForKey("HideKeyCaps"), PropertyListValue(1));
}

TEST_F(RootPageValuesTest, TheMasterSwitchRebuildsThePageUnderTheFinger) {
  const auto page = showRoot();
  const auto* before = cell(*page, "Enabled");

  cell<PSSwitchTableCell>(*page, "Enabled")->control()->toggle();
  layout();

  EXPECT_EQ(rowIdentifiers(*page).size(), 8u);
  EXPECT_EQ(cell(*page, "Enabled"), before);
  EXPECT_FALSE(cell<PSSwitchTableCell>(*page, "Enabled")->control()->isOn());
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(RootPageValuesTest, AnotherBackgroundModeShowsItsRows) {
  const auto page = showRoot();

  cell<PSSegmentTableCell>(*page, "BackgroundMode")->control()->selectSegment(2);
  layout();

  EXPECT_EQ(settingsFile().at("BackgroundMode"), PropertyListValue(2));
  EXPECT_TRUE(cell(*page, "FreltaImageCell"));
  EXPECT_TRUE(cell(*page, "backgroundImageContentModeInt"));
}

TEST_F(RootPageValuesTest, EachReadOfADeviceRowReloadsTheUserAgentRow) {
  describeRoot({row("PSTitleValueCell", "agent", {{"id", "User-Agent"}}),
                row("PSTitleValueCell", "device"), row("PSTitleValueCell", "iosVersion"),
                row("PSTitleValueCell", "other")});
  const auto page = showRoot();
  const auto agentAfterReadOf = [&](std::string_view identifier, const char* value) {
    putSettings({{"agent", value}});
    page->readPreferenceValue(*page->specifierForID(identifier));
    layout();
    return cell(*page, "User-Agent")->detailTextLabel()->text();
  };

  EXPECT_EQ(agentAfterReadOf("device", "1"), "1");
  EXPECT_EQ(agentAfterReadOf("iosVersion", "2"), "2");
  EXPECT_EQ(agentAfterReadOf("other", "3"), "2");
}

TEST_F(RootPageValuesTest, ADeviceRowWithoutAUserAgentRowIsLikeAnyOther) {
  describeRoot({row("PSTitleValueCell", "device", {{"default", "phone"}})});

  const auto page = showRoot();
  layout();

  EXPECT_EQ(cell(*page, "device")->detailTextLabel()->text(), "phone");
}

TEST_F(RootPageValuesTest, AStoredColourIsHandedToItsCell) {
  putSettings({{"CustomTextColour", "#ff0000"}, {"CustomKeyCapColour", 7}});
  const auto page = showRoot();
  const PSTableCell& asking = *cell(*page, "CustomTextColour");

  EXPECT_EQ(page->colourStringForKey(asking, "CustomTextColour"), "#ff0000");
  EXPECT_EQ(page->colourStringForKey(asking, "CustomKeyCapColour"), std::nullopt);
  EXPECT_EQ(page->colourStringForKey(asking, "CustomBackgroundColour"), std::nullopt);
}

TEST_F(RootPageValuesTest, WronglyTypedValuesUnderEveryKeyShowThePagesAllTheSame) {
  const std::vector<PropertyListValue> wrong{
      Array{1, "x"}, Dictionary{{"a", 1}}, Data{"x"}, Date{1}, "text", -1, 1e300, true};
  for (const PropertyListValue& value : wrong) {
    Dictionary settings;
    for (const SettingKey& key : settingKeys()) settings.insert({std::string(key.name), value});
    settings.insert_or_assign("Enabled", 1);
    putSettings(settings);

    const auto root = showRoot();
    auto advanced = std::make_shared<freltaAdvancedprefsRootListController>();
    show(advanced);
    cell<PSSwitchTableCell>(*root, "HideKeyCaps")->control()->toggle();

    EXPECT_TRUE(cell(*advanced, "HideKeyPlane"));
    settings.erase("HideKeyCaps");
    Dictionary after = settingsFile();
    EXPECT_TRUE(after.erase("HideKeyCaps"));
    EXPECT_EQ(after.size(), settings.size());
  }
}

}  // namespace
}  // namespace frelta
