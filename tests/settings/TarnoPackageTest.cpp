#include "settings/TarnoPackage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "fake/FakePlatform.h"
#include "linux/LinuxProcessLauncher.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class TarnoPackageTest : public testing::Test {
 protected:
  std::optional<std::string> versionIn(std::string output) {
    platform.processes.standardOutput = std::move(output);
    return TarnoPackage::packageWithIdentifier("com.tarno.frelta")->version();
  }

  FakePlatform platform;
};

TEST_F(TarnoPackageTest, AsksTheQueryToolOnceInTheRootFolder) {
  TarnoPackage::packageWithIdentifier("com.tarno.frelta");

  ASSERT_EQ(platform.processes.runs.size(), 1u);
  const FakeProcessLauncher::Run& run = platform.processes.runs[0];
  EXPECT_EQ(run.path, "/usr/bin/dpkg-query");
  EXPECT_THAT(run.arguments, ElementsAre("-s", "com.tarno.frelta"));
  EXPECT_EQ(run.workingDirectory, "/");
  EXPECT_THAT(platform.processes.spawned, IsEmpty());
}

TEST_F(TarnoPackageTest, AsksAnewEveryTime) {
  const auto first = versionIn("Version: 1");
  const auto second = versionIn("Version: 2");

  EXPECT_EQ(first, "1");
  EXPECT_EQ(second, "2");
  EXPECT_EQ(platform.processes.runs.size(), 2u);
}

TEST_F(TarnoPackageTest, FindsTheVersionAmongTheFields) {
  EXPECT_EQ(versionIn("Package: x\nVersion: 1.2-3\n"), "1.2-3");
  EXPECT_EQ(versionIn("Package: x\nVersion: 1.2-3"), "1.2-3");
}

TEST_F(TarnoPackageTest, HasNoVersionWhereNoneIsTold) {
  EXPECT_EQ(versionIn(""), std::nullopt);
  EXPECT_EQ(versionIn("\n\n"), std::nullopt);
  EXPECT_EQ(versionIn("Version:1.0\n"), std::nullopt);
  EXPECT_EQ(versionIn("version: 1.0\n"), std::nullopt);
  EXPECT_EQ(versionIn(" Version: 1.0\n"), std::nullopt);
}

TEST_F(TarnoPackageTest, TakesAnEmptyVersionForAVersion) {
  EXPECT_EQ(versionIn("Version: \n"), "");
}

TEST_F(TarnoPackageTest, LetsALaterLineReplaceAnEarlierOneOfTheSameName) {
  EXPECT_EQ(versionIn("Version: 1\nVersion: 2\n"), "2");
}

TEST_F(TarnoPackageTest, HasNoVersionWhenTheAnswerIsNotUTF8) {
  EXPECT_EQ(versionIn("Version: 1.0\nMaintainer: \xFF\n"), std::nullopt);
  EXPECT_EQ(versionIn("Version: 1.0\nMaintainer: \xE2\x82"), std::nullopt);
}

TEST_F(TarnoPackageTest, ReadsAnAnswerOfTheLargestSizeToTheEnd) {
  const std::string version = "\nVersion: 7\n";
  const std::string output =
      std::string(ProcessLauncher::kMaximumOutput - version.size(), 'x') + version;

  EXPECT_EQ(versionIn(output), "7");
  EXPECT_EQ(versionIn("x" + output), std::nullopt);
}

TEST_F(TarnoPackageTest, HasNoVersionWhereThereIsNoQueryTool) {
  platform.processes.isMissing = true;

  EXPECT_EQ(TarnoPackage::packageWithIdentifier("x")->version(), std::nullopt);
}

TEST_F(TarnoPackageTest, PassesOnWhyTheQueryToolCannotBeStarted) {
  platform.processes.failsToLaunch = true;

  EXPECT_THROW(TarnoPackage::packageWithIdentifier("x"), LaunchFailure);
}

TEST(FieldsOfPackageText, AreSplitAtTheFirstColonWithABlankAndKeptAsTheyAre) {
  EXPECT_THAT(
      fieldsOfPackageText("Description: a: b\n more: of it\n.\n: nameless\nTail:  two \r\n"),
      testing::UnorderedElementsAre(Pair("Description", "a: b"), Pair(" more", "of it"),
                                    Pair("", "nameless"), Pair("Tail", " two \r")));
}

TEST(FieldsOfPackageText, MayHoldAnythingThatIsUTF8) {
  EXPECT_THAT(fieldsOfPackageText(std::string("A: \0\xC3\xA9", 6)),
              ElementsAre(Pair("A", std::string("\0\xC3\xA9", 3))));
}

/// The package manager of this machine.
class RealTarnoPackage : public testing::Test {
 protected:
  RealTarnoPackage() {
    Platform services = Platform::current();
    services.processes = &processes;
    Platform::install(services);
  }

  FakePlatform platform;
  LinuxProcessLauncher processes;
};

TEST_F(RealTarnoPackage, ThatIsInstalledHasTheVersionThatTheDatabaseHolds) {
  std::ifstream database("/var/lib/dpkg/status");
  if (!database) GTEST_SKIP() << "no package database";
  std::string expected;
  bool inPackage = false;
  for (std::string line; expected.empty() && std::getline(database, line);) {
    if (line.starts_with("Package: ")) inPackage = line == "Package: dpkg";
    if (inPackage && line.starts_with("Version: ")) expected = line.substr(9);
  }

  const auto version = TarnoPackage::packageWithIdentifier("dpkg")->version();

  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(version, expected);
}

TEST_F(RealTarnoPackage, ThatIsNotInstalledHasNone) {
  EXPECT_EQ(TarnoPackage::packageWithIdentifier("frelta-no-such-package")->version(), std::nullopt);
}

/// A query tool that takes its time, behind the name of the real one.
class SlowQueryTool : public LinuxProcessLauncher {
 public:
  std::string standardOutputOf(const std::string&, const std::vector<std::string>& arguments,
                               const std::string& workingDirectory) override {
    return LinuxProcessLauncher::standardOutputOf(
        "/bin/sh",
        {"-c", "echo Package: $1; sleep 0.2; echo Version: 3; sleep 0.1", "sh", arguments.at(1)},
        workingDirectory);
  }
};

TEST_F(RealTarnoPackage, IsWaitedForUntilTheToolClosesItsOutput) {
  SlowQueryTool slow;
  Platform services = Platform::current();
  services.processes = &slow;
  Platform::install(services);

  EXPECT_EQ(TarnoPackage::packageWithIdentifier("late")->version(), "3");
}

}  // namespace
}  // namespace frelta
