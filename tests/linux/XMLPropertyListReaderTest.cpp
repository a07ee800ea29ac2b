#include "linux/XMLPropertyListReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "foundation/Base64.h"
#include "foundation/PropertyListSerialization.h"
#include "tests/support/PeakMemory.h"

namespace frelta {
namespace {

using namespace std::string_literals;

std::optional<PropertyListValue> readBody(std::string_view body) {
  return readXMLPropertyList("<plist version=\"1.0\">" + std::string(body) + "</plist>");
}

constexpr std::string_view kSample = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Example//DTD PLIST 1.0//EN" "http://unreachable.invalid/p.dtd">
<!-- a comment -->
<plist version="1.0">
<dict>
	<key>array</key>
	<array>
		<integer>-3</integer>
		<real>0.10000000000000001</real>
		<true/>
		<false></false>
	</array>
	<key>data</key>
	<data>
	AAEC
	/w==
	</data>
	<key>date</key>
	<date>2001-01-02T00:00:01Z</date>
	<key>empty</key>
	<dict/>
	<key>text &amp; more</key>
	<string>a&lt;b&#x20AC;<![CDATA[<raw>]]></string>
</dict>
</plist>)";

TEST(XMLPropertyListReader, ReadsEveryType) {
  const PropertyListValue expected(Dictionary{{"array", Array{-3, 0.1, true, false}},
                                              {"data", Data{"\0\1\2\xFF"s}},
                                              {"date", Date{86401}},
                                              {"empty", Dictionary()},
                                              {"text & more", "a<b€<raw>"}});

  EXPECT_EQ(readXMLPropertyList(kSample), expected);
}

TEST(XMLPropertyListReader, ReadsAnyTypeAtTheTop) {
  EXPECT_EQ(readBody("<array><string/></array>"), PropertyListValue(Array{""}));
  EXPECT_EQ(readBody("<string> x </string>"), PropertyListValue(" x "));
  EXPECT_EQ(readBody("<true/>"), PropertyListValue(true));
  EXPECT_EQ(readBody("<data/>"), PropertyListValue(Data{}));
}

TEST(XMLPropertyListReader, RefusesADocumentTruncatedAtAnyByte) {
  for (std::size_t length = 0; length < kSample.size(); ++length)
    EXPECT_EQ(readXMLPropertyList(kSample.substr(0, length)), std::nullopt) << length;
}

TEST(XMLPropertyListReader, RefusesTrailingAndDoubledDocuments) {
  const std::string sample(kSample);

  EXPECT_TRUE(readXMLPropertyList(sample + "\n<!-- end -->\n"));
  EXPECT_EQ(readXMLPropertyList(sample + "x"), std::nullopt);
  EXPECT_EQ(readXMLPropertyList(sample + "\0"s), std::nullopt);
  EXPECT_EQ(readXMLPropertyList(sample + sample), std::nullopt);
  EXPECT_EQ(readXMLPropertyList(sample + "<plist><true/></plist>"), std::nullopt);
}

TEST(XMLPropertyListReader, ThePlistHoldsExactlyOneValue) {
  for (const char* body : {"", "text", "<!-- none -->", "<true/><true/>", "<dict/><dict/>",
                           "<true/>text", "<key>k</key>", "<plist><true/></plist>"})
    EXPECT_EQ(readBody(body), std::nullopt) << body;
}

TEST(XMLPropertyListReader, TheRootIsPlist) {
  for (const char* document : {"<dict/>", "<true/>", "<Plist><true/></Plist>", "<plist/>",
                               "<x><plist><true/></plist></x>"})
    EXPECT_EQ(readXMLPropertyList(document), std::nullopt) << document;
}

TEST(XMLPropertyListReader, DictionariesAlternateKeysAndValues) {
  for (const char* body :
       {"<dict><true/></dict>", "<dict><key>a</key></dict>",
        "<dict><key>a</key><key>b</key></dict>", "<dict><key>a</key><key>b</key><true/></dict>",
        "<dict><key>a</key><true/><true/></dict>", "<dict>a<key>a</key><true/></dict>",
        "<array><key>a</key></array>", "<dict><key><string>a</string></key><true/></dict>",
        "<array>text</array>", "<array></dict>"})
    EXPECT_EQ(readBody(body), std::nullopt) << body;
}

TEST(XMLPropertyListReader, RefusesUnknownAndMisplacedElements) {
  for (const char* body : {"<null/>", "<String>x</String>", "<string><b>x</b></string>",
                           "<true>x</true>", "<true><true/></true>", "<set/>", "<p:dict/>"})
    EXPECT_EQ(readBody(body), std::nullopt) << body;
}

TEST(XMLPropertyListReader, TheLastOfDuplicateKeysWins) {
  EXPECT_EQ(readBody("<dict><key>k</key><true/><key>a</key><true/><key>k</key><false/></dict>"),
            PropertyListValue(Dictionary{{"a", true}, {"k", false}}));
}

TEST(XMLPropertyListReader, AUIDDictionaryIsJustADictionary) {
  EXPECT_EQ(readBody("<dict><key>CF$UID</key><integer>1</integer></dict>"),
            PropertyListValue(Dictionary{{"CF$UID", 1}}));
}

TEST(XMLPropertyListReader, IntegersCoverBothSixtyFourBitRanges) {
  const auto integer = [](const std::string& text) {
    return readBody("<integer>" + text + "</integer>");
  };

  EXPECT_EQ(integer("-9223372036854775808"),
            PropertyListValue(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(integer("18446744073709551615"), PropertyListValue(~std::uint64_t{0}));
  EXPECT_EQ(integer("0x1F"), PropertyListValue(31));
  EXPECT_EQ(integer("-0XfF"), PropertyListValue(-255));
  EXPECT_EQ(integer("+007"), PropertyListValue(7));
  EXPECT_EQ(integer(" \n42\t"), PropertyListValue(42));
  for (const char* text : {"", " ", "-", "0x", "1.0", "1e3", "18446744073709551616", "4 2", "12a",
                           "-9223372036854775809", "0x10000000000000000", "--1", "+-1", "１"})
    EXPECT_EQ(integer(text), std::nullopt) << text;
}

TEST(XMLPropertyListReader, RealsAreReadToTheLastDigit) {
  const auto real = [](const std::string& text) { return readBody("<real>" + text + "</real>"); };

  EXPECT_EQ(real("-0.0"), PropertyListValue(-0.0));
  EXPECT_EQ(real("1"), PropertyListValue(1.0));
  EXPECT_EQ(real("0.30000000000000004"), PropertyListValue(0.30000000000000004));
  EXPECT_EQ(real("4.9406564584124654e-324"), PropertyListValue(5e-324));
  EXPECT_EQ(real(" +1.5E+3 "), PropertyListValue(1500.0));
  for (const char* text : {"", "-", "1,5", "1.5x", "0x10", "1e", "--1", "+-1", "1e999", "nan(1)"})
    EXPECT_EQ(real(text), std::nullopt) << text;
}

TEST(XMLPropertyListReader, RealsMayBeInfinityOrNaN) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const auto real = [](const std::string& text) { return readBody("<real>" + text + "</real>"); };

  for (const char* text : {"inf", "+infinity", "Infinity", "INF"})
    EXPECT_EQ(real(text), PropertyListValue(kInfinity)) << text;
  for (const char* text : {"-inf", "-infinity"})
    EXPECT_EQ(real(text), PropertyListValue(-kInfinity)) << text;
  for (const char* text : {"nan", "NaN", "-nan"})
    EXPECT_EQ(real(text), PropertyListValue(std::numeric_limits<double>::quiet_NaN())) << text;
}

TEST(XMLPropertyListReader, DatesAreOfTheCalendar) {
  const auto date = [](const std::string& text) { return readBody("<date>" + text + "</date>"); };

  EXPECT_EQ(date("2001-01-01T00:00:00Z"), PropertyListValue(Date{0}));
  EXPECT_EQ(date("2000-02-29T23:59:59Z"), PropertyListValue(Date{-26438401}));
  EXPECT_EQ(date("0001-01-01T00:00:00Z"), PropertyListValue(Date{-63113904000.0}));
  EXPECT_EQ(date("9999-12-31T23:59:59Z"), PropertyListValue(Date{252423993599.0}));
  for (const char* text : {"",
                           "2001-01-01",
                           "2001-01-01T00:00:00",
                           "2001-01-01T00:00:00z",
                           "2001-01-01 00:00:00Z",
                           "2001-02-29T00:00:00Z",
                           "1900-02-29T00:00:00Z",
                           "2001-13-01T00:00:00Z",
                           "2001-00-01T00:00:00Z",
                           "2001-01-00T00:00:00Z",
                           "2001-01-32T00:00:00Z",
                           "2001-01-01T24:00:00Z",
                           "2001-01-01T00:60:00Z",
                           "2001-01-01T00:00:60Z",
                           "0000-01-01T00:00:00Z",
                           "10000-01-01T00:00:00Z",
                           "-001-01-01T00:00:00Z",
                           " 2001-01-01T00:00:00Z",
                           "2001-01-01T00:00:00.5Z",
                           "2001-1-01T000:00:00Z"})
    EXPECT_EQ(date(text), std::nullopt) << text;
}

TEST(XMLPropertyListReader, DataMayHoldWhiteSpaceAndIsStrictOtherwise) {
  const auto data = [](const std::string& text) { return readBody("<data>" + text + "</data>"); };

  EXPECT_EQ(data("\r\n\t Z m\n9v \n"), PropertyListValue(Data{"foo"}));
  for (const char* text : {"Zg", "Zg=", "Zm9v\v", "Zm9-", "Z", "Zg==Zg=="})
    EXPECT_EQ(data(text), std::nullopt) << text;
}

TEST(XMLPropertyListReader, ReadsUTF16WithAByteOrderMark) {
  const std::u16string document = u"<plist><string>é😀</string></plist>";
  std::string bigEnd = "\xFE\xFF", littleEnd = "\xFF\xFE";
  for (const char16_t unit : document) {
    const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
    bigEnd.append({high, low});
    littleEnd.append({low, high});
  }

  EXPECT_EQ(readXMLPropertyList(bigEnd), PropertyListValue("é😀"));
  EXPECT_EQ(readXMLPropertyList(littleEnd), PropertyListValue("é😀"));
  EXPECT_EQ(readXMLPropertyList(littleEnd.substr(0, littleEnd.size() - 1)), std::nullopt);
}

TEST(XMLPropertyListReader, RefusesTextThatIsNotUTF8) {
  for (const char* body :
       {"<string>\xFF</string>", "<string>\xC3</string>", "<string>\xED\xA0\x80</string>",
        "<string>&#xD800;</string>", "<string>&#0;</string>", "<string>\x01</string>"})
    EXPECT_EQ(readBody(body), std::nullopt) << testing::PrintToString(body);
}

TEST(XMLPropertyListReader, RefusesAnInternalSubsetAndEveryEntityOfTheDocument) {
  const auto document = [](const std::string& doctype, const std::string& text) {
    return readXMLPropertyList(doctype + "<plist><string>" + text + "</string></plist>");
  };

  EXPECT_TRUE(document("<!DOCTYPE plist SYSTEM \"file:///etc/passwd\">", "x"));
  EXPECT_EQ(document("<!DOCTYPE plist []>", "x"), std::nullopt);
  EXPECT_EQ(document("<!DOCTYPE plist [<!ENTITY a \"b\">]>", "&a;"), std::nullopt);
  EXPECT_EQ(document("<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>", "&a;"),
            std::nullopt);
  EXPECT_EQ(document("<!DOCTYPE plist [<!ENTITY % a \"b\"> %a;]>", "x"), std::nullopt);
  EXPECT_EQ(document("<!DOCTYPE plist SYSTEM \"file:///etc/passwd\">", "&unknown;"), std::nullopt);
  EXPECT_EQ(document("", "&unknown;"), std::nullopt);
}

TEST(XMLPropertyListReader, RefusesTheOldTextForm) {
  for (const char* document : {"{ a = b; }", "(1, 2)", "\"text\"", "<0fbd77>", "a = b;"})
    EXPECT_EQ(readXMLPropertyList(document), std::nullopt) << document;
}

TEST(XMLPropertyListReader, FollowsContainersToTheDepthLimitAndNoFurther) {
  const auto nested = [](int depth) {
    std::string body;
    for (int i = 0; i < depth; ++i) body += "<array>";
    for (int i = 0; i < depth; ++i) body += "</array>";
    return readBody(body);
  };

  EXPECT_TRUE(nested(PropertyListSerialization::kMaximumDepth));
  EXPECT_FALSE(nested(PropertyListSerialization::kMaximumDepth + 1));
  EXPECT_FALSE(nested(100'000));
}

TEST(XMLPropertyListReader, ContainersSideBySideAreNotDeep) {
  std::string body = "<array>";
  for (int i = 0; i < 1'000; ++i) body += "<dict/>";
  body += "</array>";

  const std::optional<PropertyListValue> value = readBody(body);

  EXPECT_EQ(value, PropertyListValue(Array(1'000, Dictionary())));
}

TEST(XMLPropertyListReader, RefusesMoreValuesThanTheLimit) {
  std::string body = "<array>";
  for (std::size_t i = 0; i < PropertyListSerialization::kMaximumNodes - 1; ++i) body += "<true/>";
  const std::string tooMany = body + "<true/></array>";
  body += "</array>";

  EXPECT_TRUE(readBody(body));
  EXPECT_FALSE(readBody(tooMany));
}

TEST(XMLPropertyListReader, AsManyKeysAsMayBeTakeLittleMemory) {
  std::string body = "<dict>";
  for (std::size_t i = 0; i < PropertyListSerialization::kMaximumNodes - 1; ++i)
    body += "<key>" + std::to_string(i) + "</key><true/>";
  body += "</dict>";
  const PeakMemory memory;

  EXPECT_TRUE(readBody(body));

  EXPECT_LT(memory.growth(), std::uint64_t{64} << 20);
}

TEST(XMLPropertyListReader, ReadsTensOfMegabytesOfData) {
  const std::string blob(36'000'000, '\x80');

  const std::optional<PropertyListValue> value =
      readBody("<data>" + base64EncodedString(blob) + "</data>");

  ASSERT_TRUE(value && value->data());
  EXPECT_TRUE(value->data()->bytes == blob);
}

TEST(XMLPropertyListReader, TakesAMebiOfLineBreaksAndReferencesAndNoMore) {
  const auto document = [](std::size_t count, const std::string& piece) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return "<plist><string>" + text + "</string></plist>";
  };
  constexpr std::size_t kMost = std::size_t{1} << 20;

  for (const char* piece : {"\n", "\r", "&lt;"}) {
    EXPECT_TRUE(readXMLPropertyList(document(kMost, piece))) << piece;
    EXPECT_FALSE(readXMLPropertyList(document(kMost + 1, piece))) << piece;
  }
}

// The characters are two bytes each in UTF-8.
TEST(XMLPropertyListReader, TextInAnotherEncodingIsNotKeptTwice) {
  const std::string document = "<?xml version='1.0' encoding='ISO-8859-1'?><plist><string>" +
                               std::string(20'000'000, '\xE9') + "</string></plist>";
  const PeakMemory memory;

  const auto value = readXMLPropertyList(document);

  ASSERT_TRUE(value && value->string());
  EXPECT_EQ(value->string()->size(), 40'000'000U);
  EXPECT_LT(memory.growth(), std::uint64_t{90} << 20);
}

TEST(XMLPropertyListReader, TakesNoAttributeButTheVersion) {
  EXPECT_EQ(readXMLPropertyList("<plist version='1.0'><true/></plist>"), PropertyListValue(true));
  EXPECT_EQ(readXMLPropertyList("<plist><true/></plist>"), PropertyListValue(true));
  EXPECT_FALSE(readXMLPropertyList("<plist lang='en'><true/></plist>"));
  EXPECT_FALSE(readXMLPropertyList("<plist version='1.0' lang='en'><true/></plist>"));
  EXPECT_FALSE(readXMLPropertyList("<plist version='1.0'><true version='1.0'/></plist>"));
}

TEST(XMLPropertyListReader, MillionsOfAttributesTakeNoMemory) {
  std::string attributes;
  for (int i = 0; i < 1'000'000; ++i) attributes += " a" + std::to_string(i) + "=''";
  const std::string document = "<plist" + attributes + "><true/></plist>";
  std::string wide = "\xFF\xFE";
  for (const char character : document) wide.append({character, '\0'});
  const PeakMemory memory;

  EXPECT_FALSE(readXMLPropertyList(document));
  EXPECT_FALSE(readXMLPropertyList(wide));

  EXPECT_LT(memory.growth(), std::uint64_t{2} << 20);
}

TEST(XMLPropertyListReader, ATagMayHaveTwoHundredAndFiftySixCharactersInAnyEncoding) {
  const auto document = [](std::size_t lengthOfTag) {
    const std::string start = "<plist version='";
    return start + std::string(lengthOfTag - start.size() - 2, '1') + "'><true/></plist>";
  };
  const auto wide = [](std::string_view mark, bool isBigEnd, std::string_view text) {
    std::string bytes(mark);
    for (const char c : text) isBigEnd ? bytes.append({'\0', c}) : bytes.append({c, '\0'});
    return bytes;
  };
  const auto expectLimit = [](const std::string& longest, const std::string& tooLong) {
    EXPECT_EQ(readXMLPropertyList(longest), PropertyListValue(true));
    EXPECT_EQ(readXMLPropertyList(tooLong), std::nullopt);
  };
  const std::string longest = document(256), tooLong = document(257);

  expectLimit(longest, tooLong);
  expectLimit(wide("\xFE\xFF", true, longest), wide("\xFE\xFF", true, tooLong));
  expectLimit(wide("\xFF\xFE", false, longest), wide("\xFF\xFE", false, tooLong));
  expectLimit(wide("", true, longest), wide("", true, tooLong));
  expectLimit(wide("", false, longest), wide("", false, tooLong));
  expectLimit("<!---->" + longest, "<!---->" + tooLong);
}

TEST(XMLPropertyListReader, NothingHidesHowLongATagIs) {
  const std::string many(300, '1');
  const std::string plist = "<plist version='" + many + "'><true/></plist>";

  EXPECT_EQ(readXMLPropertyList("<plist version='>'><true/></plist>"), PropertyListValue(true));
  EXPECT_EQ(readXMLPropertyList("<plist version='>" + many + "'><true/></plist>"), std::nullopt);
  EXPECT_EQ(readXMLPropertyList("<plist version='\">" + many + "'><true/></plist>"), std::nullopt);
  EXPECT_EQ(readXMLPropertyList("<?note <!-- ?>" + plist), std::nullopt);
  EXPECT_EQ(readXMLPropertyList("<?note > <![CDATA[ ?>" + plist), std::nullopt);
  EXPECT_EQ(readXMLPropertyList("<!DOCTYPE plist SYSTEM '<!--'>" + plist), std::nullopt);
  EXPECT_EQ(readXMLPropertyList("<!DOCTYPE plist SYSTEM '>'><plist><true/></plist>"),
            PropertyListValue(true));
}

TEST(XMLPropertyListReader, ATypeMayHaveSixtyFourKibibytes) {
  const auto document = [](std::size_t length) {
    const std::string start = "<!DOCTYPE plist SYSTEM '";
    return start + std::string(length - start.size() - 2, 'x') + "'><plist><true/></plist>";
  };

  EXPECT_EQ(readXMLPropertyList(document(64 << 10)), PropertyListValue(true));
  EXPECT_EQ(readXMLPropertyList(document((64 << 10) + 1)), std::nullopt);
}

TEST(XMLPropertyListReader, WhatIsNoTagMayBeLong) {
  const std::string text(1'000, 'x');
  const std::string plist = "<plist><true/></plist>";

  EXPECT_EQ(readXMLPropertyList("<?note " + text + "?>" + plist), PropertyListValue(true));
  EXPECT_EQ(readXMLPropertyList("<!DOCTYPE plist PUBLIC \"" + text + "\" \"x\">" + plist),
            PropertyListValue(true));
}

TEST(XMLPropertyListReader, ACommentOrRawTextMayBeLongAndHoldWhatLooksLikeATag) {
  const std::string text = "<" + std::string(1'000, 'x');

  EXPECT_EQ(readBody("<!--" + text + "--><true/>"), PropertyListValue(true));
  EXPECT_EQ(readBody("<string><![CDATA[" + text + "]]></string>"), PropertyListValue(text));
}

TEST(XMLPropertyListReader, RefusesADocumentOverTheByteLimit) {
  const std::string blanks(PropertyListSerialization::kMaximumBytes, ' ');

  EXPECT_FALSE(readBody("<true/>" + blanks));
}

}  // namespace
}  // namespace frelta
