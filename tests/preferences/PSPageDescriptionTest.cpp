#include "preferences/PSPageDescription.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "preferences/PSTableCell.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Dictionary page(Array items) {
  return {{"items", std::move(items)}};
}

PSClassRegistry registry() {
  PSClassRegistry classes;
  classes.registerController("KnownPage", [] { return std::make_shared<UIViewController>(); });
  classes.registerCell("KnownCell", [](UITableViewCellStyle style, std::string identifier,
                                       std::shared_ptr<PSSpecifier> specifier) {
    return std::make_unique<PSTableCell>(style, std::move(identifier), std::move(specifier));
  });
  classes.registerAction("knownAction", [](UIViewController&, PSSpecifier&) {});
  return classes;
}

TEST(PSPageDescription, ReadsTitleAndItemsInOrder) {
  const Dictionary value{
      {"title", "Page"},
      {"items", Array{Dictionary{{"cell", "PSGroupCell"}, {"label", "Group"}},
                      Dictionary{{"cell", "PSSwitchCell"}, {"key", "Switch"}},
                      Dictionary{{"cell", "PSLinkCell"}, {"detail", "KnownPage"}}}}};

  const PSPageDescription description = pageDescriptionWithValue(value, registry());

  EXPECT_EQ(description.title, "Page");
  EXPECT_THAT(description.problems, IsEmpty());
  ASSERT_EQ(description.items.size(), 3u);
  EXPECT_EQ(description.items[0].cellType(), PSCellType::PSGroupCell);
  EXPECT_EQ(description.items[0].name(), "Group");
  EXPECT_EQ(description.items[1].cellType(), PSCellType::PSSwitchCell);
  EXPECT_EQ(description.items[1].identifier(), "Switch");
  EXPECT_EQ(description.items[2].detailControllerClass(), "KnownPage");
}

TEST(PSPageDescription, IdentifierIsTheIdElseTheKeyElseThePlaceInTheDescription) {
  const Dictionary value = page(
      {Dictionary{{"cell", "PSGroupCell"}},
       Dictionary{{"cell", "PSSwitchCell"}, {"key", "K"}, {"id", "I"}},
       Dictionary{{"cell", "PSSwitchCell"}, {"key", "K"}}, Dictionary{{"cell", "PSStaticTextCell"}},
       Dictionary{{"cell", "PSSwitchCell"}, {"id", 7}, {"key", Array{}}}});

  const PSPageDescription description = pageDescriptionWithValue(value, registry());

  std::vector<std::string> identifiers;
  for (const PSSpecifier& item : description.items) identifiers.push_back(item.identifier());
  EXPECT_THAT(identifiers, ElementsAre("GROUP-0", "I", "K", "ROW-3", "ROW-4"));
}

TEST(PSPageDescription, RowsKnowTheGroupThatTheyWereDescribedIn) {
  const Dictionary value = page({Dictionary{{"cell", "PSStaticTextCell"}},
                                 Dictionary{{"cell", "PSGroupCell"}, {"id", "empty"}},
                                 Dictionary{{"cell", "PSGroupCell"}, {"id", "full"}},
                                 Dictionary{{"cell", "PSStaticTextCell"}}});

  const PSSpecifierList list = pageDescriptionWithValue(value, registry()).specifiers();

  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0]->group(), nullptr);
  EXPECT_FALSE(list[1]->hasRows());
  EXPECT_EQ(list[3]->group(), list[2]);
  EXPECT_TRUE(list[2]->hasRows());
}

TEST(PSPageDescription, MalformedItemsAreLeftOutWithOneProblemEach) {
  const Dictionary value = page({"text", 7, Array{}, Dictionary{{"cell", "PSStaticTextCell"}}});

  const PSPageDescription description = pageDescriptionWithValue(value, registry());

  ASSERT_EQ(description.items.size(), 1u);
  EXPECT_EQ(description.items[0].identifier(), "ROW-3");
  EXPECT_THAT(description.problems,
              ElementsAre("item 0: not a dictionary", "item 1: not a dictionary",
                          "item 2: not a dictionary"));
}

TEST(PSPageDescription, WhatIsNoPageHasNoItemsAndOneProblem) {
  const auto problemsOf = [](const PropertyListValue& value) {
    const PSPageDescription description = pageDescriptionWithValue(value, registry());
    EXPECT_THAT(description.items, IsEmpty());
    return description.problems;
  };

  EXPECT_THAT(problemsOf(Array{}), ElementsAre("not a dictionary"));
  EXPECT_THAT(problemsOf("items"), ElementsAre("not a dictionary"));
  EXPECT_THAT(problemsOf(Dictionary{}), ElementsAre("no items"));
  EXPECT_THAT(problemsOf(Dictionary{{"items", Dictionary{}}}), ElementsAre("no items"));
}

struct UnknownCase {
  Dictionary item;
  std::string problem;
};

class UnknownNames : public testing::TestWithParam<UnknownCase> {};

TEST_P(UnknownNames, MakeARowPlainWithOneProblem) {
  Dictionary item = GetParam().item;
  item.insert({"label", "Row"});

  const PSPageDescription description = pageDescriptionWithValue(page({item}), registry());

  ASSERT_EQ(description.items.size(), 1u);
  EXPECT_EQ(description.items[0].name(), "Row");
  EXPECT_EQ(description.items[0].cellType(), PSCellType::Plain);
  EXPECT_FALSE(description.items[0].isPressable());
  EXPECT_EQ(description.items[0].cellClass(), std::nullopt);
  EXPECT_EQ(description.items[0].action(), std::nullopt);
  EXPECT_THAT(description.problems, ElementsAre("item 0: " + GetParam().problem));
}

INSTANTIATE_TEST_SUITE_P(
    PSPageDescription, UnknownNames,
    testing::Values(
        UnknownCase{{{"cell", "PSNoCell"}}, "unknown cell PSNoCell"},
        UnknownCase{{{"cell", 7}}, "unknown cell"}, UnknownCase{{}, "no cell"},
        UnknownCase{{{"cell", "PSSwitchCell"}, {"cellClass", "NoCell"}},
                    "unknown cellClass NoCell"},
        UnknownCase{{{"cell", "PSLinkCell"}, {"detail", "NoPage"}}, "unknown detail NoPage"},
        UnknownCase{{{"cell", "PSLinkListCell"}, {"detail", 1}}, "unknown detail"},
        UnknownCase{{{"cell", "PSButtonCell"}, {"action", "noAction"}}, "unknown action noAction"},
        UnknownCase{{{"cell", "PSNoCell"}, {"cellClass", "KnownCell"}, {"action", "noAction"}},
                    "unknown cell PSNoCell, unknown action noAction"}));

TEST(PSPageDescription, ARegisteredCellClassNeedsNoKind) {
  const Dictionary value = page({Dictionary{{"cellClass", "KnownCell"}}});

  const PSPageDescription description = pageDescriptionWithValue(value, registry());

  EXPECT_THAT(description.problems, IsEmpty());
  EXPECT_EQ(description.items.at(0).cellClass(), "KnownCell");
}

TEST(PSPageDescription, AGroupStaysAGroupWhateverItAsksFor) {
  const Dictionary value = page({Dictionary{{"cell", "PSGroupCell"}, {"cellClass", "NoCell"}}});

  const PSPageDescription description = pageDescriptionWithValue(value, registry());

  EXPECT_TRUE(description.items.at(0).isGroup());
  EXPECT_EQ(description.problems.size(), 1u);
}

TEST(PSPageDescription, ALinkListLeadsToTheFrameworksOwnPageUnlessItNamesOne) {
  const Dictionary value = page({Dictionary{{"cell", "PSLinkListCell"}},
                                 Dictionary{{"cell", "PSLinkListCell"}, {"detail", "KnownPage"}}});

  const PSPageDescription description = pageDescriptionWithValue(value, registry());

  EXPECT_EQ(description.items.at(0).detailControllerClass(), "PSListItemsController");
  EXPECT_EQ(description.items.at(1).detailControllerClass(), "KnownPage");
}

}  // namespace
}  // namespace frelta
