#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

#include "linux/FileDescriptor.h"
#include "linux/FolderContents.h"
#include "tests/installer/InstallerTest.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/SystemCallStepper.h"

namespace frelta {
namespace {

/// Somebody else may write in the folder that installations unfold in, and wants files of ours to
/// end up in a folder that only we can write in.
class SharedRoot : public InstallerTest {
 protected:
  SharedRoot() {
    for (auto path = library(); path != path.root_path() && path.filename() != "tmp";
         path = path.parent_path())
      std::filesystem::permissions(path, std::filesystem::perms(0755));
    std::filesystem::create_directory(target());
    std::filesystem::permissions(target(), std::filesystem::perms(0700));
    std::filesystem::permissions(library(), std::filesystem::perms(0777));
    putFiles(2);
    installation.source = sources() / "Sea.theme";
    installation.root = root();
  }

  void putFiles(int count) {
    files_ = count;
    for (int i = 0; i < count; ++i)
      write(sources() / "Sea.theme/Images" / std::to_string(i), std::to_string(i));
  }

  std::filesystem::path target() const { return root() / "ours"; }
  bool isTargetEmpty() const { return std::filesystem::is_empty(target()); }

  /// Whether the styles folder holds nothing, or the style whole.
  testing::AssertionResult isWholeOrNothing() const {
    for (const auto& entry : std::filesystem::directory_iterator(themes()))
      if (entry.path().filename() != "Sea.theme")
        return testing::AssertionFailure() << entry.path() << " is no style of ours";
    if (!std::filesystem::exists(themes() / "Sea.theme")) return testing::AssertionSuccess();
    for (int i = 0; i < files_; ++i)
      if (read(themes() / "Sea.theme/Images" / std::to_string(i)) != std::to_string(i))
        return testing::AssertionFailure() << "its file " << i << " is not what it should be";
    return testing::AssertionSuccess();
  }

 private:
  int files_ = 0;
};

/// The other one's hands.
class Neighbour {
 public:
  Neighbour(const std::filesystem::path& library, std::filesystem::path target)
      : library_(::open(library.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
        target_(std::move(target)) {}

  /// Puts a folder of his own in the place of an unfinished one, if there is one.
  bool exchange() {
    const auto names = namesInFolder(library_);
    for (const auto& name : *names) {
      if (!name.starts_with(".installing-style")) continue;
      makeTrap();
      if (::renameat2(library_.get(), name.c_str(), library_.get(), kTrap, RENAME_EXCHANGE) == 0)
        return true;
    }
    return false;
  }
  /// What was made in his folder gives way to a link into ours.
  void turnIntoLinks() {
    if (!trap_) return;
    const auto names = namesInFolder(trap_);
    for (const auto& name : *names)
      if (!name.starts_with("away") &&
          ::renameat(trap_.get(), name.c_str(), trap_.get(), ("away-" + name).c_str()) == 0)
        ::symlinkat(target_.c_str(), trap_.get(), name.c_str());
  }

 private:
  static constexpr const char* kTrap = "trap";

  void makeTrap() {
    removeTree(library_, kTrap);
    ::mkdirat(library_.get(), kTrap, 0777);
    ::fchmodat(library_.get(), kTrap, 0777, 0);
    trap_ = FileDescriptor(::openat(library_.get(), kTrap, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Tests of the superuser tell the two apart.
    if (::geteuid() == 0) ::fchown(trap_.get(), 65534, 65534);
  }

  FileDescriptor library_;
  FileDescriptor trap_;
  std::filesystem::path target_;
};

TEST_F(SharedRoot, AnExchangeAtAnySystemCallLeadsNowhereElse) {
  int exchanges = 0, installed = 0;

  for (int at = 1; at > 0;) {
    Neighbour neighbour(library(), target());
    int exchanged = 0;
    const auto status =
        waitStatusOfSteppedChild([&] { return statusOfInstalling(); },
                                 [&](pid_t, int stop) {
                                   if (exchanged > 0) neighbour.turnIntoLinks();
                                   if (stop >= at && exchanged == 0 && neighbour.exchange())
                                     exchanged = stop;
                                 });
    if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";

    exchanges += exchanged > 0;
    installed += WIFEXITED(*status) && WEXITSTATUS(*status) == 0;
    ASSERT_TRUE(WIFEXITED(*status)) << exchanged;
    ASSERT_TRUE(isTargetEmpty()) << exchanged;
    ASSERT_TRUE(isWholeOrNothing()) << exchanged;
    for (const auto& entry : std::filesystem::directory_iterator(library()))
      if (entry.path() != themes()) std::filesystem::remove_all(entry.path());
    std::filesystem::remove_all(themes() / "Sea.theme");
    // A call has been left before the next one is entered: one of the two is enough.
    at = exchanged > 0 ? exchanged + 2 : 0;
  }

  EXPECT_GT(exchanges, 10);
  EXPECT_GT(installed, 10);
}

TEST_F(SharedRoot, WhatIsPutInTheUnfinishedFoldersPlaceIsNotRemoved) {
  const auto presets = library() / "Presets";
  const auto isUnharmed = [&] {
    for (const auto& entry : std::filesystem::directory_iterator(library()))
      if (read(entry.path() / "Work.plist") == "mine") return true;
    return false;
  };
  write(presets / "Work.plist", "mine");
  int exchanges = 0;

  for (int at = 1; at > 0;) {
    int exchanged = 0;
    const auto status =
        waitStatusOfSteppedChild([&] { return statusOfInstalling(); },
                                 [&](pid_t, int stop) {
                                   if (stop < at || exchanged > 0) return;
                                   for (const auto& path : unfinished())
                                     if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD,
                                                     presets.c_str(), RENAME_EXCHANGE) == 0)
                                       exchanged = stop;
                                 });
    if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";

    exchanges += exchanged > 0;
    sweepUnfinishedStyles(root());
    ASSERT_TRUE(isUnharmed()) << exchanged;
    for (const auto& path : unfinished()) {
      std::filesystem::remove_all(presets);
      std::filesystem::rename(path, presets);
    }
    std::filesystem::remove_all(themes() / "Sea.theme");
    at = exchanged > 0 ? exchanged + 2 : 0;
  }

  EXPECT_GT(exchanges, 10);
}

TEST_F(SharedRoot, ANeighbourWhoRacesGetsNoFileWrittenElsewhere) {
  putFiles(40);
  auto* raced = static_cast<std::atomic<int>*>(::mmap(nullptr, sizeof(std::atomic<int>),
                                                      PROT_READ | PROT_WRITE,
                                                      MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  const pid_t racer = ::fork();
  if (racer == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    Neighbour neighbour(library(), target());
    if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0) ::_exit(1);
    for (;;) {
      if (!neighbour.exchange()) continue;
      ++*raced;
      for (int i = 0; i < 100; ++i) neighbour.turnIntoLinks();
    }
  }

  for (int i = 0; i < 30 || (*raced < 20 && i < 300); ++i) {
    const int status = exitStatusOfChild([&] { return statusOfInstalling(); });
    EXPECT_GE(status, 0);
    EXPECT_TRUE(isTargetEmpty());
    EXPECT_TRUE(isWholeOrNothing());
    std::filesystem::remove_all(themes() / "Sea.theme");
    if (HasFailure()) break;
  }
  ::kill(racer, SIGKILL);
  ::waitpid(racer, nullptr, 0);

  EXPECT_GE(*raced, 20);
  ::munmap(raced, sizeof *raced);
}

}  // namespace
}  // namespace frelta
