#include "linux/JSONReader.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "foundation/JSONSerialization.h"

namespace frelta {
namespace {

using namespace std::string_literals;

TEST(JSONReader, ReadsEveryType) {
  const PropertyListValue expected(Dictionary{{"array", Array{1, -2, true, false, Null()}},
                                              {"object", Dictionary{{"", Dictionary()}}},
                                              {"real", 0.5},
                                              {"text", "a\"b\\/\n😀é"}});

  const std::optional<PropertyListValue> value = readJSON(R"(
    { "array" : [1, -2, true, false, null], "object" : {"" : {}},
      "real" : 0.5, "text" : "a\"b\\\/\n\ud83d\ude00é" } )");

  EXPECT_EQ(value, expected);
}

TEST(JSONReader, ReadsFragments) {
  EXPECT_EQ(readJSON("123"), PropertyListValue(123));
  EXPECT_EQ(readJSON("null"), PropertyListValue(Null()));
  EXPECT_EQ(readJSON(" \"x\" "), PropertyListValue("x"));
  EXPECT_EQ(readJSON("[]"), PropertyListValue(Array()));
}

TEST(JSONReader, KeepsIntegersOfBothSixtyFourBitRanges) {
  EXPECT_EQ(readJSON("-9223372036854775808"),
            PropertyListValue(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(readJSON("18446744073709551615"), PropertyListValue(~std::uint64_t{0}));
  EXPECT_EQ(readJSON("0"), PropertyListValue(0));
}

TEST(JSONReader, OtherNumbersAreDoubles) {
  EXPECT_EQ(readJSON("-0.0"), PropertyListValue(-0.0));
  EXPECT_EQ(readJSON("1.0"), PropertyListValue(1.0));
  EXPECT_EQ(readJSON("1E2"), PropertyListValue(100.0));
  EXPECT_EQ(readJSON("0.30000000000000004"), PropertyListValue(0.30000000000000004));
  EXPECT_EQ(readJSON("18446744073709551616"), PropertyListValue(18446744073709551616.0));
  EXPECT_EQ(readJSON("-9223372036854775809"), PropertyListValue(-9223372036854775808.0));
}

TEST(JSONReader, NumbersTooSmallForDoubleAreZero) {
  EXPECT_EQ(readJSON("1e-400"), PropertyListValue(0.0));
  EXPECT_EQ(readJSON("-1e-400"), PropertyListValue(-0.0));
  EXPECT_EQ(readJSON("0." + std::string(400, '0') + "1"), PropertyListValue(0.0));
  EXPECT_EQ(readJSON("5e-324"), PropertyListValue(5e-324));
}

TEST(JSONReader, PassesOverAByteOrderMarkAtTheStartOnly) {
  EXPECT_EQ(readJSON("\xEF\xBB\xBF[1]"), PropertyListValue(Array{1}));
  EXPECT_EQ(readJSON("[\xEF\xBB\xBF 1]"), std::nullopt);
  EXPECT_EQ(readJSON(" \xEF\xBB\xBF[1]"), std::nullopt);
}

TEST(JSONReader, RefusesNumbersBeyondDouble) {
  for (const std::string& text : {"1e999"s, "-1e400"s, "[1e99999999999]"s, std::string(400, '9')})
    EXPECT_EQ(readJSON(text), std::nullopt) << text;
}

TEST(JSONReader, RefusesExponentsBeyondThirtyTwoBitsEvenOfZero) {
  EXPECT_EQ(readJSON("1e-2147483647"), PropertyListValue(0.0));
  for (const char* text : {"1e-9999999999", "0e9999999999", "[1e-99999999999999999999]"})
    EXPECT_EQ(readJSON(text), std::nullopt) << text;
}

TEST(JSONReader, RoundsEveryDecimalToTheNearestDouble) {
  EXPECT_EQ(readJSON("9007199254740993.0"), PropertyListValue(9007199254740992.0));
  EXPECT_EQ(readJSON("9007199254740993.0000000000000000000000001"),
            PropertyListValue(9007199254740994.0));
  EXPECT_EQ(readJSON("2.2250738585072011e-308"), PropertyListValue(2.2250738585072011e-308));
  EXPECT_EQ(readJSON("1" + std::string(400, '0') + "e-200"), PropertyListValue(1e200));
}

TEST(JSONReader, TheLastOfDuplicateKeysWins) {
  EXPECT_EQ(readJSON(R"({"a":1,"b":2,"a":[3]})"),
            PropertyListValue(Dictionary{{"a", Array{3}}, {"b", 2}}));
}

TEST(JSONReader, RefusesADocumentTruncatedAtAnyByte) {
  const std::string document = R"({"a":[1.5,"x\u20ac",true,{"b":null}]})";

  ASSERT_TRUE(readJSON(document));
  for (std::size_t length = 0; length < document.size(); ++length)
    EXPECT_EQ(readJSON(document.substr(0, length)), std::nullopt) << length;
}

TEST(JSONReader, RefusesWhatIsNotJSON) {
  for (const char* text :
       {"",          " ",       "{}{}",      "[] x",     "1 2",     "[1,]",        "{\"a\":1,}",
        "{a:1}",     "'a'",     "{1:2}",     "[1 2]",    "01",      "+1",          ".5",
        "1.",        "0x1",     "1e",        "-",        "NaN",     "Infinity",    "nul",
        "True",      "// c\n1", "/* c */ 1", "\"a\nb\"", "\"\\x\"", "\"\\u-001\"", "\"\\u00 1\"",
        "\"\\u12\"", "\"",      "[",         "]",        "{\"a\"}"})
    EXPECT_EQ(readJSON(text), std::nullopt) << text;
}

TEST(JSONReader, RefusesTextThatIsNotUTF8AndLoneSurrogates) {
  for (const char* text :
       {"\"\xFF\"", "\"\xC3\"", "\"\xED\xA0\x80\"", "\"\xF4\x90\x80\x80\"", "\"\\ud800\"",
        "\"\\udc00\"", "\"\\ud800x\"", "\"\\ud800\\ud800\"", "{\"\\udfff\":1}"})
    EXPECT_EQ(readJSON(text), std::nullopt) << testing::PrintToString(text);
}

TEST(JSONReader, RefusesANulByteAnywhereButReadsItsEscape) {
  EXPECT_EQ(readJSON("1\0"s), std::nullopt);
  EXPECT_EQ(readJSON("\0 1"s), std::nullopt);
  EXPECT_EQ(readJSON("\"a\0\""s), std::nullopt);
  EXPECT_EQ(readJSON("\"a\\u0000b\""), PropertyListValue("a\0b"s));
}

TEST(JSONReader, FollowsContainersToTheDepthLimitAndNoFurther) {
  const auto nested = [](std::size_t depth) {
    return readJSON(std::string(depth, '[') + std::string(depth, ']'));
  };

  EXPECT_TRUE(nested(JSONSerialization::kMaximumDepth));
  EXPECT_FALSE(nested(JSONSerialization::kMaximumDepth + 1));
  EXPECT_FALSE(nested(1'000'000));
  EXPECT_FALSE(readJSON(std::string(1'000'000, '[')));
}

TEST(JSONReader, RefusesMoreValuesThanTheLimit) {
  std::string text = "[1";
  for (std::size_t i = 2; i < JSONSerialization::kMaximumNodes; ++i) text += ",1";

  EXPECT_TRUE(readJSON(text + "]"));
  EXPECT_FALSE(readJSON(text + ",1]"));
}

}  // namespace
}  // namespace frelta
