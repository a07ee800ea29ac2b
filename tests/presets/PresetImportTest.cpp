#include "foundation/Base64.h"
#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kLog = "[Frelta] importPresetWithBase64String ";

class PresetImport : public PresetsTest {
 protected:
  void import(const std::string& text, const std::string& name = "New") {
    show().importPresetWithBase64String(text, name);
  }

  void expectErrorAlert() {
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->title(), "Error");
    EXPECT_EQ(alert()->message(),
              "Failed to import preset. Please check the preset data and try again.");
    ASSERT_EQ(alert()->actions().size(), 1u);
    EXPECT_EQ(alert()->actions()[0]->title(), "OK");
    EXPECT_EQ(alert()->actions()[0]->style(), UIAlertActionStyle::Cancel);
    EXPECT_THAT(alert()->textFields(), IsEmpty());
  }
};

const std::string kText = base64EncodedString("{\"HideKeyCaps\":0,\"Colour\":\"#fff\"}");

TEST_F(PresetImport, WritesThePresetListsItAndSaysNothing) {
  import(kText);

  EXPECT_EQ(presetFile("New"), (Dictionary{{"HideKeyCaps", 0}, {"Colour", "#fff"}}));
  EXPECT_THAT(screen->presetsArray(), ElementsAre(pathOf("New")));
  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(platform.log.lines, ElementsAre(kLog + "base64Str: " + kText));
}

TEST_F(PresetImport, AppliesNothing) {
  putSettings({{"HideKeyCaps", 1}, {"CurrentPreset", kPresetA}});

  import(kText);

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 1}, {"CurrentPreset", kPresetA}}));
  EXPECT_FALSE(exists(kBackupPath));
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(PresetImport, ReplacesAPresetOfThatNameWithoutAQuestion) {
  putPreset("New", {{"Old", 1}});

  import(kText);

  EXPECT_EQ(presetFile("New"), (Dictionary{{"HideKeyCaps", 0}, {"Colour", "#fff"}}));
  EXPECT_EQ(platform.files.count(Operation::Remove, pathOf("New")), 1u);
  EXPECT_EQ(writes(), 1u);
}

TEST_F(PresetImport, OfAnArrayIsListedLikeAnyPreset) {
  import(base64EncodedString("[\"a\",\"b\"]"));

  EXPECT_EQ(Platform::current().propertyLists->propertyListWithData(platform.get(pathOf("New"))),
            PropertyListValue(Array{"a", "b"}));
  EXPECT_THAT(screen->presetsArray(), ElementsAre(pathOf("New")));
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(PresetImport, OfAStringLeavesAFileThatIsNoPropertyList) {
  import(base64EncodedString("\"a\""));

  EXPECT_EQ(platform.get(pathOf("New")), "a");
  EXPECT_THAT(screen->presetsArray(), ElementsAre(pathOf("New")));
  EXPECT_EQ(alert(), nullptr);
}

struct BadText {
  const char* name;
  std::string text;

  friend void PrintTo(const BadText& bad, std::ostream* out) { *out << bad.name; }
};
class PresetImportOfBadText : public PresetImport, public testing::WithParamInterface<BadText> {};

TEST_P(PresetImportOfBadText, IsLoggedAsNothingAndTold) {
  putPreset("New", {{"Old", 1}});

  import(GetParam().text);

  EXPECT_THAT(platform.log.lines,
              ElementsAre(kLog + "base64Str: " + GetParam().text, kLog + "NULL"));
  expectErrorAlert();
  EXPECT_EQ(presetFile("New"), (Dictionary{{"Old", 1}})) << "only a decoded preset replaces it";
}

std::string json(std::string_view text) {
  return base64EncodedString(text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PresetImportOfBadText,
    testing::Values(BadText{"Empty", ""}, BadText{"NotBase64", "!!!!"},
                    BadText{"TrailingNewline", kText + "\n"}, BadText{"TrailingBlank", kText + " "},
                    BadText{"LineBreakInside", kText.substr(0, 8) + "\n" + kText.substr(8)},
                    BadText{"URLSafeAlphabet", "eyJBIjoi_-8ifQ=="},
                    BadText{"MissingPadding", "e30"}, BadText{"ExtraPadding", "e30=="},
                    BadText{"NotUTF8", json("{\"A\":\"\xff\"}")},
                    BadText{"AMillionBrackets", json(std::string(1'000'000, '['))},
                    BadText{"LoneSurrogate", json("{\"A\":\"\\ud800\"}")},
                    BadText{"NULByte", json(std::string("{\"A\":\"\0\"}", 9))},
                    BadText{"NumberBeyondDouble", json("{\"A\":1e999}")}),
    [](const auto& bad) { return std::string(bad.param.name); });

class PresetImportOfUnwritableValue : public PresetImport,
                                      public testing::WithParamInterface<BadText> {};

TEST_P(PresetImportOfUnwritableValue, IsLoggedAsAFailedWriteAndTold) {
  putPreset("New", {{"Old", 1}});

  import(GetParam().text);

  EXPECT_THAT(platform.log.lines,
              ElementsAre(kLog + "base64Str: " + GetParam().text, kLog + "writeToFile FAILED"));
  expectErrorAlert();
  EXPECT_THAT(folder(), IsEmpty()) << "what was there had been removed first";
}

INSTANTIATE_TEST_SUITE_P(Texts, PresetImportOfUnwritableValue,
                         testing::Values(BadText{"NullInside", json("{\"A\":null}")},
                                         BadText{"NullInAnArray", json("[null]")}),
                         [](const auto& bad) { return std::string(bad.param.name); });

TEST_F(PresetImport, KeepsWhatXMLCannotCarry) {
  import(json("{\"\\u0000\":\"\\u0001\\uffff\"}"));

  EXPECT_EQ(presetFile("New"), (Dictionary{{std::string(1, '\0'), "\x01\uFFFF"}}));
  EXPECT_EQ(alert(), nullptr);
}

class PresetImportOfValueThatCannotWriteItself : public PresetImport,
                                                 public testing::WithParamInterface<BadText> {};

TEST_P(PresetImportOfValueThatCannotWriteItself, IsLoggedAsAnExceptionAndTold) {
  putPreset("New", {{"Old", 1}});

  import(GetParam().text);

  ASSERT_EQ(platform.log.lines.size(), 2u);
  EXPECT_EQ(platform.log.lines[1], kLog + GetParam().name + " cannot be written to a file");
  expectErrorAlert();
  EXPECT_THAT(folder(), IsEmpty()) << "what was there had been removed first";
}

INSTANTIATE_TEST_SUITE_P(Texts, PresetImportOfValueThatCannotWriteItself,
                         testing::Values(BadText{"a number", "MTIz"}, BadText{"null", "bnVsbA=="},
                                         BadText{"a boolean", json("false")},
                                         BadText{"a number", json("-1.5e3")}),
                         [](const auto& bad) { return "Text" + std::to_string(bad.index); });

TEST_F(PresetImport, ThatCannotWriteIsLoggedAndToldAndThePresetStaysRemoved) {
  putPreset("New", {{"Old", 1}});
  platform.files.fail(Operation::Write);

  import(kText);

  EXPECT_EQ(platform.log.lines.back(), kLog + "writeToFile FAILED");
  expectErrorAlert();
  EXPECT_THAT(folder(), IsEmpty());
}

TEST_F(PresetImport, OfTheLastOfDuplicateKeysAndOfNumbersBeyondSixtyFourBits) {
  import(json("{\"A\":1,\"A\":18446744073709551616}"));

  EXPECT_EQ(presetFile("New"), (Dictionary{{"A", 18446744073709551616.0}}));
}

}  // namespace
}  // namespace frelta
