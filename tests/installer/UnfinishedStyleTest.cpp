#include <fcntl.h>
#include <sys/file.h>

#include "linux/FileDescriptor.h"
#include "tests/installer/InstallerTest.h"
#include "tests/support/SystemCallStepper.h"

namespace frelta {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class UnfinishedStyle : public InstallerTest {
 protected:
  UnfinishedStyle() { write(kLeft / ".style/Images/half", "half"); }

  const std::filesystem::path kLeft = library() / ".installing-style-0123456789abcdef";
};

TEST_F(UnfinishedStyle, OfAnInstallationThatDiedIsRemovedByTheNext) {
  const std::string name = installedName(folder("Sea.theme"));

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_THAT(unfinished(), IsEmpty());
}

TEST_F(UnfinishedStyle, OfAnInstallationThatDiedIsRemovedAtTheNextStart) {
  std::filesystem::create_directory(library() / ".installing-style-empty");

  sweepUnfinishedStyles(root());

  EXPECT_THAT(unfinished(), IsEmpty());
}

TEST_F(UnfinishedStyle, IsRemovedAfterAKillAtAnySystemCall) {
  installation.source = folder("Sea.theme");
  installation.root = root();
  int kills = 0, found = 0, installed = 0;

  for (bool hasEnded = false; !hasEnded; ++kills) {
    const auto status = waitStatusOfSteppedChild([&] { return statusOfInstalling(); },
                                                 [&](pid_t child, int stop) {
                                                   if (stop == kills + 1) ::kill(child, SIGKILL);
                                                 });
    if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";
    hasEnded = WIFEXITED(*status);
    found += !unfinished().empty();
    sweepUnfinishedStyles(root());
    ASSERT_THAT(unfinished(), IsEmpty()) << kills;
    const bool isInstalled = std::filesystem::exists(themes() / "Sea.theme");
    installed += isInstalled;
    ASSERT_EQ(read(themes() / "Sea.theme/Images/Key.png"), isInstalled ? "key" : "") << kills;
    std::filesystem::remove_all(themes() / "Sea.theme");
  }

  // All windows were hit: before, while and after the style was made.
  EXPECT_GT(kills, 50);
  EXPECT_GT(found, 20);
  EXPECT_GT(kills - found, 10);
  EXPECT_GT(installed, 2);
}

TEST_F(UnfinishedStyle, StaysWhileItIsBeingMade) {
  std::vector<std::filesystem::path> seen;
  installation.progress = [&](double) {
    sweepUnfinishedStyles(root());
    seen = unfinished();
    return true;
  };

  const std::string name = installedName(folder("Sea.theme"));

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_THAT(seen, SizeIs(1));
}

TEST_F(UnfinishedStyle, HindersNoOtherInstallation) {
  const std::string sea = folder("Sea.theme");
  StyleInstallation other;
  other.root = root();
  other.source = folder("Sky.theme");
  int others = 0;
  installation.progress = [&](double) {
    other.replace = true;
    others += std::holds_alternative<InstalledStyle>(installStyle(other));
    return true;
  };

  const std::string name = installedName(sea);

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_EQ(others, 3);
  EXPECT_EQ(read(themes() / "Sky.theme/Images/Key.png"), "key");
  EXPECT_THAT(unfinished(), IsEmpty());
}

TEST_F(UnfinishedStyle, IsInAFolderThatNobodyElseCanEnter) {
  const mode_t before = ::umask(0);
  std::vector<std::filesystem::path> seen;
  installation.progress = [&](double) {
    for (const auto& path : unfinished()) seen.push_back(path);
    EXPECT_EQ(std::filesystem::status(seen.back()).permissions(), std::filesystem::perms(0700));
    return false;
  };

  install(folder("Sea.theme"));
  install(folder("Sea.theme"));
  ::umask(before);

  ASSERT_THAT(seen, SizeIs(2));
  EXPECT_NE(seen[0], seen[1]);
}

TEST_F(UnfinishedStyle, IsMadeWhateverFoldersOthersKeepLocked) {
  std::vector<FileDescriptor> locked;
  for (const auto& path : {root(), library(), themes(), kLeft}) {
    locked.emplace_back(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(locked.back().get(), LOCK_EX), 0);
  }

  const std::string name = installedName(folder("Sea.theme"));

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_THAT(unfinished(), testing::ElementsAre(kLeft));
}

TEST_F(UnfinishedStyle, IsToldFromWhatSomebodyElseGaveSuchAName) {
  const auto presets = library() / ".installing-style-presets";
  const auto open = library() / ".installing-style-open";
  const auto link = library() / ".installing-style-link";
  const auto file = library() / ".installing-style-file";
  const auto pipe = library() / ".installing-style-pipe";
  write(presets / "Work.plist", "mine");
  write(presets / ".style/a", "mine too");
  write(open / ".style/a", "theirs");
  std::filesystem::permissions(open, std::filesystem::perms(0777));
  write(library() / "elsewhere/.style/a", "mine");
  std::filesystem::create_symlink(library() / "elsewhere", link);
  write(file, "");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);

  sweepUnfinishedStyles(root());

  EXPECT_THAT(unfinished(), testing::UnorderedElementsAre(presets, open, link, file, pipe));
  EXPECT_EQ(read(presets / "Work.plist"), "mine");
  EXPECT_EQ(read(presets / ".style/a"), "mine too");
  EXPECT_EQ(read(open / ".style/a"), "theirs");
  EXPECT_EQ(read(library() / "elsewhere/.style/a"), "mine");
}

TEST_F(UnfinishedStyle, OfAnotherUserStays) {
  if (::geteuid() != 0) GTEST_SKIP() << "NOT TESTED: only the superuser can give files away";
  ASSERT_EQ(::chown(kLeft.c_str(), 65534, 65534), 0);

  sweepUnfinishedStyles(root());

  EXPECT_EQ(read(kLeft / ".style/Images/half"), "half");
}

}  // namespace
}  // namespace frelta
