#include "tests/styles/StylesTest.h"

namespace frelta {
namespace {

FreltaSortedItem::Items itemsSwitched(std::initializer_list<bool> switches) {
  auto items = std::make_shared<std::vector<std::shared_ptr<FreltaStyleItem>>>();
  for (bool on : switches) {
    items->push_back(std::make_shared<FreltaStyleItem>());
    items->back()->setIsEnabled(on);
  }
  return items;
}

/// Counts what goes through the setter.
class ObservedGroup : public FreltaSortedItem {
 public:
  void setEnabledState(std::int32_t state) override {
    stored.push_back(state);
    FreltaSortedItem::setEnabledState(state);
  }
  std::vector<std::int32_t> stored;
};

TEST(SortedItem, WithoutItemsOrWithAnEmptyListCountsAsAllEnabled) {
  FreltaSortedItem without;
  FreltaSortedItem empty;
  empty.setItems(itemsSwitched({}));

  without.updateEnabledState();
  empty.updateEnabledState();

  EXPECT_EQ(without.enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(empty.enabledState(), FreltaEnabledStateAll);
}

TEST(SortedItem, TakesItsStateFromHowManyItemsAreEnabled) {
  const std::vector<std::pair<FreltaSortedItem::Items, int>> cases{
      {itemsSwitched({false, false, false}), FreltaEnabledStateNone},
      {itemsSwitched({false, true, false}), FreltaEnabledStatePartial},
      {itemsSwitched({true, true, true}), FreltaEnabledStateAll}};

  for (const auto& [items, state] : cases) {
    FreltaSortedItem group;
    group.setItems(items);
    group.updateEnabledState();
    EXPECT_EQ(group.enabledState(), state);
  }
}

TEST(SortedItem, StoresEveryStateThroughItsSetter) {
  ObservedGroup group;

  for (const auto& items : {itemsSwitched({false, false}), itemsSwitched({true, false}),
                            itemsSwitched({true, true}), FreltaSortedItem::Items()}) {
    group.setItems(items);
    group.updateEnabledState();
  }

  EXPECT_THAT(group.stored, testing::ElementsAre(FreltaEnabledStateNone, FreltaEnabledStatePartial,
                                                 FreltaEnabledStateAll, FreltaEnabledStateAll));
}

TEST(SortedItem, GeneratesANewImageWithoutContentEachTime) {
  FreltaSortedItem group;

  const auto first = group.generateIcon();
  const auto second = group.generateIcon();

  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->size(), CGSize{});
  EXPECT_TRUE(first->pixels().empty());
}

TEST(SortedStyle, KeepsItsStateWhateverItsItemsHold) {
  for (const auto& items : {FreltaSortedItem::Items(), itemsSwitched({}), itemsSwitched({true}),
                            itemsSwitched({false, true})}) {
    for (std::int32_t state : {0, 1, 2, 7}) {
      FreltaSortedStyle style;
      style.setItems(items);
      style.setEnabledState(state);

      style.updateEnabledState();

      EXPECT_EQ(style.enabledState(), state);
    }
  }
}

TEST(SortedStyle, StartsAsAnImagesThemeThatIsOffAndHasNoNames) {
  const FreltaSortedStyle style;

  EXPECT_EQ(style.styleMode(), FreltaStyleModeImages);
  EXPECT_EQ(style.enabledState(), FreltaEnabledStateNone);
  EXPECT_FALSE(style.isExpanded());
  EXPECT_EQ(style.title(), std::nullopt);
  EXPECT_EQ(style.subtitle(), std::nullopt);
  EXPECT_EQ(style.displayName(), std::nullopt);
  EXPECT_EQ(style.fullPath(), std::nullopt);
  EXPECT_EQ(style.items(), nullptr);
  EXPECT_EQ(style.iconsStyle(), nullptr);
  EXPECT_EQ(style.cachedStyleLogo(), nullptr);
}

}  // namespace
}  // namespace frelta
