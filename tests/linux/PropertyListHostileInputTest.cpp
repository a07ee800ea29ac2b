#include <gtest/gtest.h>

#include <random>

#include "GeneratedPropertyLists.h"
#include "linux/LinuxPropertyListSerialization.h"

namespace frelta {
namespace {

using namespace std::string_literals;

const LinuxPropertyListSerialization propertyLists;

TEST(PropertyListHostileInput, NothingIsNoPropertyList) {
  for (const std::string& bytes : {""s, " "s, "\n"s, "\0"s, "bplist00"s, "bplist01"s, "bplist"s,
                                   "\xEF\xBB\xBF"s, "\xFF\xFE"s, "<"s, "<?xml version=\"1.0\"?>"s})
    EXPECT_EQ(propertyLists.propertyListWithData(bytes), std::nullopt)
        << testing::PrintToString(bytes);
}

TEST(PropertyListHostileInput, RandomBytesAreNoPropertyList) {
  std::mt19937 random(1);

  for (int i = 0; i < 5'000; ++i) {
    std::string bytes(random() % 300, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    EXPECT_EQ(propertyLists.propertyListWithData(bytes), std::nullopt);
    EXPECT_EQ(propertyLists.propertyListWithData("bplist00" + bytes), std::nullopt);
  }
}

TEST(PropertyListHostileInput, WhateverADamagedDocumentReadsAsCanBeWrittenAgain) {
  std::mt19937 random(1);
  GeneratedPropertyLists generated(3);
  int read = 0;

  for (int i = 0; i < 3'000; ++i) {
    std::string document = propertyLists.dataWithPropertyList(generated.next()).value();
    for (int change = 0; change < 2; ++change) {
      const std::size_t position = 160 + random() % (document.size() - 160);
      document[position] = static_cast<char>(random() % 2 ? random() : '0' + random() % 10);
    }
    const std::optional<PropertyListValue> value = propertyLists.propertyListWithData(document);
    if (!value) continue;
    ++read;
    const std::optional<std::string> again = propertyLists.dataWithPropertyList(*value);
    ASSERT_TRUE(again) << document;
    ASSERT_EQ(propertyLists.propertyListWithData(*again), value) << document;
  }

  EXPECT_GT(read, 100);
  EXPECT_LT(read, 2'900);
}

TEST(PropertyListHostileInput, ABillionLaughsAreRefused) {
  std::string document = "<!DOCTYPE plist [<!ENTITY l0 \"lol\">";
  for (int i = 1; i < 10; ++i) {
    document += "<!ENTITY l" + std::to_string(i) + " \"";
    for (int j = 0; j < 10; ++j) document += "&l" + std::to_string(i - 1) + ";";
    document += "\">";
  }
  document += "]><plist><string>&l9;</string></plist>";

  EXPECT_EQ(propertyLists.propertyListWithData(document), std::nullopt);
}

TEST(PropertyListHostileInput, AHundredThousandNestedElementsAreRefusedWithoutTheirEndTags) {
  std::string dictionaries = "<plist>", unknown = "<plist>";
  for (int i = 0; i < 100'000; ++i) {
    dictionaries += "<dict><key>k</key>";
    unknown += "<a>";
  }

  EXPECT_EQ(propertyLists.propertyListWithData(dictionaries), std::nullopt);
  EXPECT_EQ(propertyLists.propertyListWithData(unknown), std::nullopt);
}

}  // namespace
}  // namespace frelta
