#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

#include "fake/FakeServices.h"
#include "linux/LinuxProcessLauncher.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class RealPrograms {
 public:
  ProcessLauncher& launcher() { return launcher_; }
  std::string outputOfAProgramThatPrints(const std::string& bytes) {
    std::ofstream(folder_.path() / "bytes", std::ios::binary) << bytes;
    return launcher_.standardOutputOf("/bin/cat", {"bytes"}, folder_.path());
  }
  std::string outputOfAMissingProgram() {
    return launcher_.standardOutputOf("/nowhere/program", {}, "/");
  }
  std::string outputOfAProgramThatCannotStart() {
    return launcher_.standardOutputOf(folder_.path(), {}, "/");
  }

 private:
  TemporaryFolder folder_;
  LinuxProcessLauncher launcher_;
};

class ScriptedPrograms {
 public:
  ProcessLauncher& launcher() { return launcher_; }
  std::string outputOfAProgramThatPrints(const std::string& bytes) {
    launcher_.standardOutput = bytes;
    return launcher_.standardOutputOf("/bin/cat", {"bytes"}, "/");
  }
  std::string outputOfAMissingProgram() {
    launcher_.isMissing = true;
    return launcher_.standardOutputOf("/nowhere/program", {}, "/");
  }
  std::string outputOfAProgramThatCannotStart() {
    launcher_.failsToLaunch = true;
    return launcher_.standardOutputOf("/nowhere/program", {}, "/");
  }

 private:
  FakeProcessLauncher launcher_;
};

template <typename Driver>
class ProcessLauncherContract : public testing::Test {
 protected:
  Driver driver;
};

using Drivers = testing::Types<RealPrograms, ScriptedPrograms>;
TYPED_TEST_SUITE(ProcessLauncherContract, Drivers);

TYPED_TEST(ProcessLauncherContract, SpawningWhatIsMissingDoesNothing) {
  EXPECT_NO_THROW(this->driver.launcher().spawn("/nowhere/program", {"program", "-9"}));
}

TYPED_TEST(ProcessLauncherContract, ARunGivesAllItsOutput) {
  std::string bytes(ProcessLauncher::kMaximumOutput, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 >> 2);

  EXPECT_TRUE(this->driver.outputOfAProgramThatPrints(bytes) == bytes);
  EXPECT_EQ(this->driver.outputOfAProgramThatPrints(""), "");
}

TYPED_TEST(ProcessLauncherContract, ARunWithMoreOutputThanMayBeGivesNone) {
  const std::string bytes(ProcessLauncher::kMaximumOutput + 1, 'x');

  EXPECT_EQ(this->driver.outputOfAProgramThatPrints(bytes), "");
}

TYPED_TEST(ProcessLauncherContract, ARunThatCannotStartThrows) {
  EXPECT_THROW(this->driver.outputOfAProgramThatCannotStart(), LaunchFailure);
}

TYPED_TEST(ProcessLauncherContract, ARunTellsAMissingProgramFromOneThatCannotStart) {
  EXPECT_THROW(this->driver.outputOfAProgramThatCannotStart(), LaunchFailure);
  try {
    this->driver.outputOfAProgramThatCannotStart();
  } catch (const LaunchFailure& failure) {
    EXPECT_EQ(dynamic_cast<const MissingProgram*>(&failure), nullptr);
  }
  EXPECT_THROW(this->driver.outputOfAMissingProgram(), MissingProgram);
}

/// What the program told of itself under the heading.
std::vector<std::string> told(const std::string& output, const std::string& heading) {
  std::vector<std::string> values;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with(heading + "=")) values.push_back(line.substr(heading.size() + 1));
  return values;
}

/// This process's descriptors that any child inherits.
std::string inheritedDescriptors() {
  std::string found;
  for (int descriptor = 0; descriptor < 256; ++descriptor) {
    const int flags = ::fcntl(descriptor, F_GETFD);
    if (flags >= 0 && (flags & FD_CLOEXEC) == 0) found += " " + std::to_string(descriptor);
  }
  return found;
}

std::string contentsOnceThere(const std::filesystem::path& path) {
  for (int i = 0; i < 1000 && !std::filesystem::exists(path); ++i)
    std::this_thread::sleep_for(10ms);
  std::ifstream file(path);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(LinuxProcessLauncher, SpawnsWithExactlyTheArgumentVectorAndNoEnvironment) {
  const TemporaryFolder folder;
  const std::string report = folder.path() / "report";
  LinuxProcessLauncher launcher;

  launcher.spawn(FRELTA_PRINT_SELF, {"own name", report, "-9", "", "a b"});

  const std::string output = contentsOnceThere(report);
  EXPECT_THAT(told(output, "argument"), ElementsAre("own name", report, "-9", "", "a b"));
  EXPECT_THAT(told(output, "environment"), IsEmpty());
  EXPECT_THAT(told(output, "folder"), ElementsAre(std::filesystem::current_path().string()));
  EXPECT_THAT(told(output, "descriptors"), ElementsAre(inheritedDescriptors()));
}

TEST(LinuxProcessLauncher, SpawnDoesNotWait) {
  LinuxProcessLauncher launcher;

  const auto start = std::chrono::steady_clock::now();
  launcher.spawn("/bin/sleep", {"sleep", "3"});

  EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

TEST(LinuxProcessLauncher, RunsInTheFolderWithItsEnvironmentAndNothingElseSet) {
  const TemporaryFolder folder;
  LinuxProcessLauncher launcher;
  ::setenv("FRELTA_TEST_VARIABLE", "inherited", 1);

  const std::string output =
      launcher.standardOutputOf(FRELTA_PRINT_SELF, {"-", "-s", "com.tarno.frelta"}, folder.path());

  EXPECT_THAT(told(output, "argument"),
              ElementsAre(FRELTA_PRINT_SELF, "-", "-s", "com.tarno.frelta"));
  EXPECT_THAT(told(output, "folder"), ElementsAre(std::filesystem::canonical(folder.path())));
  EXPECT_THAT(told(output, "environment"), Contains("FRELTA_TEST_VARIABLE=inherited"));
  EXPECT_THAT(told(output, "descriptors"), ElementsAre(inheritedDescriptors()));
}

TEST(LinuxProcessLauncher, ARunThatDoesNotEndIsEnded) {
  const TemporaryFolder folder;
  const std::string path = folder.path() / "number";
  LinuxProcessLauncher launcher(300ms);

  const std::string output = launcher.standardOutputOf(
      "/bin/sh", {"-c", "echo $$ >" + path + "; echo out; exec sleep 600"}, "/");

  EXPECT_EQ(output, "");
  int number = 0;
  ASSERT_TRUE(std::ifstream(path) >> number);
  // Ended by the signal, or this would wait for ten minutes.
  int status = 0;
  ASSERT_EQ(::waitpid(number, &status, 0), number);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

TEST(LinuxProcessLauncher, ARunThatPrintsWithoutEndTakesLittleMemory) {
  LinuxProcessLauncher launcher;
  const PeakMemory memory;

  EXPECT_EQ(launcher.standardOutputOf("/usr/bin/yes", {}, "/"), "");

  EXPECT_LT(memory.growth(), std::uint64_t{1} << 20);
}

TEST(LinuxProcessLauncher, AFolderThatIsMissingIsAFailureToLaunch) {
  LinuxProcessLauncher launcher;

  EXPECT_THROW(launcher.standardOutputOf("/bin/cat", {}, "/nowhere"), LaunchFailure);
}

TEST(LinuxProcessLauncher, TheExitStatusOfARunIsNotLookedAt) {
  LinuxProcessLauncher launcher;

  EXPECT_EQ(launcher.standardOutputOf("/bin/sh", {"-c", "echo out; echo err >&2; exit 3"}, "/"),
            "out\n");
  EXPECT_EQ(launcher.standardOutputOf("/bin/sh", {"-c", "printf cut; kill -9 $$"}, "/"), "cut");
}

TEST(LinuxProcessLauncher, RunsAndSpawnsInAProcessThatIgnoresItsChildrensEnd) {
  const int status = exitStatusOfChild([] {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_DFL;
    ignore.sa_flags = SA_NOCLDWAIT;
    ::sigaction(SIGCHLD, &ignore, nullptr);
    LinuxProcessLauncher launcher;
    for (int i = 0; i < 20; ++i) {
      launcher.spawn("/nowhere/program", {"program"});
      if (launcher.standardOutputOf("/bin/echo", {"out"}, "/") != "out\n") return 1;
      try {
        launcher.standardOutputOf("/nowhere/program", {}, "/");
        return 2;
      } catch (const LaunchFailure&) {
      }
    }
    return 0;
  });

  EXPECT_EQ(status, 0);
}

TEST(LinuxProcessLauncher, KeepsNoDescriptorsOpen) {
  LinuxProcessLauncher launcher;
  const auto open = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = open();

  launcher.standardOutputOf("/bin/echo", {}, "/");
  EXPECT_THROW(launcher.standardOutputOf("/nowhere/program", {}, "/"), LaunchFailure);

  EXPECT_EQ(open(), before);
}

TEST(FakeProcessLauncher, RecordsWhatWouldHaveBeenStarted) {
  FakeProcessLauncher launcher;

  launcher.spawn("/usr/bin/killall", {"killall", "-9", "backboardd"});
  launcher.standardOutputOf("/usr/bin/dpkg-query", {"-s", "com.tarno.frelta"}, "/");

  ASSERT_EQ(launcher.spawned.size(), 1u);
  EXPECT_EQ(launcher.spawned[0].path, "/usr/bin/killall");
  EXPECT_THAT(launcher.spawned[0].argumentVector, ElementsAre("killall", "-9", "backboardd"));
  ASSERT_EQ(launcher.runs.size(), 1u);
  EXPECT_EQ(launcher.runs[0].path, "/usr/bin/dpkg-query");
  EXPECT_THAT(launcher.runs[0].arguments, ElementsAre("-s", "com.tarno.frelta"));
  EXPECT_EQ(launcher.runs[0].workingDirectory, "/");
}

}  // namespace
}  // namespace frelta
