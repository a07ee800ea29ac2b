#include "foundation/UTF8.h"

#include <gtest/gtest.h>

namespace frelta {
namespace {

TEST(UTF8, EveryScalarValueComesBackAsItWasAppended) {
  for (char32_t value = 0; value <= 0x10FFFF; ++value) {
    if (value == 0xD800) value = 0xE000;
    std::string text;
    appendScalar(text, value);

    const std::optional<Scalar> scalar = scalarAt(text, 0);

    ASSERT_TRUE(scalar) << static_cast<unsigned>(value);
    ASSERT_EQ(scalar->value, value);
    ASSERT_EQ(scalar->length, text.size());
  }
}

TEST(UTF8, LengthsAreOneToFourBytes) {
  const std::string text = "aé€😀";

  EXPECT_EQ(scalarAt(text, 0)->length, 1u);
  EXPECT_EQ(scalarAt(text, 1)->length, 2u);
  EXPECT_EQ(scalarAt(text, 3)->length, 3u);
  EXPECT_EQ(scalarAt(text, 6)->length, 4u);
}

TEST(UTF8, MalformedBytesAreNoScalar) {
  for (const char* text :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC3", "\xE2\x82",
        "\xF0\x9F\x98", "\xC3(", "\xE2\x82(", "\x9F\x80", "\xBF\xBF", "\xF8\x90\x80\x80"})
    EXPECT_FALSE(scalarAt(text, 0)) << testing::PrintToString(text);
}

TEST(UTF8, OneBadByteAnywhereSpoilsAText) {
  EXPECT_TRUE(isUTF8(""));
  EXPECT_TRUE(isUTF8("aé€😀"));
  for (const char* text : {"\xFF",
                           "\xFF"
                           "a",
                           "a\xFF", "a\xE9.plist", "é\x80", "é€\xC3"})
    EXPECT_FALSE(isUTF8(text)) << testing::PrintToString(text);
}

TEST(UTF8, ASequenceThatRunsOverTheEndOfTheViewIsNoScalar) {
  const std::string_view text = "a€";

  EXPECT_FALSE(scalarAt(text.substr(0, 3), 1));
}

}  // namespace
}  // namespace frelta
