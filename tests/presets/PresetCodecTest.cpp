#include "presets/PresetCodec.h"

#include <limits>
#include <stdexcept>

#include "foundation/Base64.h"
#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

using PresetCodec = PresetsTest;

TEST_F(PresetCodec, TextIsOneLineOfBase64OfPrettyPrintedJSON) {
  const std::string text = base64StringFromDict(Dictionary{{"A", 1}, {"B", "x"}});

  EXPECT_EQ(dataFromBase64String(text), "{\n  \"A\" : 1,\n  \"B\" : \"x\"\n}");
  EXPECT_EQ(base64StringFromDict(Dictionary{}), "e30=");
}

TEST_F(PresetCodec, LongTextHasNoLineBreaks) {
  const std::string text = base64StringFromDict(Dictionary{{"A", std::string(100000, 'x')}});

  EXPECT_GT(text.size(), 133'000u);
  EXPECT_EQ(text.find_first_of("\r\n "), std::string::npos);
}

TEST_F(PresetCodec, WhatJSONCannotHoldIsAnException) {
  for (const PropertyListValue& value :
       {PropertyListValue(Date{0}), PropertyListValue(Data{"x"}),
        PropertyListValue(std::numeric_limits<double>::infinity())}) {
    EXPECT_THROW(base64StringFromDict(Dictionary{{"A", value}}), std::invalid_argument);
  }
  EXPECT_THROW(base64StringFromDict(std::nullopt), std::invalid_argument);
}

TEST_F(PresetCodec, DecodesAnyTypeOfValue) {
  EXPECT_EQ(base64StringToDict("MTIz"), PropertyListValue(123));
  EXPECT_EQ(base64StringToDict("bnVsbA=="), PropertyListValue(Null()));
  EXPECT_EQ(base64StringToDict(base64EncodedString("true")), PropertyListValue(true));
  EXPECT_EQ(base64StringToDict(base64EncodedString("\"x\"")), PropertyListValue("x"));
  EXPECT_EQ(base64StringToDict(base64EncodedString("[1,2]")), PropertyListValue(Array{1, 2}));
  EXPECT_EQ(base64StringToDict("e30="), PropertyListValue(Dictionary{}));
}

TEST_F(PresetCodec, DecodesNothingThatIsNotStrictBase64OfJSON) {
  const std::string dictionary = base64EncodedString("{\"A\":\"\u00ff\u00fe?\"}");
  ASSERT_NE(dictionary.find_first_of("+/"), std::string::npos);
  std::string urlSafe = dictionary;
  for (char& c : urlSafe) c = c == '+' ? '-' : c == '/' ? '_' : c;
  const std::string unpadded = "e30";

  for (const std::string& text :
       {std::string(),
        std::string("!!!!"),
        std::string("e30=\n"),
        std::string(" e30="),
        std::string("e3\n0="),
        urlSafe,
        unpadded,
        std::string("e30=="),
        std::string("e30=e30="),
        base64EncodedString("{\"A\":}"),
        base64EncodedString("{} {}"),
        base64EncodedString(" "),
        base64EncodedString("{\"A\":\"\xff\"}"),
        base64EncodedString("\xef\xbb\xbf"),
        base64EncodedString(std::string("{\"A\":\"\0\"}", 9)),
        base64EncodedString("{\"A\":\"\\ud800\"}"),
        base64EncodedString("{\"\\udc00\":1}"),
        base64EncodedString("{\"A\":1e400}"),
        base64EncodedString(std::string(1'000'000, '[')),
        base64EncodedString(std::string(500'000, '[') + std::string(500'000, ']'))}) {
    EXPECT_EQ(base64StringToDict(text), std::nullopt) << text.substr(0, 60);
  }
}

TEST_F(PresetCodec, DecodesNumbersBeyondSixtyFourBitsAsDoublesAndTheLastOfDuplicateKeys) {
  EXPECT_EQ(base64StringToDict(base64EncodedString("[18446744073709551616,18446744073709551615]")),
            PropertyListValue(Array{18446744073709551616.0, std::uint64_t{18446744073709551615u}}));
  EXPECT_EQ(base64StringToDict(base64EncodedString("{\"A\":1,\"A\":2}")),
            PropertyListValue(Dictionary{{"A", 2}}));
}

TEST_F(PresetCodec, AHundredMegabytesOfTextAreJudgedInBoundedTime) {
  const std::string json = "[\"" + std::string(75'000'000, 'x') + "\"]";
  const std::string text = base64EncodedString(json);
  const std::string garbage(100'000'000, 'A');

  const auto value = base64StringToDict(text);
  const auto nothing = base64StringToDict(garbage);

  ASSERT_TRUE(value && value->array());
  EXPECT_EQ(value->array()->at(0).string()->size(), 75'000'000u);
  EXPECT_EQ(nothing, std::nullopt);
}

TEST_F(PresetCodec, WritesADictionaryAndAnArrayAsPropertyLists) {
  EXPECT_TRUE(writeDecodedPresetToFile(Dictionary{{"A", 1}}, kPresetA));
  EXPECT_TRUE(writeDecodedPresetToFile(Array{"x", "y"}, kPresetB));

  EXPECT_EQ(contentsOf(kPresetA), (Dictionary{{"A", 1}}));
  EXPECT_EQ(Platform::current().propertyLists->propertyListWithData(platform.get(kPresetB)),
            PropertyListValue(Array{"x", "y"}));
}

TEST_F(PresetCodec, WritesAStringAsItsBareText) {
  EXPECT_TRUE(writeDecodedPresetToFile("just text", kPresetA));

  EXPECT_EQ(platform.get(kPresetA), "just text");
}

TEST_F(PresetCodec, ANumberABooleanAndNullCannotWriteThemselves) {
  for (const PropertyListValue& value : {PropertyListValue(123), PropertyListValue(1.5),
                                         PropertyListValue(true), PropertyListValue(Null())}) {
    EXPECT_THROW(writeDecodedPresetToFile(value, kPresetA), std::invalid_argument);
  }
  EXPECT_FALSE(exists(kPresetA));
}

TEST_F(PresetCodec, NullInsideCannotBeWritten) {
  EXPECT_FALSE(writeDecodedPresetToFile(Dictionary{{"A", Null()}}, kPresetA));
  EXPECT_FALSE(writeDecodedPresetToFile(Array{Null()}, kPresetA));

  EXPECT_FALSE(exists(kPresetA));
}

}  // namespace
}  // namespace frelta
