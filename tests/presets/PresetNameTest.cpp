#include "presets/PresetName.h"

#include <gmock/gmock.h>

namespace frelta {
namespace {

using testing::Eq;
using testing::Optional;

std::optional<std::string> name(std::string_view text) {
  return presetNameFromText(text).name;
}
std::string problem(std::string_view text) {
  return presetNameFromText(text).problem;
}

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

const std::string kInvalid = "Invalid preset name";
const std::string kTooLong = "Preset name is too long";
const std::string kEmoji = "😀";  // two UTF-16 units

TEST(PresetName, LosesEachOfTheNineForbiddenCharactersWithoutNotice) {
  EXPECT_THAT(name("my/preset"), Optional(Eq("mypreset")));
  EXPECT_THAT(name("a/b\\c?d%e*f|g\"h<i>j"), Optional(Eq("abcdefghij")));
  EXPECT_THAT(name("a:b'c;d&e.f~"), Optional(Eq("a:b'c;d&e.f~")));
}

TEST(PresetName, LosesMillionsOfExtensionsInOneGo) {
  std::string text = "a";
  for (int i = 0; i < 2'000'000; ++i) text += ".plist";

  EXPECT_EQ(presetNameFromText(text).name, "a");
}

TEST(PresetName, LosesEveryExtensionWhereverItStands) {
  EXPECT_THAT(name("a.plist"), Optional(Eq("a")));
  EXPECT_THAT(name("a.plist.plist"), Optional(Eq("a")));
  EXPECT_THAT(name(".plista.plistb"), Optional(Eq("ab")));
  EXPECT_THAT(name("a.PLIST"), Optional(Eq("a.PLIST")));
}

TEST(PresetName, LosesAnExtensionThatForbiddenCharactersHadBrokenUp) {
  EXPECT_EQ(problem(".pl*ist"), kInvalid);
  EXPECT_THAT(name("a.pl?i<st"), Optional(Eq("a")));
}

TEST(PresetName, KeepsAnExtensionThatTakingOneOutPutsTogether) {
  EXPECT_THAT(name(".pl.plistist"), Optional(Eq(".plist")));
}

TEST(PresetName, MustHoldMoreThanBlanks) {
  for (const std::string text : {"", " ", "   ", "\t", " \t ", "/\\?%*|\"<>", ".plist", " .plist ",
                                 "\u00a0\u2003\u3000", "* *"}) {
    EXPECT_EQ(name(text), std::nullopt) << text;
    EXPECT_EQ(problem(text), kInvalid) << text;
  }
}

TEST(PresetName, KnowsEachOfUnicodesBlanksAndNoneBeside) {
  for (const std::string text :
       {"\u00a0", "\u1680", "\u2000", "\u200a", "\u202f", "\u205f", "\u3000"})
    EXPECT_EQ(problem(text), kInvalid) << text;
  for (const std::string text : {"\u009f", "\u00a1", "\u1fff", "\u200b", "\u2030", "\u3001"})
    EXPECT_THAT(name(text), Optional(Eq(text)));
}

TEST(PresetName, KeepsTheBlanksAtItsEnds) {
  EXPECT_THAT(name("  a  "), Optional(Eq("  a  ")));
  EXPECT_THAT(name("\ta\t"), Optional(Eq("\ta\t")));
}

TEST(PresetName, MayHoldLineBreaksEvenAlone) {
  EXPECT_THAT(name("a\nb"), Optional(Eq("a\nb")));
  EXPECT_THAT(name("\n"), Optional(Eq("\n")));
}

TEST(PresetName, MayBeThirtyTwoUnitsLongAndNoLonger) {
  EXPECT_THAT(name(repeated("x", 32)), Optional(Eq(repeated("x", 32))));
  EXPECT_EQ(name(repeated("x", 33)), std::nullopt);
  EXPECT_EQ(problem(repeated("x", 33)), kTooLong);
}

TEST(PresetName, CountsAnEmojiAsTwoUnitsAndAnAccentAsOne) {
  EXPECT_TRUE(name(repeated("x", 30) + kEmoji));
  EXPECT_EQ(problem(repeated("x", 31) + kEmoji), kTooLong);
  EXPECT_TRUE(name(repeated(kEmoji, 16)));
  EXPECT_EQ(problem(repeated(kEmoji, 17)), kTooLong);
  EXPECT_TRUE(name(repeated("é", 32)));
}

TEST(PresetName, CountsTheBlanksAtItsEnds) {
  EXPECT_TRUE(name(std::string(31, ' ') + "x"));
  EXPECT_EQ(problem(std::string(32, ' ') + "x"), kTooLong);
}

TEST(PresetName, IsMeasuredAfterEverythingForbiddenIsGone) {
  EXPECT_THAT(name(repeated("*", 40) + "x"), Optional(Eq("x")));
  EXPECT_THAT(name(repeated(".plist", 40) + "x"), Optional(Eq("x")));
}

TEST(PresetName, KeepsItsCaseAndItsUnicodeForm) {
  EXPECT_THAT(name("Ab"), Optional(Eq("Ab")));
  EXPECT_THAT(name("e\u0301"), Optional(Eq("e\u0301")));
  EXPECT_THAT(name("\u00e9"), Optional(Eq("\u00e9")));
}

TEST(PresetName, OfDotsStaysInTheFolder) {
  EXPECT_THAT(name(".."), Optional(Eq("..")));
  EXPECT_THAT(name("../../etc/x"), Optional(Eq("....etcx")));
  EXPECT_EQ(presetPathForName(".."), "/Library/Frelta/Presets/...plist");
}

TEST(PresetName, IsTheFilesNameWithoutItsExtension) {
  EXPECT_EQ(presetPathForName("My preset"), "/Library/Frelta/Presets/My preset.plist");
  EXPECT_EQ(presetNameAtPath("/Library/Frelta/Presets/My preset.plist"), "My preset");
  EXPECT_EQ(presetNameAtPath("/Library/Frelta/Presets/a.b.plist"), "a.b");
  EXPECT_EQ(presetNameAtPath("/Library/Frelta/Presets/.plist"), ".plist");
}

}  // namespace
}  // namespace frelta
