#include "linux/BinaryPropertyListReader.h"

#include <gtest/gtest.h>

#include <limits>

#include "AssembledBinaryPropertyList.h"
#include "foundation/PropertyListSerialization.h"
#include "tests/support/PeakMemory.h"

namespace frelta {
namespace {

using namespace std::string_literals;

/// One of every type, as Python's plistlib writes it.
const std::string kSample = bytesFromHex(
    "62706c6973743030d801020304050607080911141516191c1f55617272617954626f6f6c5464617461546461"
    "74655464696374547265616c547465787453756964a70a0b0c0d0e0f10100111012c120001117013ffffffff"
    "ffffffff137fffffffffffffff1400000000000000008000000000000000140000000000000000ffffffffff"
    "ffffffa2121309084200ff3340f5181000000000d117185059656d707479206b6579a21a1b233fb999999999"
    "999a238000000000000000a31d1e175561736369696300e9d83dde0081010208191f24292e33383d41494b4e"
    "535c6576878a8b8c8f989b9ca6a9b2bbbfc5cc00000000000001010000000000000020000000000000000000"
    "000000000000cf");

/// What a file whose only object is this one reads as.
std::optional<PropertyListValue> readObject(const std::string& object) {
  return readBinaryPropertyList(AssembledBinaryPropertyList{{object}}.bytes());
}

TEST(BinaryPropertyListReader, ReadsEveryTypeThatAnotherWriterWrites) {
  const PropertyListValue expected(
      Dictionary{{"array", Array{1, 300, 70000, -1, std::numeric_limits<std::int64_t>::max(),
                                 std::uint64_t{1} << 63, ~std::uint64_t{0}}},
                 {"bool", Array{true, false}},
                 {"data", Data{"\0\xFF"s}},
                 {"date", Date{86401}},
                 {"dict", Dictionary{{"", "empty key"}}},
                 {"real", Array{0.1, -0.0}},
                 {"text", Array{"ascii", "é😀", ""}},
                 {"uid", Dictionary{{"CF$UID", 258}}}});

  const std::optional<PropertyListValue> value = readBinaryPropertyList(kSample);

  EXPECT_EQ(value, expected);
}

TEST(BinaryPropertyListReader, RefusesAFileTruncatedAtAnyByte) {
  for (std::size_t length = 0; length < kSample.size(); ++length)
    EXPECT_EQ(readBinaryPropertyList(kSample.substr(0, length)), std::nullopt) << length;
}

TEST(BinaryPropertyListReader, RefusesTrailingBytes) {
  EXPECT_EQ(readBinaryPropertyList(kSample + "\n"), std::nullopt);
  EXPECT_EQ(readBinaryPropertyList(kSample + kSample), std::nullopt);
}

TEST(BinaryPropertyListReader, ShortIntegersAreUnsignedAndEightBytesAreSigned) {
  EXPECT_EQ(readObject("\x10\xFF"), PropertyListValue(255));
  EXPECT_EQ(readObject("\x11\xFF\xFF"), PropertyListValue(65535));
  EXPECT_EQ(readObject("\x12\xFF\xFF\xFF\xFF"), PropertyListValue(std::int64_t{4294967295}));
  EXPECT_EQ(readObject("\x13"s + std::string(8, '\xFF')), PropertyListValue(-1));
  EXPECT_EQ(readObject("\x13"s + bigEndian(std::uint64_t{1} << 63, 8)),
            PropertyListValue(std::numeric_limits<std::int64_t>::min()));
}

TEST(BinaryPropertyListReader, SixteenByteIntegersMustFitSixtyFourBits) {
  const std::string smallestInt64 = bigEndian(std::uint64_t{1} << 63, 8);

  EXPECT_EQ(readObject("\x14"s + bigEndian(0, 8) + std::string(8, '\xFF')),
            PropertyListValue(~std::uint64_t{0}));
  EXPECT_EQ(readObject("\x14"s + bigEndian(0, 8) + bigEndian(5, 8)), PropertyListValue(5));
  EXPECT_EQ(readObject("\x14"s + std::string(8, '\xFF') + smallestInt64),
            PropertyListValue(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(readObject("\x14"s + std::string(8, '\xFF') + bigEndian(5, 8)), std::nullopt);
  EXPECT_EQ(readObject("\x14"s + std::string(8, '\xFF') + bigEndian(0, 8)), std::nullopt);
  EXPECT_EQ(readObject("\x14"s + bigEndian(1, 8) + bigEndian(0, 8)), std::nullopt);
  EXPECT_EQ(readObject("\x15"s + std::string(32, '\0')), std::nullopt);
}

TEST(BinaryPropertyListReader, RealsHaveFourOrEightBytes) {
  EXPECT_EQ(readObject("\x22\x3F\x80\0\0"s), PropertyListValue(1.0));
  EXPECT_EQ(readObject("\x23\x80\0\0\0\0\0\0\0"s), PropertyListValue(-0.0));
  EXPECT_EQ(readObject("\x23\x7F\xF0\0\0\0\0\0\0"s),
            PropertyListValue(std::numeric_limits<double>::infinity()));
  EXPECT_EQ(readObject("\x21\0\0"s), std::nullopt);
  EXPECT_EQ(readObject("\x24"s + std::string(16, '\0')), std::nullopt);
}

TEST(BinaryPropertyListReader, DatesMustBeFiniteAndInTheYearsOneToNineThousand) {
  EXPECT_EQ(readObject("\x33\x3F\xF8\0\0\0\0\0\0"s), PropertyListValue(Date{1.5}));
  EXPECT_EQ(readObject("\x33\x7F\xF0\0\0\0\0\0\0"s), std::nullopt);
  EXPECT_EQ(readObject("\x33\x7F\xF8\0\0\0\0\0\0"s), std::nullopt);
  EXPECT_EQ(readObject("\x33\x43\0\0\0\0\0\0\0"s), std::nullopt);
  EXPECT_EQ(readObject("\x32\0\0\0\0"s), std::nullopt);
}

TEST(BinaryPropertyListReader, TextIsASCIIOrWellFormedUTF16) {
  EXPECT_EQ(readObject("\x52hi"), PropertyListValue("hi"));
  EXPECT_EQ(readObject("\x62\0h\x20\xAC"s), PropertyListValue("h€"));
  EXPECT_EQ(readObject("\x62\xD8\x3D\xDE\0"s), PropertyListValue("😀"));
  EXPECT_EQ(readObject("\x52h\xE9"), std::nullopt);
  EXPECT_EQ(readObject("\x61\xD8\x3D"), std::nullopt);
  EXPECT_EQ(readObject("\x62\xD8\x3D\0h"s), std::nullopt);
  EXPECT_EQ(readObject("\x62\xDE\0\xD8\x3D"s), std::nullopt);
  EXPECT_EQ(readObject("\x62\xDE\0\xDE\0"s), std::nullopt);
  EXPECT_EQ(readObject("\x62\xD8\x3D\xE0\0"s), std::nullopt);
}

TEST(BinaryPropertyListReader, SurrogatesOfUTF16AreToldFromTheirNeighbours) {
  EXPECT_EQ(readObject("\x61\xD7\xFF"), PropertyListValue("\uD7FF"));
  EXPECT_EQ(readObject("\x61\xE0\0"s), PropertyListValue("\uE000"));
  EXPECT_EQ(readObject("\x62\xD8\0\xDC\0"s), PropertyListValue("\U00010000"));
  EXPECT_EQ(readObject("\x62\xDB\xFF\xDF\xFF"), PropertyListValue("\U0010FFFF"));
  for (const std::string& bad :
       {"\x61\xD8\0"s, "\x61\xDF\xFF"s, "\x62\xDC\0\xDC\0"s, "\x62\xD8\0\xDB\xFF"s, "\x51\x80"s})
    EXPECT_EQ(readObject(bad), std::nullopt) << testing::PrintToString(bad);
}

TEST(BinaryPropertyListReader, LongContentsCarryTheirLengthAsAnInteger) {
  const std::string text(300, 'x');

  EXPECT_EQ(readObject("\x5F\x11\x01\x2C" + text), PropertyListValue(text));
  EXPECT_EQ(readObject("\x4F\x10\x02\0\1"s), PropertyListValue(Data{"\0\1"s}));
  EXPECT_EQ(readObject("\x5F\x13" + bigEndian(300, 8) + text), PropertyListValue(text));
  EXPECT_EQ(readObject("\x5F\x11\x01\x2D" + text), std::nullopt);
  EXPECT_EQ(readObject("\x5F\x52hi"), std::nullopt);
  EXPECT_EQ(readObject("\x5F\0\x02hi"s), std::nullopt);
  EXPECT_EQ(readObject("\x5F\x14"s + std::string(16, '\0')), std::nullopt);
  EXPECT_EQ(readObject("\x5F\x13"s + std::string(8, '\xFF')), std::nullopt);
  EXPECT_EQ(readObject("\x6F\x13"s + std::string(8, '\xFF')), std::nullopt);
  EXPECT_EQ(readObject("\x6F\x13"s + bigEndian(std::uint64_t{1} << 63, 8)), std::nullopt);
  EXPECT_EQ(readObject("\xAF\x13"s + std::string(8, '\xFF')), std::nullopt);
  EXPECT_EQ(readObject("\xDF\x13"s + std::string(8, '\xFF')), std::nullopt);
  EXPECT_EQ(readObject("\xDF\x13"s + bigEndian(std::uint64_t{1} << 63, 8)), std::nullopt);
}

TEST(BinaryPropertyListReader, AUIDIsADictionary) {
  EXPECT_EQ(readObject("\x80\x05"), PropertyListValue(Dictionary{{"CF$UID", 5}}));
  EXPECT_EQ(readObject("\x87"s + std::string(8, '\xFF')),
            PropertyListValue(Dictionary{{"CF$UID", ~std::uint64_t{0}}}));
  EXPECT_EQ(readObject("\x88"s + std::string(9, '\0')), std::nullopt);
}

TEST(BinaryPropertyListReader, RefusesNullFillSetsAndUnknownMarkers) {
  for (const int marker : {0x00, 0x01, 0x07, 0x0A, 0x0C, 0x0F, 0x70, 0x90, 0xB0, 0xC0, 0xE0, 0xF0})
    EXPECT_EQ(readObject(std::string(1, static_cast<char>(marker))), std::nullopt) << marker;
}

TEST(BinaryPropertyListReader, RefusesEveryObjectThatRunsIntoTheOffsetTable) {
  for (const char* object :
       {"\x10", "\x13\1\1\1\1", "\x14\1\1\1\1\1\1\1\1", "\x22\1", "\x23\1", "\x33\1", "\x42\1",
        "\x52x", "\x61x", "\x80", "\xA1", "\xD1\1", "\x4F", "\x4F\x11\1"})
    EXPECT_EQ(readObject(object), std::nullopt) << testing::PrintToString(object);
}

TEST(BinaryPropertyListReader, TheLastOfDuplicateKeysWins) {
  const AssembledBinaryPropertyList file{{"\xD2\1\2\3\4", "\x51k", "\x51k", "\x10\1", "\x10\2"}};

  EXPECT_EQ(readBinaryPropertyList(file.bytes()), PropertyListValue(Dictionary{{"k", 2}}));
}

TEST(BinaryPropertyListReader, KeysMustBeText) {
  const AssembledBinaryPropertyList file{{"\xD1\1\2", "\x10\1", "\x10\2"}};

  EXPECT_EQ(readBinaryPropertyList(file.bytes()), std::nullopt);
}

TEST(BinaryPropertyListReader, WideReferencesAndOffsetsAreRead) {
  AssembledBinaryPropertyList file{{"\xA2\0\1\0\1"s, "\x09"}};
  file.referenceSize = 2;
  file.offsetSize = 8;

  EXPECT_EQ(readBinaryPropertyList(file.bytes()), PropertyListValue(Array{true, true}));
}

TEST(BinaryPropertyListReader, TheTopObjectNeedNotBeTheFirst) {
  AssembledBinaryPropertyList file{{"\x09", "\xA1\0"s}};
  file.topObject = 1;

  EXPECT_EQ(readBinaryPropertyList(file.bytes()), PropertyListValue(Array{true}));
}

TEST(BinaryPropertyListReader, RefusesReferencesToObjectsThatAreNotThere) {
  AssembledBinaryPropertyList beyond{{"\x09"}};
  beyond.topObject = 1;

  EXPECT_EQ(readObject("\xA1\1"), std::nullopt);
  EXPECT_EQ(readObject("\xD1\1\0"s), std::nullopt);
  EXPECT_EQ(readBinaryPropertyList(beyond.bytes()), std::nullopt);
}

TEST(BinaryPropertyListReader, RefusesOffsetsOutsideTheObjects) {
  const AssembledBinaryPropertyList file{{"\x09"}};

  for (const std::uint64_t offset : {0, 7, 9, 13, 1000}) {
    const std::string bytes = "bplist00\x09"s + bigEndian(offset, 4) + file.trailer(9);
    EXPECT_EQ(readBinaryPropertyList(bytes), std::nullopt) << offset;
  }
  const std::string right = "bplist00\x09"s + bigEndian(8, 4);
  EXPECT_TRUE(readBinaryPropertyList(right + file.trailer(9)));
  EXPECT_FALSE(readBinaryPropertyList(right + '\0' + file.trailer(9)));
}

TEST(BinaryPropertyListReader, RefusesATrailerThatDoesNotDescribeTheFile) {
  const std::string good = AssembledBinaryPropertyList{{"\x09"}}.bytes();
  const std::size_t trailer = good.size() - 32;
  const auto changed = [&](std::size_t field, std::uint64_t number, int size) {
    return std::string(good).replace(trailer + field, static_cast<std::size_t>(size),
                                     bigEndian(number, size));
  };

  ASSERT_TRUE(readBinaryPropertyList(good));
  for (const std::uint64_t size : {0, 1, 3, 9, 255})
    EXPECT_EQ(readBinaryPropertyList(changed(6, size, 1)), std::nullopt) << size;
  for (const std::uint64_t size : {0, 9, 255})
    EXPECT_EQ(readBinaryPropertyList(changed(7, size, 1)), std::nullopt) << size;
  for (const std::uint64_t count : {std::uint64_t{0}, std::uint64_t{2}, std::uint64_t{1} << 62})
    EXPECT_EQ(readBinaryPropertyList(changed(8, count, 8)), std::nullopt) << count;
  for (const std::uint64_t table : {std::uint64_t{0}, std::uint64_t{8}, ~std::uint64_t{0}})
    EXPECT_EQ(readBinaryPropertyList(changed(24, table, 8)), std::nullopt) << table;
}

TEST(BinaryPropertyListReader, RefusesCycles) {
  const AssembledBinaryPropertyList itself{{"\xA1\0"s}};
  const AssembledBinaryPropertyList eachOther{{"\xA2\1\1", "\xD1\2\0"s, "\x51k"}};

  EXPECT_EQ(readBinaryPropertyList(itself.bytes()), std::nullopt);
  EXPECT_EQ(readBinaryPropertyList(eachOther.bytes()), std::nullopt);
}

TEST(BinaryPropertyListReader, FollowsContainersToTheDepthLimitAndNoFurther) {
  const auto nested = [](int depth) {
    AssembledBinaryPropertyList file;
    file.referenceSize = 4;
    for (int i = 1; i < depth; ++i)
      file.objects.push_back("\xA1"s + bigEndian(static_cast<std::uint64_t>(i), 4));
    file.objects.push_back("\xA0");
    return file.bytes();
  };

  EXPECT_TRUE(readBinaryPropertyList(nested(PropertyListSerialization::kMaximumDepth)));
  EXPECT_FALSE(readBinaryPropertyList(nested(PropertyListSerialization::kMaximumDepth + 1)));
  EXPECT_FALSE(readBinaryPropertyList(nested(100'000)));
}

TEST(BinaryPropertyListReader, SharedContainersCountAsOftenAsTheyAreVisited) {
  // Seven arrays of 14 references each to the next: 14^7 is 105 million values.
  AssembledBinaryPropertyList explosion;
  for (char next = 1; next <= 7; ++next)
    explosion.objects.push_back("\xAE"s + std::string(14, next));
  explosion.objects.push_back("\x09");

  EXPECT_EQ(readBinaryPropertyList(explosion.bytes()), std::nullopt);
}

TEST(BinaryPropertyListReader, ASmallFileOfManyLevelsOfSharingTakesLittleMemory) {
  AssembledBinaryPropertyList explosion;
  for (char next = 1; next <= 60; ++next)
    explosion.objects.push_back("\xA2"s + std::string(2, next));
  explosion.objects.push_back("\x09");
  const PeakMemory memory;

  const auto value = readBinaryPropertyList(explosion.bytes());

  EXPECT_EQ(value, std::nullopt);
  EXPECT_LT(memory.growth(), std::uint64_t{24} << 20);
}

TEST(BinaryPropertyListReader, WhatIsSharedWithinWhatIsSharedMayBecomeFourMebibytes) {
  // As many arrays, each of 250 booleans, as fit.
  const auto arrays = [](std::size_t count) {
    AssembledBinaryPropertyList file;
    file.objects.push_back("\xAF\x11"s + bigEndian(count, 2) + std::string(count, '\1'));
    file.objects.push_back("\xAF\x10\xFA"s + std::string(250, '\2'));
    file.objects.push_back("\x09");
    return file.bytes();
  };
  const auto memory = [&](std::size_t count) {
    return (1 + count * 251) * sizeof(PropertyListValue);
  };
  const auto allowed = [&](std::size_t count) {
    return (std::size_t{4} << 20) + 64 * arrays(count).size();
  };
  std::size_t most = 1;
  while (memory(most + 1) <= allowed(most + 1)) ++most;

  EXPECT_TRUE(readBinaryPropertyList(arrays(most)));
  EXPECT_FALSE(readBinaryPropertyList(arrays(most + 1)));
  EXPECT_GT(most, 250U);
}

TEST(BinaryPropertyListReader, FourMegabytesOfReferencesTakeLittleMemory) {
  const auto shared = [](std::size_t count) {
    return AssembledBinaryPropertyList{
        {"\xAF\x12"s + bigEndian(count, 4) + std::string(count, '\1'), "\xA0"s}}
        .bytes();
  };
  const PeakMemory memory;

  EXPECT_TRUE(readBinaryPropertyList(shared(PropertyListSerialization::kMaximumNodes - 1)));
  EXPECT_FALSE(readBinaryPropertyList(shared(PropertyListSerialization::kMaximumNodes)));
  EXPECT_FALSE(readBinaryPropertyList(shared(3'900'000)));

  EXPECT_LT(memory.growth(), std::uint64_t{32} << 20);
}

TEST(BinaryPropertyListReader, SharedTextCountsAsOftenAsItIsVisited) {
  // A mebibyte of text, referred to more than once.
  const std::string text = "\x5F\x12"s + bigEndian(1 << 20, 4) + std::string(1 << 20, 'x');
  const auto shared = [&text](char times) {
    return AssembledBinaryPropertyList{
        {"\xAF\x10"s + std::string(1, times) + std::string(static_cast<std::size_t>(times), '\1'),
         text}}
        .bytes();
  };

  EXPECT_TRUE(readBinaryPropertyList(shared(48)));
  EXPECT_FALSE(readBinaryPropertyList(shared(49)));
}

TEST(BinaryPropertyListReader, ReadsFiftyMegabytesOfData) {
  const std::string blob(50'000'000, '\x80');

  const std::optional<PropertyListValue> value =
      readObject("\x4F\x12"s + bigEndian(blob.size(), 4) + blob);

  ASSERT_TRUE(value && value->data());
  EXPECT_TRUE(value->data()->bytes == blob);
}

TEST(BinaryPropertyListReader, RefusesAFileOverTheByteLimit) {
  const std::string blob(PropertyListSerialization::kMaximumBytes, 'x');

  EXPECT_EQ(readObject("\x4F\x12"s + bigEndian(blob.size(), 4) + blob), std::nullopt);
}

}  // namespace
}  // namespace frelta
