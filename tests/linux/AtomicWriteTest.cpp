#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <set>

#include "linux/TemporaryFile.h"
#include "tests/linux/DeviceFiles.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/SystemCallFilter.h"
#include "tests/support/SystemCallStepper.h"

namespace frelta {
namespace {

using testing::UnorderedElementsAre;

/// A folder with one file in it, whose old and new contents cannot be mistaken.
class AtomicWrite : public testing::Test {
 protected:
  AtomicWrite() { device.put("/a/file", kOld); }

  bool isWholeOldOrNew() const {
    const std::string found = device.get("/a/file");
    return found == kOld || found == kNew;
  }
  std::set<std::string> names() const { return DeviceFiles::names(device.host("/a")); }
  /// Writes in a child that prepares itself first; the exit status tells the result.
  int writeInChild(const std::function<void()>& prepare) const {
    return waitStatusOfChild([&] {
      LinuxFileManager files(device.root());
      prepare();
      return files.writeAtomically("/a/file", kNew) ? 0 : 1;
    });
  }
  static bool isExit(int status, int expected) {
    return WIFEXITED(status) && WEXITSTATUS(status) == expected;
  }

  static constexpr int kNewSize = 5000;
  const std::string kOld = "old";
  const std::string kNew = std::string(kNewSize, 'n');
  const std::string kLitter = "/a/" + std::string(TemporaryFile::kPrefix) + "0123456789abcdef";
  DeviceFiles device;
};

/// Calls that a write makes, each at which it may be cut short or fail.
const std::vector<long> kSystemCalls = {SYS_openat, SYS_flock, SYS_fchmod,
                                        SYS_write,  SYS_fsync, SYS_renameat};

TEST_F(AtomicWrite, KilledAtAnySystemCallLeavesOldOrNewAndNoLitterAfterTheNextWrite) {
  LinuxFileManager files(device.root());
  int runs = 0, oldFound = 0, newFound = 0, litterFound = 0;
  bool hasEnded = false;

  for (int stop = 1; !hasEnded; ++stop, ++runs) {
    device.put("/a/file", kOld);
    const auto run = killAtSystemCallStop(
        {FRELTA_WRITE_ONCE, device.root(), "/a/file", std::to_string(kNewSize)}, stop);
    if (!run.isTraced) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";
    hasEnded = run.exitStatus.has_value();
    ASSERT_EQ(run.exitStatus.value_or(0), 0);
    ASSERT_TRUE(isWholeOldOrNew()) << "killed at stop " << stop;
    (device.get("/a/file") == kOld ? oldFound : newFound)++;
    litterFound += names().size() > 1;
    ASSERT_TRUE(files.writeAtomically("/a/other", "x"));
    ASSERT_THAT(names(), UnorderedElementsAre("file", "other")) << "killed at stop " << stop;
    std::filesystem::remove(device.host("/a/other"));
  }

  // All windows were hit: before, while and after the file took its name.
  EXPECT_GT(oldFound, 0);
  EXPECT_GT(newFound, 1);
  EXPECT_GT(litterFound, 5);
  EXPECT_GT(runs, 20);
}

TEST_F(AtomicWrite, DyingInEachOfItsCallsLeavesTheOldFileAndNoLitterAfterTheNextWrite) {
  LinuxFileManager files(device.root());
  for (const long call : kSystemCalls) {
    const int status = writeInChild([&] { dieAtSystemCall(call); });

    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGSYS) << call;
    EXPECT_EQ(device.get("/a/file"), kOld) << call;
    EXPECT_TRUE(files.writeAtomically("/a/file", kOld));
    EXPECT_THAT(names(), UnorderedElementsAre("file")) << call;
  }
}

TEST_F(AtomicWrite, AFailureOfAnyOfItsCallsIsToldAndLeavesTheOldFileAlone) {
  for (const long call : kSystemCalls) {
    // Where there are no locks, there is nothing to be told.
    if (call == SYS_flock) continue;
#ifdef __SANITIZE_ADDRESS__
    // The sanitizers themselves write: into a pipe, to learn whether memory can be read.
    if (call == SYS_write) continue;
#endif

    const int status = writeInChild([&] { failSystemCall(call, ENOSPC); });

    EXPECT_TRUE(isExit(status, 1)) << call;
    EXPECT_EQ(device.get("/a/file"), kOld) << call;
    EXPECT_THAT(names(), UnorderedElementsAre("file")) << call;
  }
}

TEST_F(AtomicWrite, AWriteThatStopsHalfwayFails) {
  const int status = writeInChild([] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{kNewSize / 2, kNewSize / 2};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  });

  EXPECT_TRUE(isExit(status, 1));
  EXPECT_EQ(device.get("/a/file"), kOld);
  EXPECT_THAT(names(), UnorderedElementsAre("file"));
}

TEST_F(AtomicWrite, AFolderThatMayNotBeWrittenToKeepsTheOldFile) {
  std::filesystem::permissions(device.host("/a"), std::filesystem::perms(0555));

  // The superuser would be let in.
  const int status = writeInChild([] {
    if (::geteuid() == 0 && ::seteuid(65534) != 0) ::_exit(77);
  });

  std::filesystem::permissions(device.host("/a"), std::filesystem::perms(0755));
  EXPECT_TRUE(isExit(status, 1));
  EXPECT_EQ(device.get("/a/file"), kOld);
  EXPECT_THAT(names(), UnorderedElementsAre("file"));
}

TEST_F(AtomicWrite, KeepsTheOldFilesPermissions) {
  LinuxFileManager files(device.root());
  const mode_t mask = ::umask(022);
  const auto permissions = [&](const char* path) {
    return static_cast<unsigned>(std::filesystem::status(device.host(path)).permissions());
  };
  device.put("/a/open", "x");
  device.put("/a/tight", "x");
  ASSERT_EQ(::chmod(device.host("/a/open").c_str(), 0666), 0);
  ASSERT_EQ(::chmod(device.host("/a/tight").c_str(), 0600), 0);

  EXPECT_TRUE(files.writeAtomically("/a/open", "new"));
  EXPECT_TRUE(files.writeAtomically("/a/tight", "new"));
  EXPECT_TRUE(files.writeAtomically("/a/fresh", "new"));
  ::umask(mask);

  EXPECT_EQ(permissions("/a/open"), 0666u);
  EXPECT_EQ(permissions("/a/tight"), 0600u);
  EXPECT_EQ(permissions("/a/fresh"), 0644u);
}

TEST_F(AtomicWrite, RemovesWhatDeadProcessesLeftWithoutWritingToIt) {
  LinuxFileManager files(device.root());
  std::ofstream(device.outside() / "file") << "outside";
  std::filesystem::create_hard_link(device.outside() / "file", device.host(kLitter));
  device.put(kLitter + "2", "half");

  EXPECT_TRUE(files.writeAtomically("/a/file", kNew));

  EXPECT_THAT(names(), UnorderedElementsAre("file"));
  EXPECT_EQ(device.get("/a/file"), kNew);
  EXPECT_EQ(DeviceFiles::read(device.outside() / "file"), "outside");
}

TEST_F(AtomicWrite, IsNotHinderedByWhatOthersPutUnderHiddenNames) {
  LinuxFileManager files(device.root());
  std::ofstream(device.outside() / "file") << "outside";
  device.link(kLitter + "link", device.outside() / "file");
  ASSERT_EQ(::mkfifo(device.host(kLitter + "pipe").c_str(), 0644), 0);
  device.put("/a/.frelta-writing/file", "x");
  device.put(kLitter + "folder/file", "x");

  const bool hasWritten = files.writeAtomically("/a/file", kNew);

  EXPECT_TRUE(hasWritten);
  EXPECT_EQ(device.get("/a/file"), kNew);
  EXPECT_EQ(DeviceFiles::read(device.outside() / "file"), "outside");
  EXPECT_EQ(device.get(kLitter + "folder/file"), "x");
}

TEST_F(AtomicWrite, ASweepRemovesWhatADeadProcessLeftAndNothingElse) {
  LinuxFileManager files(device.root());
  device.put(kLitter, "half");
  device.put("/a/.hidden", "x");
  device.put("/a/.frelta-writin", "x");

  files.sweepDirectoryAtPath("/a");
  files.sweepDirectoryAtPath("/none");

  EXPECT_THAT(names(), UnorderedElementsAre("file", ".hidden", ".frelta-writin"));
}

TEST_F(AtomicWrite, LeavesALiveWritersFileAloneAndWritesBesideIt) {
  LinuxFileManager files(device.root());
  const FileDescriptor folder(::open(device.host("/a").c_str(), O_RDONLY | O_CLOEXEC));
  auto writer = TemporaryFile::createIn(folder, 0644);
  ASSERT_TRUE(writer && writer->append("being written"));

  files.sweepDirectoryAtPath("/a");
  const bool hasWritten = files.writeAtomically("/a/file", kNew);
  const bool hasEnded = writer->replace("other");

  EXPECT_TRUE(hasWritten);
  EXPECT_TRUE(hasEnded);
  EXPECT_EQ(device.get("/a/file"), kNew);
  EXPECT_EQ(device.get("/a/other"), "being written");
}

TEST_F(AtomicWrite, ASweepBetweenAnyTwoOfItsSystemCallsDoesNotHurtIt) {
  LinuxFileManager files(device.root());
  int runs = 0;
  bool hasSwept = true;

  for (; hasSwept; ++runs) {
    device.put("/a/file", kOld);
    hasSwept = false;
    const auto status = waitStatusOfSteppedChild(
        [&] { return LinuxFileManager(device.root()).writeAtomically("/a/file", kNew) ? 0 : 1; },
        [&](pid_t, int stop) {
          if (stop != runs + 1) return;
          files.sweepDirectoryAtPath("/a");
          hasSwept = true;
        });
    if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";
    ASSERT_TRUE(isExit(*status, 0)) << runs;
    ASSERT_EQ(device.get("/a/file"), kNew) << runs;
  }

  EXPECT_THAT(names(), UnorderedElementsAre("file"));
  EXPECT_GT(runs, 20);
}

TEST_F(AtomicWrite, WaitsForNoLockThatSomebodyHoldsOnTheFolderOrTheFile) {
  LinuxFileManager files(device.root());
  const FileDescriptor folder(::open(device.host("/a").c_str(), O_RDONLY | O_CLOEXEC));
  const FileDescriptor file(::open(device.host("/a/file").c_str(), O_RDONLY | O_CLOEXEC));
  for (const int lock : {LOCK_SH, LOCK_EX}) {
    ASSERT_EQ(::flock(folder.get(), lock), 0);
    ASSERT_EQ(::flock(file.get(), lock), 0);
    device.put("/a/file", kOld);

    // Whoever wants to wait needs a call for it.
    const int status = writeInChild([] { dieAtSystemCall(SYS_clock_nanosleep); });

    EXPECT_TRUE(isExit(status, 0)) << lock;
    EXPECT_EQ(device.get("/a/file"), kNew) << lock;
  }
  EXPECT_THAT(names(), UnorderedElementsAre("file"));
}

/// A folder where everybody's new file is locked by somebody else before its writer gets to it.
TEST_F(AtomicWrite, AFileThatItCannotHaveForItselfIsNotUsed) {
  const int status = writeInChild([] { failSystemCall(SYS_flock, EWOULDBLOCK); });

  EXPECT_TRUE(isExit(status, 1));
  EXPECT_EQ(device.get("/a/file"), kOld);
  EXPECT_THAT(names(), UnorderedElementsAre("file"));
}

TEST_F(AtomicWrite, KeepsLitterWhereItsWriterCannotBeToldToBeDead) {
  device.put(kLitter, "half");

  const int status = writeInChild([] { failSystemCall(SYS_flock, ENOLCK); });

  EXPECT_TRUE(isExit(status, 0));
  EXPECT_EQ(device.get("/a/file"), kNew);
  EXPECT_EQ(device.get(kLitter), "half");
}

TEST_F(AtomicWrite, HiddenNamesAreNobodysFiles) {
  LinuxFileManager files(device.root());

  EXPECT_FALSE(files.writeAtomically(kLitter, kNew));
  EXPECT_FALSE(files.copyItemAtPath("/a/file", kLitter));

  EXPECT_THAT(names(), UnorderedElementsAre("file"));
}

TEST_F(AtomicWrite, ManyWritersAndAReaderNeverSeeAMix) {
  constexpr int kWriters = 3;
  constexpr int kWrites = 25;
  const auto contents = [](int writer) {
    return std::string(static_cast<std::size_t>(1000 + 7000 * writer),
                       static_cast<char>('a' + writer));
  };
  device.put("/a/file", contents(0));

  // Copies are made of this process while it has one thread: a lock that another held would stay
  // held in the copy.
  std::set<pid_t> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child > 0) {
      writers.insert(child);
      continue;
    }
    LinuxFileManager files(device.root());
    for (int i = 0; i < kWrites; ++i) {
      if (!files.writeAtomically("/a/file", contents(writer))) ::_exit(1);
    }
    ::_exit(0);
  }
  int failed = 0;
  int mixed = 0;
  while (!writers.empty()) {
    const std::string found = device.get("/a/file");
    if (found.empty() || found != contents(found.front() - 'a')) ++mixed;
    int status = 0;
    const pid_t ended = ::waitpid(-1, &status, WNOHANG);
    if (writers.erase(ended) && !isExit(status, 0)) ++failed;
  }

  EXPECT_EQ(failed, 0);
  EXPECT_EQ(mixed, 0);
  EXPECT_THAT(names(), UnorderedElementsAre("file"));
}

}  // namespace
}  // namespace frelta
