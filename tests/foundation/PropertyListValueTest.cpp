#include "foundation/PropertyListValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace frelta {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kLargestInt64 = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kSmallestInt64 = std::numeric_limits<std::int64_t>::min();
constexpr std::uint64_t kLargestUInt64 = std::numeric_limits<std::uint64_t>::max();

std::vector<PropertyListValue> valuesThatAreNotNumbersOrText() {
  return {Null(), Date{12}, Data{"1"}, Array{1}, Dictionary{{"1", 1}}};
}

TEST(PropertyListValue, AnUnsignedIntegerThatFitsInt64EqualsTheSignedOne) {
  const PropertyListValue small(std::uint64_t{7});
  const PropertyListValue edge(static_cast<std::uint64_t>(kLargestInt64));
  const PropertyListValue above(static_cast<std::uint64_t>(kLargestInt64) + 1);

  EXPECT_EQ(small, PropertyListValue(7));
  EXPECT_EQ(edge, PropertyListValue(kLargestInt64));
  EXPECT_TRUE(std::holds_alternative<std::uint64_t>(above.storage()));
  EXPECT_NE(above, PropertyListValue(kSmallestInt64));
}

TEST(PropertyListValue, BooleansIntegersAndDoublesAreDifferentValues) {
  const PropertyListValue boolean(true), integer(1), number(1.0);

  EXPECT_NE(boolean, integer);
  EXPECT_NE(integer, number);
  EXPECT_NE(boolean, number);
}

TEST(PropertyListValue, DoublesCompareByTheirBits) {
  const PropertyListValue nan(kNaN), zero(0.0), minusZero(-0.0);

  EXPECT_EQ(nan, PropertyListValue(kNaN));
  EXPECT_NE(zero, minusZero);
  EXPECT_EQ(PropertyListValue(Array{kNaN}), PropertyListValue(Array{kNaN}));
  EXPECT_NE(PropertyListValue(Dictionary{{"a", 0.0}}), PropertyListValue(Dictionary{{"a", -0.0}}));
}

TEST(PropertyListValue, ContainersCompareByTheirContents) {
  const PropertyListValue nested(Dictionary{{"a", Array{1, "x", Data{"b"}}}});
  PropertyListValue changed = nested;

  changed.dictionary()->at("a").array()->push_back(Null());

  EXPECT_EQ(nested, PropertyListValue(Dictionary{{"a", Array{1, "x", Data{"b"}}}}));
  EXPECT_NE(nested, changed);
}

TEST(PropertyListValue, KnowsItsType) {
  const PropertyListValue boolean(false), integer(-1), large(kLargestUInt64), number(0.5), text("");

  EXPECT_TRUE(PropertyListValue().isNull());
  EXPECT_TRUE(boolean.isBoolean() && boolean.isNumber() && !boolean.isInteger());
  EXPECT_TRUE(integer.isInteger() && integer.isNumber() && !integer.isBoolean());
  EXPECT_TRUE(large.isInteger() && large.isNumber());
  EXPECT_TRUE(number.isNumber() && !number.isInteger());
  EXPECT_TRUE(text.isString() && !text.isNumber() && !text.isNull());
}

TEST(PropertyListValue, TypedContentsAreNullForAnotherType) {
  const PropertyListValue text("x");

  EXPECT_EQ(*text.string(), "x");
  EXPECT_EQ(text.date(), nullptr);
  EXPECT_EQ(text.data(), nullptr);
  EXPECT_EQ(text.array(), nullptr);
  EXPECT_EQ(text.dictionary(), nullptr);
  EXPECT_EQ(PropertyListValue(1).string(), nullptr);
}

TEST(PropertyListValue, BoolValueOfANumberIsItsTruth) {
  for (const PropertyListValue& on : std::vector<PropertyListValue>{
           true, 1, -1, 256, kSmallestInt64, kLargestUInt64, 0.25, -1e-300, kNaN, kInfinity})
    EXPECT_TRUE(on.boolValue());
  for (const PropertyListValue& off : std::vector<PropertyListValue>{false, 0, 0.0, -0.0})
    EXPECT_FALSE(off.boolValue());
}

TEST(PropertyListValue, BoolValueOfTextLooksAtTheFirstCharacterAfterSpaceSignAndZeros) {
  for (const char* on : {"Y", "yes", "T", "true", "1", "9z", " \t\n+0012", "-1", "00Y", "+T"})
    EXPECT_TRUE(PropertyListValue(on).boolValue()) << on;
  for (const char* off : {"", " ", "0", "-0", "N", "no", "false", "x1", "+-1", "+ 1", "0 1", ".5"})
    EXPECT_FALSE(PropertyListValue(off).boolValue()) << off;
}

TEST(PropertyListValue, LongLongValueOfANumberTruncatesAndClamps) {
  EXPECT_EQ(PropertyListValue(true).longLongValue(), 1);
  EXPECT_EQ(PropertyListValue(false).longLongValue(), 0);
  EXPECT_EQ(PropertyListValue(kSmallestInt64).longLongValue(), kSmallestInt64);
  EXPECT_EQ(PropertyListValue(kLargestUInt64).longLongValue(), -1);
  EXPECT_EQ(PropertyListValue(2.99).longLongValue(), 2);
  EXPECT_EQ(PropertyListValue(-2.99).longLongValue(), -2);
  EXPECT_EQ(PropertyListValue(9223372036854775808.0).longLongValue(), kLargestInt64);
  EXPECT_EQ(PropertyListValue(-9223372036854775808.0).longLongValue(), kSmallestInt64);
  EXPECT_EQ(PropertyListValue(kInfinity).longLongValue(), kLargestInt64);
  EXPECT_EQ(PropertyListValue(-kInfinity).longLongValue(), kSmallestInt64);
  EXPECT_EQ(PropertyListValue(kNaN).longLongValue(), 0);
}

TEST(PropertyListValue, LongLongValueOfTextIsItsLeadingNumber) {
  EXPECT_EQ(PropertyListValue(" \n-12abc").longLongValue(), -12);
  EXPECT_EQ(PropertyListValue("+7.9").longLongValue(), 7);
  EXPECT_EQ(PropertyListValue("9223372036854775807").longLongValue(), kLargestInt64);
  EXPECT_EQ(PropertyListValue("9223372036854775808").longLongValue(), kLargestInt64);
  EXPECT_EQ(PropertyListValue("-9223372036854775808").longLongValue(), kSmallestInt64);
  EXPECT_EQ(PropertyListValue("-99999999999999999999999").longLongValue(), kSmallestInt64);
  for (const char* none : {"", "-", "+-1", "abc", "0x10",
                           "\xC2\xA0"
                           "5"})
    EXPECT_EQ(PropertyListValue(none).longLongValue(), 0) << none;
}

TEST(PropertyListValue, IntValueOfANumberIsCutTo32Bits) {
  EXPECT_EQ(PropertyListValue(std::int64_t{0x100000005}).intValue(), 5);
  EXPECT_EQ(PropertyListValue(std::int64_t{0x80000000}).intValue(), -2147483647 - 1);
  EXPECT_EQ(PropertyListValue(kLargestUInt64).intValue(), -1);
  EXPECT_EQ(PropertyListValue(-1.5).intValue(), -1);
  EXPECT_EQ(PropertyListValue(4294967297.0).intValue(), 1);
  EXPECT_EQ(PropertyListValue(1e300).intValue(), -1);
  EXPECT_EQ(PropertyListValue(kNaN).intValue(), 0);
  EXPECT_EQ(PropertyListValue(true).intValue(), 1);
}

TEST(PropertyListValue, IntValueOfTextIsClampedTo32Bits) {
  EXPECT_EQ(PropertyListValue("12").intValue(), 12);
  EXPECT_EQ(PropertyListValue("2147483646").intValue(), 2147483646);
  EXPECT_EQ(PropertyListValue("2147483648").intValue(), 2147483647);
  EXPECT_EQ(PropertyListValue("-2147483647").intValue(), -2147483647);
  EXPECT_EQ(PropertyListValue("-2147483649").intValue(), -2147483647 - 1);
  EXPECT_EQ(PropertyListValue("YES").intValue(), 0);
}

TEST(PropertyListValue, DoubleValueReadsNumbersAndLeadingDecimalText) {
  EXPECT_EQ(PropertyListValue(true).doubleValue(), 1);
  EXPECT_EQ(PropertyListValue(false).doubleValue(), 0);
  EXPECT_EQ(PropertyListValue(-3).doubleValue(), -3);
  EXPECT_EQ(PropertyListValue(kLargestUInt64).doubleValue(), 18446744073709551616.0);
  EXPECT_EQ(PropertyListValue(0.1).doubleValue(), 0.1);
  EXPECT_EQ(PropertyListValue(" -1.5e2px").doubleValue(), -150);
  EXPECT_EQ(PropertyListValue("+.25").doubleValue(), 0.25);
  EXPECT_EQ(PropertyListValue("3,7").doubleValue(), 3);
  for (const char* none : {"", "inf", "nan", "-", "--1", "+-1", "e5", ".", "1e999", "1e-999"})
    EXPECT_EQ(PropertyListValue(none).doubleValue(), 0) << none;
}

TEST(PropertyListValue, OtherTypesConvertToNothing) {
  const std::vector<PropertyListValue> values = valuesThatAreNotNumbersOrText();

  for (const PropertyListValue& value : values) {
    EXPECT_FALSE(value.boolValue());
    EXPECT_EQ(value.intValue(), 0);
    EXPECT_EQ(value.longLongValue(), 0);
    EXPECT_EQ(value.doubleValue(), 0);
  }
}

TEST(PropertyListValue, CopiesAreDeep) {
  PropertyListValue original(Array{Array{1}});
  PropertyListValue copy = original;

  copy.array()->front().array()->front() = 2;

  EXPECT_EQ(original, PropertyListValue(Array{Array{1}}));
  EXPECT_EQ(copy, PropertyListValue(Array{Array{2}}));
}

TEST(PropertyListValue, ValueForKeyIsNullWhereTheKeyIsAbsent) {
  const Dictionary dictionary{{"here", 0}};

  EXPECT_EQ(valueForKey(dictionary, "here"), &dictionary.at("here"));
  EXPECT_EQ(valueForKey(dictionary, "Here"), nullptr);
}

}  // namespace
}  // namespace frelta
