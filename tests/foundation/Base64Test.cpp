#include "foundation/Base64.h"

#include <gtest/gtest.h>

#include <random>

namespace frelta {
namespace {

using namespace std::string_literals;

struct Pair {
  std::string bytes;
  std::string text;
};

const Pair kPairs[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {"\0\0\0"s, "AAAA"},
    {"\xFB\xFF\xFE", "+//+"},
};

TEST(Base64, EncodesInTheStandardAlphabetWithPadding) {
  for (const auto& [bytes, text] : kPairs) EXPECT_EQ(base64EncodedString(bytes), text);
}

TEST(Base64, DecodesWhatItEncodes) {
  for (const auto& [bytes, text] : kPairs) EXPECT_EQ(dataFromBase64String(text), bytes);
}

TEST(Base64, EveryByteAtEveryPlaceInAGroupComesBack) {
  for (int byte = 0; byte < 256; ++byte) {
    for (std::size_t length = 1; length <= 4; ++length) {
      const std::string bytes(length, static_cast<char>(byte));
      EXPECT_EQ(dataFromBase64String(base64EncodedString(bytes)), bytes);
    }
  }
}

TEST(Base64, BreaksNoLinesAtAnyLength) {
  const std::string text = base64EncodedString(std::string(3000, 'x'));

  EXPECT_EQ(text.size(), 4000u);
  EXPECT_EQ(text.find_first_of(" \r\n\t"), std::string::npos);
}

TEST(Base64, RefusesWhatIsNotInTheAlphabet) {
  for (const std::string& text : {"Zm9v\n"s, " Zm9v"s, "Zm 9"s, "Zm9-"s, "Zm9_"s, "!!!!"s, "Zm9\0"s,
                                  "Zm9\xC3"s, "Zm9v\r\n\r\n"s})
    EXPECT_EQ(dataFromBase64String(text), std::nullopt) << text;
}

TEST(Base64, RefusesMissingExtraOrMisplacedPadding) {
  for (const char* text : {"Zg", "Zg=", "Zm8", "Z", "Z===", "====", "=", "==", "Zm9v=", "Zm9v==",
                           "Zm9v====", "Zg==Zg==", "Z=g=", "=Zg=", "Zg=a", "Zm=v"})
    EXPECT_EQ(dataFromBase64String(text), std::nullopt) << text;
}

TEST(Base64, PassesOverBitsUnderThePadding) {
  for (const char* text : {"Zh==", "Zv=="}) EXPECT_EQ(dataFromBase64String(text), "f") << text;
  for (const char* text : {"Zm9=", "Zm+="}) EXPECT_EQ(dataFromBase64String(text), "fo") << text;
  EXPECT_EQ(dataFromBase64String("//=="), "\xFF");
  EXPECT_EQ(dataFromBase64String("e31="), "{}");
}

TEST(Base64, WhateverItAcceptsDiffersFromTheOneEncodingOfItsBytesOnlyInBitsUnderThePadding) {
  std::mt19937 random(1);
  constexpr std::string_view kCharacters = "AQgw/+9z=";
  int accepted = 0;

  for (int i = 0; i < 20'000; ++i) {
    std::string text(random() % 3 * 4, 'A');
    for (char& c : text) c = kCharacters[random() % kCharacters.size()];
    const std::optional<std::string> bytes = dataFromBase64String(text);
    if (!bytes) continue;
    ++accepted;
    std::string encoded = base64EncodedString(*bytes);
    ASSERT_EQ(encoded.size(), text.size());
    if (const std::size_t padding = text.find('='); padding != std::string::npos)
      encoded[padding - 1] = text[padding - 1];
    EXPECT_EQ(encoded, text);
  }

  EXPECT_GT(accepted, 5'000);
}

}  // namespace
}  // namespace frelta
