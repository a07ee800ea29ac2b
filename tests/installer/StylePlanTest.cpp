#include "installer/StylePlan.h"

#include <gmock/gmock.h>

#include "tests/installer/InstallerTest.h"

namespace frelta {
namespace {

using Reason = StyleRefusalReason;
using testing::ElementsAre;

/// Entries as a source would tell of them.
class ToldEntries : public StyleSource {
 public:
  ToldEntries(std::string name, const std::vector<std::string>& paths) : name_(std::move(name)) {
    for (const auto& path : paths) add(path, 0);
  }
  ToldEntries& add(const std::string& path, std::uint64_t size) {
    const auto kind = path.ends_with('/') ? StyleEntry::Kind::Folder : StyleEntry::Kind::File;
    entries_.push_back({path, kind, size});
    return *this;
  }

  const std::string& name() const override { return name_; }
  const std::vector<StyleEntry>& entries() const override { return entries_; }
  std::optional<StyleRefusal> read(std::size_t,
                                   const std::function<bool(std::string_view)>&) override {
    return std::nullopt;
  }

 private:
  std::string name_;
  std::vector<StyleEntry> entries_;
};

StylePlan plan(const ToldEntries& source, const StyleLimits& limits = {}) {
  auto planned = planForStyle(source, limits);
  if (const auto* refusal = std::get_if<StyleRefusal>(&planned)) {
    ADD_FAILURE() << "reason " << static_cast<int>(refusal->reason) << ' ' << refusal->detail;
    return {};
  }
  return std::get<StylePlan>(planned);
}

StyleRefusal refusal(const ToldEntries& source, const StyleLimits& limits = {}) {
  auto planned = planForStyle(source, limits);
  const auto* refusal = std::get_if<StyleRefusal>(&planned);
  EXPECT_TRUE(refusal);
  return refusal ? *refusal : StyleRefusal{};
}

std::vector<std::string> filesOf(const StylePlan& plan) {
  std::vector<std::string> files;
  for (const auto& file : plan.files) files.push_back(file.path);
  return files;
}

TEST(StylePlan, HoldsTheSumOfAllFilesToTheLimit) {
  ToldEntries source("a", {});
  source.add("A.theme/Images/a", 600).add("A.theme/Images/b", 400);

  EXPECT_EQ(plan(source, {.bytes = 1000}).bytes, 1000U);
  EXPECT_THAT(refusal(source, {.bytes = 999}), refusedFor(Reason::TooLarge));
}

TEST(StylePlan, TakesASumThatWouldOverflowForTooLarge) {
  ToldEntries source("a", {});
  source.add("A.theme/Images/a", 600).add("A.theme/Images/b", ~std::uint64_t{0});

  EXPECT_THAT(refusal(source), refusedFor(Reason::TooLarge));
}

TEST(StylePlan, CountsOnlyWhatItMakes) {
  ToldEntries source("a", {});
  source.add("A.theme/Images/a", 600).add("notes/b", 400);

  const StylePlan made = plan(source);

  EXPECT_EQ(made.bytes, 600U);
  EXPECT_THAT(made.folders, ElementsAre("Images"));
  EXPECT_THAT(filesOf(made), ElementsAre("Images/a"));
  EXPECT_EQ(made.files[0].entry, 0U);
}

TEST(StylePlan, TakesNamesUpToTheFirstAndFromTheLastControlCharacter) {
  for (const char* name : {" ", "~", "\u00a0", "\u2027", "\u202a", "\u202e", "ö", "]", "["})
    EXPECT_EQ(plan({"a", {std::string("A.theme/Images/x") + name}}).files.size(), 1U) << name;
  for (const char* name :
       {"\x1f", "\x01", "\t", "\x7f", "\u0080", "\u009f", "\\", "\xff", "\u2028", "\u2029"})
    EXPECT_THAT(refusal({"a", {std::string("A.theme/Images/x") + name}}),
                refusedFor(Reason::NameNotText));
}

TEST(StylePlan, TakesAsManyEntriesAsMayBe) {
  const ToldEntries source("a", {"A.theme/Images/1", "A.theme/Images/2", "A.theme/Images/3"});

  EXPECT_EQ(plan(source, {.entries = 5}).files.size(), 3U);
  EXPECT_THAT(refusal(source, {.entries = 2}), refusedFor(Reason::TooManyEntries));
  EXPECT_EQ(plan({"a", {"Images/", "Images/1"}}, {.entries = 2}).files.size(), 1U);
}

TEST(StylePlan, CountsWhatItPassesOverAsEntriesToo) {
  const ToldEntries source("a", {"Images/1", ".DS_Store", "__MACOSX/1", "__MACOSX/2"});

  EXPECT_EQ(plan(source, {.entries = 4}).files.size(), 1U);
  EXPECT_THAT(refusal(source, {.entries = 3}), refusedFor(Reason::TooManyEntries));
}

TEST(StylePlan, RefusesPathsWithNothingBetweenOrBehindTheirSlashes) {
  for (const char* path : {"", "/", "Images//", "Images//1", "/Images/1"})
    EXPECT_THAT(refusal({"a", {"Images/2", path}}), refusedFor(Reason::LeavesFolder, path));
}

TEST(StylePlan, CountsTheFoldersThatPathsNeedAsEntries) {
  const ToldEntries source("a", {"A.theme/Images/1/2/3/4", "A.theme/Images/5/6/7/8"});

  EXPECT_EQ(plan(source, {.entries = 10}).folders.size(), 7U);
  EXPECT_THAT(refusal(source, {.entries = 9}), refusedFor(Reason::TooManyEntries));
}

TEST(StylePlan, TakesFoldersAsDeepAsMayBe) {
  const ToldEntries source("a", {"A.theme/Images/1/2"});

  EXPECT_EQ(plan(source, {.depth = 4}).files.size(), 1U);
  EXPECT_THAT(refusal(source, {.depth = 3}), refusedFor(Reason::TooDeep, "A.theme/Images/1/2"));
}

TEST(StylePlan, TakesNamesAsLongAsTheFileSystemDoes) {
  const std::string longest(255, 'n');

  EXPECT_EQ(plan({"a", {longest + "/Images/a"}}).name, longest);
  EXPECT_EQ(plan({"a", {"A.theme/Images/" + longest}}).files.size(), 1U);
  EXPECT_THAT(refusal({"a", {"A.theme/Images/" + longest + "n"}}),
              refusedFor(Reason::NameTooLong, "A.theme/Images/" + longest + "n"));
  EXPECT_THAT(refusal({longest + "n", {"Images/a"}}),
              refusedFor(Reason::BadStyleName, longest + "n"));
}

TEST(StylePlan, PassesOverATopFolderThatIsNoStyleBesideOneThatIs) {
  const StylePlan made = plan({"a", {"docs/read me", "Sea.theme/HTML/index.html", "zoo/a/b"}});

  EXPECT_EQ(made.name, "Sea.theme");
  EXPECT_THAT(filesOf(made), ElementsAre("HTML/index.html"));
  EXPECT_THAT(made.folders, ElementsAre("HTML"));
}

TEST(StylePlan, PassesOverAFolderThatOnlyBeginsLikeTheStyle) {
  const StylePlan made = plan({"a", {"Sea/Images/a", "Sea-old/b", "Seas"}});

  EXPECT_THAT(filesOf(made), ElementsAre("Images/a"));
}

TEST(StylePlan, MakesAWidgetOfASourceThatIsOneWhateverItHolds) {
  const StylePlan several =
      plan({"All.bundle", {"A.theme/Images/a", "B.theme/Images/b", "index.html"}});
  const StylePlan none = plan({"Clock.BUNDLE", {"index.html"}});

  EXPECT_EQ(several.name, "All.bundle");
  EXPECT_THAT(filesOf(several), ElementsAre("A.theme/Images/a", "B.theme/Images/b", "index.html"));
  EXPECT_EQ(none.name, "Clock.BUNDLE");
}

TEST(StylePlan, TellsWidgetsByTheirWholeSuffix) {
  EXPECT_EQ(plan({"a", {"Clock.bundle/index.html"}}).name, "Clock.bundle");
  EXPECT_EQ(plan({"a", {"x.bundle/index.html"}}).name, "x.bundle");
  EXPECT_THAT(refusal({"a", {"Clock.bundles/index.html"}}), refusedFor(Reason::NotAStyle));
  EXPECT_THAT(refusal({"a", {"bundle/index.html"}}), refusedFor(Reason::NotAStyle));
  EXPECT_THAT(refusal({"a", {"Clock.bundle"}}), refusedFor(Reason::NotAStyle));
  EXPECT_THAT(refusal({"a.bundle", {}}), refusedFor(Reason::NotAStyle));
}

TEST(StylePlan, NamesTheFirstTwoOfSeveralStyles) {
  EXPECT_THAT(refusal({"a", {"C.theme/HTML/c", "B.bundle/b", "A.theme/Images/a"}}),
              refusedFor(Reason::SeveralStyles, "A.theme, B.bundle"));
}

TEST(StylePlan, PassesOverOnlyWhatDesktopsLeave) {
  const StylePlan made =
      plan({"a",
            {"__MACOSX/", "__MACOSX/A.theme/x", "A.theme/Images/a", "A.theme/.DS_Store",
             ".DS_Store", "A.theme/__MACOSX/b", "A.theme/x.DS_Store", "__MACOSX.txt"}});

  EXPECT_THAT(filesOf(made), ElementsAre("Images/a", "__MACOSX/b", "x.DS_Store"));
}

TEST(StylePlan, TakesAFolderThatIsToldTwiceOnlyOnce) {
  EXPECT_THAT(plan({"a", {"A.theme/Images/a", "A.theme/Images/"}}).folders, ElementsAre("Images"));
  EXPECT_THAT(refusal({"a", {"A.theme/Images/", "A.theme/Images/"}}),
              refusedFor(Reason::Duplicate, "A.theme/Images/"));
  EXPECT_THAT(refusal({"a", {"A.theme/Images", "A.theme/Images/"}}),
              refusedFor(Reason::Duplicate, "A.theme/Images/"));
}

TEST(StylePlan, RefusesAHiddenOrNamelessStyle) {
  EXPECT_THAT(refusal({".a", {"Images/a"}}), refusedFor(Reason::BadStyleName, ".a"));
  EXPECT_THAT(refusal({"", {"Images/a"}}), refusedFor(Reason::BadStyleName));
  EXPECT_THAT(refusal({"a\x1b", {"Images/a"}}), refusedFor(Reason::BadStyleName, "a\x1b"));
}

}  // namespace
}  // namespace frelta
