#include "linux/JSONWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "GeneratedPropertyLists.h"
#include "linux/JSONReader.h"
#include "tests/support/PeakMemory.h"

namespace frelta {
namespace {

using namespace std::string_literals;

/// The value without what JSON cannot hold.
PropertyListValue expressible(const PropertyListValue& value) {
  if (value.date() || value.data()) return Null();
  if (const double* number = std::get_if<double>(&value.storage()))
    return std::isfinite(*number) ? value : Null();
  if (const Array* array = value.array()) {
    Array result;
    for (const PropertyListValue& element : *array) result.push_back(expressible(element));
    return result;
  }
  if (const Dictionary* dictionary = value.dictionary()) {
    Dictionary result;
    for (const auto& [key, entry] : *dictionary) result[key] = expressible(entry);
    return result;
  }
  return value;
}

TEST(JSONWriter, WritesOneEntryALineInTheKeysOrder) {
  const Dictionary value{
      {"b", Array{1, Dictionary{{"x", Null()}}}}, {"a", true}, {"c", Array()}, {"d", Dictionary()}};

  EXPECT_EQ(writeJSON(value), R"({
  "a" : true,
  "b" : [
    1,
    {
      "x" : null
    }
  ],
  "c" : [],
  "d" : {}
})");
}

TEST(JSONWriter, DoublesNeverLookLikeIntegers) {
  EXPECT_EQ(writeJSON(1.0), "1.0");
  EXPECT_EQ(writeJSON(-0.0), "-0.0");
  EXPECT_EQ(writeJSON(0.1), "0.1");
  EXPECT_EQ(writeJSON(1e22), "1e+22");
  EXPECT_EQ(writeJSON(1), "1");
  EXPECT_EQ(writeJSON(~std::uint64_t{0}), "18446744073709551615");
}

TEST(JSONWriter, EscapesWhatTextCannotHold) {
  EXPECT_EQ(writeJSON("\"\\/\b\f\n\r\t"), R"("\"\\/\b\f\n\r\t")");
  EXPECT_EQ(writeJSON("\0\x1F\x7F"s), "\"\\u0000\\u001f\x7F\"");
  EXPECT_EQ(writeJSON("é😀\u2028"), "\"é😀\u2028\"");
  EXPECT_EQ(writeJSON(Dictionary{{"\"", ""}}), "{\n  \"\\\"\" : \"\"\n}");
}

TEST(JSONWriter, ThrowsForWhatJSONCannotHold) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::vector<PropertyListValue> values = {
      Date{0}, Data{"x"}, kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN(), "\xFF"};

  for (const PropertyListValue& value : values) {
    EXPECT_THROW(writeJSON(value), std::invalid_argument);
    EXPECT_THROW(writeJSON(Dictionary{{"k", Array{value}}}), std::invalid_argument);
  }
  EXPECT_THROW(writeJSON(Dictionary{{"\xC3", 1}}), std::invalid_argument);
}

TEST(JSONWriter, RefusesADocumentOverTheByteLimit) {
  const std::string most(kMaximumJSONBytes - 2, 'x');

  EXPECT_EQ(writeJSON(most).size(), kMaximumJSONBytes);
  EXPECT_THROW(writeJSON(most + "x"), std::invalid_argument);
}

TEST(JSONWriter, StopsWhereADocumentGoesOverTheLimit) {
  // Six bytes for one, and blanks before each entry.
  const std::string controls(kMaximumJSONBytes, '\x01');
  PropertyListValue indented = Array(190'000, true);
  for (int level = 0; level < 100; ++level) indented = Array{indented};
  const PeakMemory memory;

  EXPECT_THROW(writeJSON(controls), std::invalid_argument);
  EXPECT_THROW(writeJSON(indented), std::invalid_argument);

  EXPECT_LT(memory.growth(), 3 * kMaximumJSONBytes);
}

TEST(JSONWriter, AThousandGeneratedValuesReadAsTheyWereWritten) {
  GeneratedPropertyLists generated(4);

  for (int i = 0; i < 1'000; ++i) {
    const PropertyListValue value = expressible(generated.next());

    const std::string document = writeJSON(value);

    ASSERT_EQ(readJSON(document), value) << document;
  }
}

}  // namespace
}  // namespace frelta
