#include "preferences/PSValidValues.h"

#include <gtest/gtest.h>

#include <limits>

namespace frelta {
namespace {

PSSpecifier rowWith(Array values, Array titles) {
  return {PSCellType::PSSegmentCell, "Row",
          Dictionary{{"validValues", std::move(values)}, {"validTitles", std::move(titles)}}};
}

TEST(PSValidValues, ValuesAndTitlesPairUpAsFarAsBothGo) {
  const auto values = validValues(rowWith({0, 1, 2}, {"Zero", "One"}));

  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[1].value, PropertyListValue(1));
  EXPECT_EQ(values[1].title, "One");
}

TEST(PSValidValues, WrongTypesGiveNoValues) {
  const PSSpecifier row(PSCellType::PSSegmentCell, "Row",
                        Dictionary{{"validValues", "0"}, {"validTitles", Array{"Zero"}}});

  EXPECT_TRUE(validValues(row).empty());
  EXPECT_TRUE(validValues(PSSpecifier(PSCellType::PSSegmentCell, "Row")).empty());
}

TEST(PSValidValues, ANumberIsFoundWhateverTypeItWasStoredAs) {
  const auto values = validValues(rowWith({0, 1, 2}, {"a", "b", "c"}));

  EXPECT_EQ(indexOfValidValue(values, PropertyListValue(1)), 1u);
  EXPECT_EQ(indexOfValidValue(values, PropertyListValue(true)), 1u);
  EXPECT_EQ(indexOfValidValue(values, PropertyListValue(2.0)), 2u);
  EXPECT_EQ(indexOfValidValue(values, PropertyListValue("2")), 2u);
  EXPECT_EQ(indexOfValidValue(values, PropertyListValue(7)), std::nullopt);
  EXPECT_EQ(indexOfValidValue(values, std::nullopt), std::nullopt);
}

TEST(PSValidValues, TheLastNumberStandsForHigherOnesWhereTheRowSaysSo) {
  PSSpecifier row = rowWith({0, 4}, {"None", "Widget"});
  const auto indexOf = [&](const PropertyListValue& value) {
    return indexOfValidValue(validValues(row), value);
  };
  EXPECT_EQ(indexOf(5), std::nullopt);

  row.setProperty(true, "validValuesGoOn");

  EXPECT_EQ(indexOf(4), 1u);
  EXPECT_EQ(indexOf(5), 1u);
  EXPECT_EQ(indexOf(7.5), 1u);
  EXPECT_EQ(indexOf(0), 0u);
  EXPECT_EQ(indexOf(3), std::nullopt);
  EXPECT_EQ(indexOf(-1), std::nullopt);
  EXPECT_EQ(titleForValue(row, PropertyListValue(7)), "Widget");
  row.setProperty(false, "validValuesGoOn");
  EXPECT_EQ(indexOf(5), std::nullopt);
}

TEST(PSValidValues, WithoutValuesNoneGoesOn) {
  PSSpecifier row = rowWith({}, {});

  row.setProperty(true, "validValuesGoOn");

  EXPECT_TRUE(validValues(row).empty());
}

TEST(PSValidValues, ValuesOfEveryTypeAreFound) {
  const auto indexIn = [](Array valid, const PropertyListValue& stored) {
    return indexOfValidValue(validValues(rowWith(std::move(valid), {"a", "b"})), stored);
  };

  EXPECT_EQ(indexIn({true, false}, 1), 0u);
  EXPECT_EQ(indexIn({true, false}, 0), 1u);
  EXPECT_EQ(indexIn({3, 4}, 4.5), 1u);
  EXPECT_EQ(indexIn({0.5, 2.5}, 2.5), 1u);
  EXPECT_EQ(indexIn({0.5, 2.5}, "2.5"), 1u);
  EXPECT_EQ(indexIn({0.5, 2.5}, 2), std::nullopt);
  EXPECT_EQ(indexIn({Data{"x"}, Data{"y"}}, Data{"y"}), 1u);
}

TEST(PSValidValues, ATextIsFoundOnlyAsTheSameText) {
  const auto values = validValues(rowWith({"one", "1"}, {"a", "b"}));

  EXPECT_EQ(indexOfValidValue(values, PropertyListValue("1")), 1u);
  EXPECT_EQ(indexOfValidValue(values, PropertyListValue(1)), std::nullopt);
}

TEST(PSValidValues, ValuesReadAsText) {
  EXPECT_EQ(textForValue(PropertyListValue("text")), "text");
  EXPECT_EQ(textForValue(PropertyListValue(-3)), "-3");
  EXPECT_EQ(textForValue(PropertyListValue(std::numeric_limits<std::uint64_t>::max())),
            "18446744073709551615");
  EXPECT_EQ(textForValue(PropertyListValue(0.5)), "0.5");
  EXPECT_EQ(textForValue(PropertyListValue(true)), "1");
  EXPECT_EQ(textForValue(PropertyListValue(Array{"a", "b"})), "2");
  EXPECT_EQ(textForValue(PropertyListValue(Dictionary{})), "");
  EXPECT_EQ(textForValue(std::nullopt), "");
}

TEST(PSValidValues, AValueWithoutATitleShowsItself) {
  const PSSpecifier row = rowWith({0, 1}, {"Off", "On"});

  EXPECT_EQ(titleForValue(row, PropertyListValue(1)), "On");
  EXPECT_EQ(titleForValue(row, PropertyListValue(7)), "7");
}

}  // namespace
}  // namespace frelta
