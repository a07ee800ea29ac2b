#include "linux/XMLPropertyListWriter.h"

#include <gtest/gtest.h>

#include <limits>

#include "foundation/PropertyListSerialization.h"
#include "linux/XMLPropertyListReader.h"

namespace frelta {
namespace {

using namespace std::string_literals;

/// What is written between the plist tags.
std::string body(const PropertyListValue& value) {
  const std::string document = writeXMLPropertyList(value).value();
  constexpr std::string_view kStart = "<plist version=\"1.0\">\n", kEnd = "</plist>\n";
  const std::size_t start = document.find(kStart) + kStart.size();
  return document.substr(start, document.size() - kEnd.size() - start);
}

TEST(XMLPropertyListWriter, WritesThePlatformsForm) {
  const Dictionary value{{"b", Array{1, 2.0, true, Array()}},
                         {"a", Dictionary{{"x", "y"}}},
                         {"c", Data{"foo"}},
                         {"d", Date{86401}},
                         {"e", Dictionary()}};

  const std::optional<std::string> document = writeXMLPropertyList(value);

  EXPECT_EQ(document, R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>a</key>
	<dict>
		<key>x</key>
		<string>y</string>
	</dict>
	<key>b</key>
	<array>
		<integer>1</integer>
		<real>2</real>
		<true/>
		<array/>
	</array>
	<key>c</key>
	<data>
	Zm9v
	</data>
	<key>d</key>
	<date>2001-01-02T00:00:01Z</date>
	<key>e</key>
	<dict/>
</dict>
</plist>
)");
}

TEST(XMLPropertyListWriter, EscapesMarkupAndCarriageReturns) {
  EXPECT_EQ(body("a&b<c>d\r\n\t\"'"), "<string>a&amp;b&lt;c&gt;d&#13;\n\t\"'</string>\n");
  EXPECT_EQ(body(Dictionary{{"<k>", true}}),
            "<dict>\n\t<key>&lt;k&gt;</key>\n\t<true/>\n</dict>\n");
}

TEST(XMLPropertyListWriter, WritesRealsShortestAndIntegersWhole) {
  EXPECT_EQ(body(0.1), "<real>0.1</real>\n");
  EXPECT_EQ(body(-0.0), "<real>-0</real>\n");
  EXPECT_EQ(body(1e22), "<real>1e+22</real>\n");
  EXPECT_EQ(body(std::numeric_limits<double>::infinity()), "<real>+infinity</real>\n");
  EXPECT_EQ(body(-std::numeric_limits<double>::infinity()), "<real>-infinity</real>\n");
  EXPECT_EQ(body(std::numeric_limits<double>::quiet_NaN()), "<real>nan</real>\n");
  EXPECT_EQ(body(~std::uint64_t{0}), "<integer>18446744073709551615</integer>\n");
  EXPECT_EQ(body(std::numeric_limits<std::int64_t>::min()),
            "<integer>-9223372036854775808</integer>\n");
}

TEST(XMLPropertyListWriter, WritesDatesOfTheYearsOneToNineThousand) {
  EXPECT_EQ(body(Date{0}), "<date>2001-01-01T00:00:00Z</date>\n");
  EXPECT_EQ(body(Date{-1}), "<date>2000-12-31T23:59:59Z</date>\n");
  EXPECT_EQ(body(Date{-63113904000.0}), "<date>0001-01-01T00:00:00Z</date>\n");
  EXPECT_EQ(body(Date{252423993599.0}), "<date>9999-12-31T23:59:59Z</date>\n");
}

TEST(XMLPropertyListWriter, BreaksDataIntoLines) {
  const std::string text = body(Data{std::string(60, '\0')});

  EXPECT_EQ(text, "<data>\n" + std::string(76, 'A') + "\nAAAA\n</data>\n");
  EXPECT_EQ(body(Data{std::string(57, '\0')}), "<data>\n" + std::string(76, 'A') + "\n</data>\n");
  EXPECT_EQ(body(Data{}), "<data>\n</data>\n");
}

TEST(XMLPropertyListWriter, RefusesWhatTheFormCannotHold) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::vector<PropertyListValue> values = {Null(),
                                                 Date{0.5},
                                                 Date{-0.5},
                                                 Date{-63113904001.0},
                                                 Date{252423993600.0},
                                                 Date{kInfinity},
                                                 Date{-kInfinity},
                                                 Date{std::numeric_limits<double>::quiet_NaN()},
                                                 "\xFF",
                                                 "\xED\xA0\x80",
                                                 "a\0b"s,
                                                 "\x01",
                                                 "\x1B",
                                                 "\xEF\xBF\xBE",
                                                 "\xEF\xBF\xBF"};

  for (const PropertyListValue& value : values) {
    EXPECT_EQ(writeXMLPropertyList(value), std::nullopt);
    EXPECT_EQ(writeXMLPropertyList(Array{1, value}), std::nullopt);
    EXPECT_EQ(writeXMLPropertyList(Dictionary{{"k", value}}), std::nullopt);
  }
  EXPECT_EQ(writeXMLPropertyList(Dictionary{{"\x01", 1}}), std::nullopt);
}

TEST(XMLPropertyListWriter, WritesExactlyTheDepthThatIsRead) {
  const auto nested = [](int depth, PropertyListValue value) {
    for (int i = 1; i < depth; ++i) value = PropertyListValue(Array{std::move(value)});
    return value;
  };
  constexpr int kDepth = PropertyListSerialization::kMaximumDepth;

  for (const PropertyListValue& innermost :
       {PropertyListValue(Dictionary()), PropertyListValue(Array()),
        PropertyListValue(Dictionary{{"k", 1}})}) {
    const PropertyListValue deepest = nested(kDepth, innermost);
    EXPECT_EQ(readXMLPropertyList(writeXMLPropertyList(deepest).value()), deepest);
    EXPECT_EQ(writeXMLPropertyList(nested(kDepth + 1, innermost)), std::nullopt);
  }
}

}  // namespace
}  // namespace frelta
