#include "linux/BinaryPropertyListWriter.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "AssembledBinaryPropertyList.h"
#include "foundation/PropertyListSerialization.h"
#include "linux/BinaryPropertyListReader.h"
#include "linux/LinuxPropertyListSerialization.h"

namespace frelta {
namespace {

using namespace std::string_literals;

constexpr std::size_t kSignatureAndTrailer = 8 + 32;

/// The bytes of a document's only object.
std::string object(const PropertyListValue& value) {
  const std::string document = writeBinaryPropertyList(value).value();
  // One offset, of one byte or two.
  const std::size_t offset = document.size() < 300 ? 1 : 2;
  return document.substr(8, document.size() - kSignatureAndTrailer - offset);
}

TEST(BinaryPropertyListWriter, WritesContainersBeforeWhatTheyHold) {
  const Dictionary value{{"a", Array{true, "x"}}, {"b", 2}};

  const std::optional<std::string> document = writeBinaryPropertyList(value);

  const AssembledBinaryPropertyList expected{.objects = {"\xD2\1\2\3\4",
                                                         "\x51"
                                                         "a",
                                                         "\x51"
                                                         "b",
                                                         "\xA2\5\6", "\x10\2", "\x09", "\x51x"},
                                             .offsetSize = 1};
  EXPECT_EQ(document, expected.bytes());
}

TEST(BinaryPropertyListWriter, WritesNumbersInTheirShortestForm) {
  EXPECT_EQ(object(false), "\x08");
  EXPECT_EQ(object(0), "\x10\0"s);
  EXPECT_EQ(object(255), "\x10\xFF");
  EXPECT_EQ(object(256), "\x11\1\0"s);
  EXPECT_EQ(object(65535), "\x11\xFF\xFF");
  EXPECT_EQ(object(65536), "\x12\0\1\0\0"s);
  EXPECT_EQ(object(std::int64_t{4294967295}), "\x12\xFF\xFF\xFF\xFF");
  EXPECT_EQ(object(std::int64_t{4294967296}), "\x13\0\0\0\1\0\0\0\0"s);
  EXPECT_EQ(object(-1), "\x13" + std::string(8, '\xFF'));
  EXPECT_EQ(object(std::numeric_limits<std::int64_t>::max()), "\x13\x7F" + std::string(7, '\xFF'));
  EXPECT_EQ(object(~std::uint64_t{0}), "\x14" + std::string(8, '\0') + std::string(8, '\xFF'));
  EXPECT_EQ(object(-0.0), "\x23\x80\0\0\0\0\0\0\0"s);
  EXPECT_EQ(object(Date{1.5}), "\x33\x3F\xF8\0\0\0\0\0\0"s);
}

TEST(BinaryPropertyListWriter, WritesTextInASCIIOrElseInUTF16) {
  EXPECT_EQ(object("hi\x7F"), "\x53hi\x7F");
  EXPECT_EQ(object("h€"), "\x62\0h\x20\xAC"s);
  EXPECT_EQ(object("\u0080"), "\x61\0\x80"s);
  EXPECT_EQ(object("\uFFFF"), "\x61\xFF\xFF");
  EXPECT_EQ(object("\U00010000"), "\x62\xD8\0\xDC\0"s);
  EXPECT_EQ(object("\U0010FFFF"), "\x62\xDB\xFF\xDF\xFF");
}

TEST(BinaryPropertyListWriter, CountsFromFifteenOnFollowTheMarker) {
  EXPECT_EQ(object(std::string(14, 'x')), "\x5E" + std::string(14, 'x'));
  EXPECT_EQ(object(std::string(15, 'x')), "\x5F\x10\x0F" + std::string(15, 'x'));
  EXPECT_EQ(object(Data{std::string(300, 'x')}), "\x4F\x11\x01\x2C" + std::string(300, 'x'));
  EXPECT_EQ(object(Array()), "\xA0");
  EXPECT_EQ(object(Dictionary()), "\xD0");
}

TEST(BinaryPropertyListWriter, KeepsWhatXMLCannotCarry) {
  const Dictionary value{{"\x01\v\0"s, "\x01"},
                         {"\uFFFE", "\uFFFF"},
                         {"fraction", Date{0.25}},
                         {"before", Date{-63113903999.5}},
                         {"not a number", std::bit_cast<double>(0x7FF8'0000'0000'0001)}};

  const std::optional<std::string> document = writeBinaryPropertyList(value);

  EXPECT_EQ(readBinaryPropertyList(document.value()), value);
}

TEST(BinaryPropertyListWriter, ReferencesAndOffsetsGrowWithTheDocument) {
  for (const std::size_t count : {254, 255, 256, 65534, 65535, 65536}) {
    const PropertyListValue value(Array(count, PropertyListValue(true)));

    const std::string document = writeBinaryPropertyList(value).value();

    EXPECT_EQ(readBinaryPropertyList(document), value) << count;
    // An array of so many, each a reference, a marker and an offset.
    const std::size_t reference = count < 256 ? 1 : count < 65536 ? 2 : 4;
    const std::size_t marker = count < 256 ? 3 : count < 65536 ? 4 : 6;
    const std::size_t objects = marker + count * (reference + 1);
    const std::size_t offset = 8 + objects < 256 ? 1 : 8 + objects < 65536 ? 2 : 4;
    EXPECT_EQ(document.size(), kSignatureAndTrailer + objects + (count + 1) * offset) << count;
  }
}

TEST(BinaryPropertyListWriter, RefusesWhatTheFormCannotHold) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::vector<PropertyListValue> values = {Null(),
                                                 Date{-63113904001.0},
                                                 Date{252423993600.0},
                                                 Date{kInfinity},
                                                 Date{std::numeric_limits<double>::quiet_NaN()},
                                                 "\xFF",
                                                 "a\xE9.plist",
                                                 "\xED\xA0\x80"};

  for (const PropertyListValue& value : values) {
    EXPECT_EQ(writeBinaryPropertyList(value), std::nullopt);
    EXPECT_EQ(writeBinaryPropertyList(Array{1, value}), std::nullopt);
    EXPECT_EQ(writeBinaryPropertyList(Dictionary{{"k", value}}), std::nullopt);
  }
  EXPECT_EQ(writeBinaryPropertyList(Dictionary{{"\xFF", 1}}), std::nullopt);
}

TEST(BinaryPropertyListWriter, WritesExactlyTheDepthThatIsRead) {
  const auto nested = [](int depth) {
    PropertyListValue value = Dictionary();
    for (int i = 1; i < depth; ++i) value = PropertyListValue(Array{std::move(value)});
    return value;
  };
  const PropertyListValue deepest = nested(PropertyListSerialization::kMaximumDepth);

  EXPECT_EQ(readBinaryPropertyList(writeBinaryPropertyList(deepest).value()), deepest);
  EXPECT_EQ(writeBinaryPropertyList(nested(PropertyListSerialization::kMaximumDepth + 1)),
            std::nullopt);
}

class PropertyListForms : public testing::Test {
 protected:
  static bool isBinary(const std::optional<std::string>& document) {
    return document && document->starts_with(kBinaryPropertyListSignature);
  }
  LinuxPropertyListSerialization propertyLists;
};

TEST_F(PropertyListForms, XMLIsWrittenWhereItCarriesTheValue) {
  const Dictionary value{{"a\tb\n", Array{"\uFFFD", Date{1}, Data{"\x01"}}}};

  const auto document = propertyLists.dataWithPropertyList(value);

  ASSERT_TRUE(document);
  EXPECT_TRUE(document->starts_with("<?xml"));
  EXPECT_EQ(propertyLists.propertyListWithData(*document), value);
}

TEST_F(PropertyListForms, TheBinaryFormIsWrittenWhereXMLCannotCarryTheValue) {
  for (const PropertyListValue& value :
       {PropertyListValue("\x01"), PropertyListValue("\0"s), PropertyListValue("\uFFFF"),
        PropertyListValue(Date{0.5}), PropertyListValue(Dictionary{{"\v", 1}})}) {
    const auto document = propertyLists.dataWithPropertyList(value);

    EXPECT_TRUE(isBinary(document));
    EXPECT_EQ(propertyLists.propertyListWithData(document.value()), value);
  }
}

// Base64 takes four bytes for three: the file read would be the last one that could be.
TEST_F(PropertyListForms, TheBinaryFormIsWrittenWhereXMLWouldBeTooLarge) {
  const PropertyListValue value(Data{std::string(40 << 20, 'x')});

  const auto document = propertyLists.dataWithPropertyList(value);

  EXPECT_TRUE(isBinary(document));
  EXPECT_EQ(propertyLists.propertyListWithData(document.value()), value);
}

TEST_F(PropertyListForms, TheBinaryFormIsWrittenWhereXMLWouldHaveTooManyPieces) {
  for (const char character : {'\n', '&', '<'}) {
    const PropertyListValue value(std::string((1 << 20) + 1, character));

    const auto document = propertyLists.dataWithPropertyList(value);

    EXPECT_TRUE(isBinary(document)) << character;
    EXPECT_EQ(propertyLists.propertyListWithData(document.value()), value) << character;
  }
}

TEST_F(PropertyListForms, NothingIsWrittenThatCouldNotBeRead) {
  const std::size_t kTooMany = PropertyListSerialization::kMaximumNodes + 1;
  Array most(kTooMany - 2, PropertyListValue(true));

  EXPECT_TRUE(propertyLists.dataWithPropertyList(most).has_value());
  most.resize(kTooMany - 1, PropertyListValue(true));
  EXPECT_EQ(propertyLists.dataWithPropertyList(most), std::nullopt);
  EXPECT_EQ(propertyLists.dataWithPropertyList(
                Data{std::string(PropertyListSerialization::kMaximumBytes, 'x')}),
            std::nullopt);
}

}  // namespace
}  // namespace frelta
