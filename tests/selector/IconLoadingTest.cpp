#include <algorithm>
#include <new>

#include "tests/selector/SelectorTest.h"

namespace frelta {
namespace {

constexpr Pixel kGreen{0, 128, 0, 255};

/// A device on which pictures are made beside the main thread, when the test has it done.
class IconLoading : public SelectorTest {
 protected:
  IconLoading() {
    platform.useWorkQueue();
    putPicture(kPlaceholderPath, *picture(60, 60, kBlue));
  }

  void installWithIcon(const std::string& name, Pixel color) {
    install(name);
    putPicture(iconOf(name), *picture(60, 60, color));
  }
  static std::string iconOf(const std::string& name) { return inThemes(name + ".theme/Icon.png"); }
  void runAll() {
    while (platform.workQueue.runNext()) {
    }
  }
  /// What is in the middle of the card's icon; transparent without one.
  static Pixel shownOn(const FreltaStyleContentsCell& card) {
    const auto icon = card.iconImageView()->image();
    return icon ? pixelOf(*icon, icon->pixelWidth() / 2, icon->pixelHeight() / 2) : kTransparent;
  }
  static Pixel shownFor(const Selector& selector, const std::string& name) {
    for (const UITableViewCell* cell : selector.tableView()->visibleCells()) {
      const FreltaStyleContentsCell& card =
          *static_cast<const FreltaStyleCell*>(cell)->headerView();
      if (card.headerLabel()->text() == name) return shownOn(card);
    }
    ADD_FAILURE() << "no card of " << name;
    return {};
  }
  std::ptrdiff_t reads(const std::string& path) const {
    return std::ranges::count_if(platform.files.calls(), [&](const FailingFiles::Call& call) {
      return call.operation == Operation::Read && call.path == path;
    });
  }
};

TEST_F(IconLoading, CardsShowThePlaceholderUntilTheirOwnIconIsThere) {
  installWithIcon("A", kRed);
  installWithIcon("B", kGreen);

  const auto selector = show(Selector::init());
  const Pixel atFirst = shownFor(*selector, "A");
  const std::ptrdiff_t readAtFirst = reads(iconOf("A")) + reads(std::string(kPlaceholderPath));
  platform.workQueue.runNext();
  const Pixel second = shownFor(*selector, "A");
  const Pixel secondOfOther = shownFor(*selector, "B");
  runAll();

  EXPECT_EQ(atFirst, kTransparent);
  EXPECT_EQ(readAtFirst, 0);
  EXPECT_EQ(second, kBlue);
  EXPECT_EQ(secondOfOther, kBlue);
  EXPECT_EQ(shownFor(*selector, "A"), kRed);
  EXPECT_EQ(shownFor(*selector, "B"), kGreen);
  EXPECT_EQ(reads(iconOf("A")), 1);
  EXPECT_EQ(reads(std::string(kPlaceholderPath)), 1);
}

TEST_F(IconLoading, AnIconThatIsThereBeforeThePlaceholderStays) {
  FreltaStyleContentsCell card({0, 0, 390, 80});
  IconHandler answer;
  card.loadIconImage([&](const auto&, const auto& done) { answer = done; }, nullptr);
  answer(picture(1, 1, kRed));

  card.setStandIn(picture(1, 1, kBlue));

  EXPECT_EQ(shownOn(card), kRed);
}

TEST_F(IconLoading, ACardThatWasReusedShowsNothingOfTheStyleBefore) {
  installWithIcon("A", kRed);
  installWithIcon("B", kGreen);
  FreltaStyleCell cell(UITableViewCellStyle::Default, "FreltaStyleCell");
  cell.setFrame({0, 0, 390, 130});
  cell.setSortedStyleItem(style("A"));

  cell.prepareForReuse();
  cell.setSortedStyleItem(style("B"));
  const std::size_t waiting = platform.workQueue.waiting();
  runAll();

  EXPECT_EQ(waiting, 1U);
  EXPECT_EQ(shownOn(*cell.headerView()), kGreen);
  EXPECT_EQ(reads(iconOf("A")), 0);
}

TEST_F(IconLoading, AnAnswerThatComesAfterTheReuseIsDropped) {
  FreltaStyleContentsCell card({0, 0, 390, 80});
  std::weak_ptr<const void> wanted;
  card.loadIconImage([&](const auto& token, const auto&) { wanted = token; }, nullptr);
  const bool wantedAtFirst = !wanted.expired();

  card.setIconImage(nullptr);

  EXPECT_TRUE(wantedAtFirst);
  EXPECT_TRUE(wanted.expired());
}

TEST_F(IconLoading, CardsKeepTheirIconsThroughAReloadAndAReturnToTheScreen) {
  for (int i = 0; i < 5; ++i) installWithIcon(std::to_string(i), kRed);
  const auto selector = show(Selector::init());
  runAll();
  platform.files.resetCalls();

  tapCard(*selector, 2);
  const Pixel afterTap = shownFor(*selector, "2");
  runAll();
  const std::ptrdiff_t readsAfterTap = reads(iconOf("2"));
  selector->viewWillAppear(false);
  window.layoutIfNeeded();

  EXPECT_EQ(afterTap, kRed);
  EXPECT_EQ(readsAfterTap, 1);
  EXPECT_EQ(shownFor(*selector, "2"), kRed);
  EXPECT_EQ(platform.workQueue.waiting(), 5U);
}

TEST_F(IconLoading, AChangedIconTakesThePlaceOfTheOneThatStoodIn) {
  installWithIcon("A", kRed);
  const auto selector = show(Selector::init());
  runAll();
  putPicture(iconOf("A"), *picture(60, 60, kGreen));

  selector->tableView()->reloadData();
  window.layoutIfNeeded();
  runAll();

  EXPECT_EQ(shownFor(*selector, "A"), kGreen);
}

TEST_F(IconLoading, NoMoreIconsAreAwaitedThanThereAreCardsHoweverFarRowsAreFlung) {
  for (int i = 0; i < 100; ++i) installWithIcon(std::to_string(i), kRed);
  const auto selector = show(Selector::init());
  UITableView& table = *selector->tableView();

  for (const double y : {4'000.0, 100.0, 11'000.0, 60.0, 7'777.0, 0.0, 9'000.0}) {
    table.userDidScroll({0, y});
    window.layoutIfNeeded();
  }
  const std::size_t waiting = platform.workQueue.waiting();
  runAll();

  // The placeholder, and the cells that wait for reuse, no more than fill a screen.
  EXPECT_LE(waiting, 1 + 2 * table.visibleCells().size());
  for (const UITableViewCell* cell : table.visibleCells())
    EXPECT_EQ(shownOn(*static_cast<const FreltaStyleCell*>(cell)->headerView()), kRed);
}

TEST_F(IconLoading, NobodyWantsTheIconsOfAScreenThatWasLeft) {
  for (int i = 0; i < 5; ++i) installWithIcon(std::to_string(i), kRed);
  std::weak_ptr<Selector> left = show(Selector::init());

  navigation->popViewControllerAnimated(false);
  setCurrentSelector(nullptr);
  window.layoutIfNeeded();
  platform.mainQueue.runPending();

  EXPECT_TRUE(left.expired());
  EXPECT_EQ(platform.workQueue.waiting(), 0U);
}

TEST_F(IconLoading, APictureThatTakesAllMemoryCostsItsCardTheIconAndNoMore) {
  class NoMemory : public QtImageServices {
   public:
    std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const override {
      if (bytes == "a hostile picture") throw std::bad_alloc();
      return QtImageServices::imageWithData(bytes);
    }
  } hostile;
  GraphicsServices::install({&hostile});
  install("A");
  platform.put(iconOf("A"), "a hostile picture");
  installWithIcon("B", kRed);
  const auto selector = show(Selector::init());

  runAll();

  EXPECT_EQ(shownFor(*selector, "A"), kTransparent);
  EXPECT_EQ(shownFor(*selector, "B"), kRed);
  EXPECT_THAT(platform.workQueue.exceptions, testing::ElementsAre("std::bad_alloc"));
}

TEST_F(IconLoading, ItemRowsShowThePlaceholderTooThenTheirIconOrTheStylesLogo) {
  installWithIcon("Pack", kGreen);
  const auto pack = style("Pack");
  const Item painted = item("painted");
  painted->setPath("/painted");
  putPicture("/painted/IconBundles/one.png", *picture(60, 60, kRed));
  pack->setItems(std::make_shared<std::vector<Item>>(std::vector{painted, item("plain")}));
  pack->setIsExpanded(true);
  const auto selector = showGroups({pack});
  platform.workQueue.runNext();
  const FreltaStyleCell& cell = *cellAt(*selector, {1, 0});
  const Pixel first = shownOn(*subCell(cell, 0)->contentView());

  runAll();

  EXPECT_EQ(first, kBlue);
  EXPECT_EQ(shownOn(*subCell(cell, 0)->contentView()), kRed);
  EXPECT_EQ(shownOn(*subCell(cell, 1)->contentView()), kGreen);
  EXPECT_EQ(painted->generateIcon(), subCell(cell, 0)->contentView()->iconImageView()->image());
}

TEST_F(IconLoading, AFailureBesideTheMainThreadIsLoggedAsOneOnIt) {
  const Item broken = item("broken");
  broken->setPath("/broken");
  putPicture("/broken/IconBundles/one.png", *picture(60, 60, kRed));
  bool isAnswered = false;
  broken->loadIcon(std::make_shared<const bool>(), [](const auto&) {});
  const auto wanted = std::make_shared<const bool>();
  broken->loadIcon(wanted, [&](const auto& icon) { isAnswered = !icon; });
  platform.files.beforeCall = [](const FailingFiles::Call&) {
    throw std::runtime_error("disk on fire");
  };

  runAll();

  EXPECT_TRUE(isAnswered);
  EXPECT_THAT(platform.log.lines, testing::ElementsAre("disk on fire"));
  EXPECT_THAT(platform.workQueue.exceptions, testing::IsEmpty());
}

TEST(IconStandInsTest, KeepTheLastIconsShownAndForgetTheRest) {
  IconStandIns icons;
  const auto red = picture(1, 1, kRed);

  for (int i = 0; i < 40; ++i) {
    icons.keep(std::to_string(i), red);
    icons.keep("often", red);
  }
  icons.keep("gone", red);
  icons.keep("gone", nullptr);

  EXPECT_EQ(icons.standIn("often"), red);
  EXPECT_EQ(icons.standIn("39"), red);
  EXPECT_EQ(icons.standIn("10"), red);
  EXPECT_EQ(icons.standIn("8"), nullptr);
  EXPECT_EQ(icons.standIn("gone"), nullptr);
}

}  // namespace
}  // namespace frelta
