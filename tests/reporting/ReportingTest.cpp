#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>

#include "fake/FakePlatform.h"
#include "foundation/PropertyListFiles.h"
#include "reporting/ReportingAddressOpener.h"
#include "reporting/ReportingFileManager.h"
#include "reporting/ReportingProcessLauncher.h"
#include "tests/support/FullDisk.h"

namespace frelta {

void PrintTo(const Failure& failure, std::ostream* out) {
  *out << '{' << static_cast<int>(failure.operation) << ' ' << failure.subject << ' '
       << failure.error << '}';
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Operation = Failure::Operation;

constexpr const char* kList = "/folder/list.plist";

class Failures : public FailureListener {
 public:
  void failed(const Failure& failure) override { told.push_back(failure); }
  std::vector<Failure> told;
};

class ReportingFiles : public testing::Test {
 protected:
  FakePlatform platform;
  Failures failures;
  ReportingFileManager files{platform.files, failures};
};

TEST_F(ReportingFiles, SayNothingOfWhatSucceeds) {
  ASSERT_TRUE(files.createDirectoryAtPath("/folder"));
  ASSERT_TRUE(files.writeAtomically(kList, "text"));
  ASSERT_TRUE(files.copyItemAtPath(kList, "/folder/copy"));
  ASSERT_TRUE(files.contentsAtPath(kList, 10));
  ASSERT_TRUE(files.removeItemAtPath("/folder/copy"));

  EXPECT_THAT(failures.told, IsEmpty());
}

TEST_F(ReportingFiles, SayNothingOfWhatIsMissing) {
  EXPECT_FALSE(files.contentsAtPath(kList, 10));
  EXPECT_FALSE(files.removeItemAtPath(kList));
  EXPECT_FALSE(files.fileExistsAtPath(kList));
  EXPECT_FALSE(files.directoryExistsAtPath(kList));
  EXPECT_FALSE(files.contentsOfDirectoryAtPath(kList));
  EXPECT_FALSE(files.fileSizeAtPath(kList));

  EXPECT_THAT(failures.told, IsEmpty());
}

TEST_F(ReportingFiles, TellWhatWasRemoved) {
  std::vector<std::string> removed;
  ReportingFileManager telling{platform.files, failures,
                               [&](std::string_view path) { removed.emplace_back(path); }};
  platform.put(kList, "text");

  EXPECT_FALSE(telling.removeItemAtPath("/missing"));
  EXPECT_TRUE(telling.removeItemAtPath(kList));

  EXPECT_THAT(removed, ElementsAre(kList));
}

TEST_F(ReportingFiles, SayWhyAWriteAndACopyFailed) {
  platform.put("/folder/list.plist", "text");
  platform.put("/file", "");
  {
    const FullDisk full;
    EXPECT_FALSE(files.writeAtomically(kList, "longer"));
    EXPECT_FALSE(files.copyItemAtPath(kList, "/folder/copy"));
  }
  EXPECT_FALSE(files.writeAtomically("/file/below", ""));
  EXPECT_FALSE(files.writeAtomically("/nowhere/file", ""));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::Write, kList, EFBIG},
                                         Failure{Operation::Write, "/folder/copy", EFBIG},
                                         Failure{Operation::Write, "/file/below", ENOTDIR},
                                         Failure{Operation::Write, "/nowhere/file", ENOENT}));
}

TEST_F(ReportingFiles, SayWhyAFolderCannotBeMade) {
  platform.put("/file", "");

  EXPECT_FALSE(files.createDirectoryAtPath("/file/below"));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::CreateFolder, "/file/below", ENOTDIR}));
}

TEST_F(ReportingFiles, TellOfARemovalThatFails) {
  platform.put(kList, "text");
  platform.files.fail(FailingFiles::Operation::Remove);

  EXPECT_FALSE(files.removeItemAtPath(kList));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::Remove, kList, 0}));
}

TEST_F(ReportingFiles, SayWhyAPropertyListThatIsThereCannotBeRead) {
  platform.put(kList, "four");
  ASSERT_EQ(::mkdir(platform.hostPath("/folder/folder.plist").c_str(), 0700), 0);
  ASSERT_EQ(::mkfifo(platform.hostPath("/folder/pipe.plist").c_str(), 0600), 0);

  EXPECT_FALSE(files.contentsAtPath(kList, 3));
  EXPECT_FALSE(files.contentsAtPath("/folder/folder.plist", 3));
  EXPECT_FALSE(files.contentsAtPath("/folder/pipe.plist", 3));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::Read, kList, EFBIG},
                                         Failure{Operation::Read, "/folder/folder.plist", EISDIR},
                                         Failure{Operation::Read, "/folder/pipe.plist", EINVAL}));
}

TEST_F(ReportingFiles, SayNothingOfAPictureThatCannotBeRead) {
  platform.put("/folder/picture.png", "four");

  EXPECT_FALSE(files.contentsAtPath("/folder/picture.png", 3));

  EXPECT_THAT(failures.told, IsEmpty());
}

TEST(ReportingLauncher, SaysWhyAProgramCannotBeStarted) {
  FakeProcessLauncher launcher;
  Failures failures;
  ReportingProcessLauncher reporting(launcher, failures);

  EXPECT_TRUE(reporting.spawn("/bin/program", {"program", "-9"}));
  EXPECT_THAT(failures.told, IsEmpty());

  launcher.isMissing = true;
  EXPECT_FALSE(reporting.spawn("/bin/program", {"program", "-9"}));
  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::Start, "/bin/program", ENOENT}));
  ASSERT_EQ(launcher.spawned.size(), 2U);
  EXPECT_THAT(launcher.spawned[0].argumentVector, ElementsAre("program", "-9"));
}

TEST(ReportingLauncher, PassesRunsForTheirOutputOn) {
  FakeProcessLauncher launcher;
  launcher.standardOutput = "output";
  Failures failures;
  ReportingProcessLauncher reporting(launcher, failures);

  EXPECT_EQ(reporting.standardOutputOf("/bin/program", {"argument"}, "/folder"), "output");

  ASSERT_EQ(launcher.runs.size(), 1U);
  EXPECT_EQ(launcher.runs[0].path, "/bin/program");
  EXPECT_THAT(launcher.runs[0].arguments, ElementsAre("argument"));
  EXPECT_EQ(launcher.runs[0].workingDirectory, "/folder");
}

TEST(ReportingOpener, TellsOfAnAddressThatNothingTakes) {
  class Opener : public AddressOpener {
   public:
    bool openURL(std::string_view address) override { return address == "known:"; }
  } opener;
  Failures failures;
  ReportingAddressOpener reporting(opener, failures);

  EXPECT_TRUE(reporting.openURL("known:"));
  EXPECT_FALSE(reporting.openURL("strange:"));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::OpenAddress, "strange:", 0}));
}

class DamagedPropertyLists : public testing::Test {
 protected:
  DamagedPropertyLists() {
    Platform services = Platform::current();
    services.failures = &failures;
    Platform::install(services);
  }
  FakePlatform platform;
  Failures failures;
};

TEST_F(DamagedPropertyLists, AreToldOnceHoweverOftenTheyAreRead) {
  platform.put(kList, "<plist>told once");

  EXPECT_FALSE(dictionaryWithContentsOfFile(kList));
  EXPECT_FALSE(dictionaryWithContentsOfFile(kList));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::Understand, kList}));
}

TEST_F(DamagedPropertyLists, IncludeThoseThatHoldNoDictionary) {
  platform.put(kList, "<plist><array><true/></array></plist>");

  EXPECT_FALSE(dictionaryWithContentsOfFile(kList));

  EXPECT_THAT(failures.told, ElementsAre(Failure{Operation::Understand, kList}));
}

TEST_F(DamagedPropertyLists, DoNotIncludeThoseThatAreMissing) {
  EXPECT_FALSE(dictionaryWithContentsOfFile(kList));

  EXPECT_THAT(failures.told, IsEmpty());
}

}  // namespace
}  // namespace frelta
