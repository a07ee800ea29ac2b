#include <sys/resource.h>

#include <csignal>
#include <cstring>

#include "tests/installer/InstallerTest.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/SystemCallStepper.h"

namespace frelta {
namespace {

using Reason = StyleRefusalReason;

class InstallStyle : public InstallerTest {};

TEST_F(InstallStyle, TakesAZipWithTheStylesFolderInIt) {
  const std::string zip = put("download (1).zip", GeneratedZip()
                                                      .addFolder("Sea.theme")
                                                      .addFolder("Sea.theme/Images")
                                                      .add("Sea.theme/Images/Key.png", "key")
                                                      .add("Sea.theme/Icon.png", "icon"));

  const std::string name = installedName(zip);

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_EQ(read(themes() / "Sea.theme/Images/Key.png"), "key");
  EXPECT_EQ(read(themes() / "Sea.theme/Icon.png"), "icon");
  EXPECT_THAT(unfinished(), testing::IsEmpty());
}

TEST_F(InstallStyle, NamesAZipsOwnContentsAfterTheZip) {
  const std::string theme = put("Sea.theme.zip", GeneratedZip().add("HTML/index.html", "<p>"));
  const std::string widget = put("Clock.Bundle.zip", GeneratedZip().add("index.html", "<p>"));

  EXPECT_EQ(installedName(theme), "Sea.theme");
  EXPECT_EQ(installedName(widget), "Clock.Bundle");
  EXPECT_EQ(read(themes() / "Clock.Bundle/index.html"), "<p>");
}

TEST_F(InstallStyle, UnpacksWhatIsPacked) {
  std::string noise;
  for (unsigned i = 0; i < 300'000; ++i) noise += static_cast<char>((i * i) >> 7);
  const std::string zip =
      put("a.zip", GeneratedZip().add("A.theme/Images/a", noise,
                                      {.method = GeneratedZip::kDeflated, .size = {}}));

  const std::string name = installedName(zip);

  EXPECT_TRUE(read(themes() / name / "Images/a") == noise);
}

TEST_F(InstallStyle, PassesOverWhatDesktopsLeaveInArchives) {
  const std::string zip = put("a.zip", GeneratedZip()
                                           .add("__MACOSX/A.theme/._Icon.png", "x")
                                           .add(".DS_Store", "x")
                                           .add("A.theme/.DS_Store", "x")
                                           .add("A.theme/Images/Key.png", "key"));

  const std::string name = installedName(zip);

  EXPECT_EQ(name, "A.theme");
  EXPECT_FALSE(std::filesystem::exists(themes() / "A.theme/.DS_Store"));
  EXPECT_FALSE(std::filesystem::exists(themes() / "__MACOSX"));
}

TEST_F(InstallStyle, TakesAFolder) {
  const std::string source = folder("Sea.theme");
  write(sources() / "Sea.theme/Images/more/Space.png", "space");

  const std::string name = installedName(source + "/");

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_EQ(read(themes() / "Sea.theme/Images/more/Space.png"), "space");
  EXPECT_EQ(read(sources() / "Sea.theme/Images/Key.png"), "key");
}

TEST_F(InstallStyle, TakesFilesOfAnySizeFromAnyDepthOfAFolder) {
  const std::string source = folder("Sea.theme");
  std::string large(200'001, 'x');
  for (std::size_t i = 0; i < large.size(); ++i) large[i] = static_cast<char>(i * i >> 9);
  write(sources() / "Sea.theme/Icon.png", large);
  write(sources() / "Sea.theme/Images/one chunk", large.substr(0, 65536));
  write(sources() / "Sea.theme/Images/a/b/c/empty", "");

  installedName(source);

  EXPECT_TRUE(read(themes() / "Sea.theme/Icon.png") == large);
  EXPECT_TRUE(read(themes() / "Sea.theme/Images/one chunk") == large.substr(0, 65536));
  EXPECT_TRUE(std::filesystem::exists(themes() / "Sea.theme/Images/a/b/c/empty"));
}

TEST_F(InstallStyle, TakesAFolderThatIsReachedByALink) {
  folder("real/Sea.theme");
  std::filesystem::create_directory_symlink(sources() / "real/Sea.theme", sources() / "Link.theme");

  EXPECT_EQ(installedName(sources() / "Link.theme"), "Link.theme");
}

TEST_F(InstallStyle, MakesTheStylesFolderWhereThereIsNone) {
  std::filesystem::remove_all(root());

  const std::string name = installedName(folder("Sea.theme"));

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_EQ(read(themes() / "Sea.theme/Images/Key.png"), "key");
}

TEST_F(InstallStyle, TellsNoProgressOfAStyleWithoutBytes) {
  write(sources() / "Sea.theme/Images/Key.png", "");
  std::vector<double> told;
  installation.progress = [&](double part) {
    told.push_back(part);
    return true;
  };

  installedName(sources() / "Sea.theme");

  EXPECT_THAT(told, testing::ElementsAre(0, 0));
}

TEST_F(InstallStyle, TellsProgressOfASingleByte) {
  write(sources() / "Sea.theme/Images/Key.png", "k");
  std::vector<double> told;
  installation.progress = [&](double part) {
    told.push_back(part);
    return true;
  };

  installedName(sources() / "Sea.theme");

  EXPECT_THAT(told, testing::ElementsAre(0, 1, 1));
}

TEST_F(InstallStyle, MakesAStyleThatAllMayReadAndItsOwnerWrites) {
  const std::string source = folder("Sea.theme");
  std::filesystem::permissions(source, std::filesystem::perms(0700));
  std::filesystem::permissions(source + "/Images/Key.png", std::filesystem::perms(0600));
  const mode_t before = ::umask(0);

  installedName(source);
  ::umask(before);

  const auto permissions = [&](const char* path) {
    return std::filesystem::status(themes() / path).permissions();
  };
  EXPECT_EQ(permissions("Sea.theme"), std::filesystem::perms(0755));
  EXPECT_EQ(permissions("Sea.theme/Images"), std::filesystem::perms(0755));
  EXPECT_EQ(permissions("Sea.theme/Images/Key.png"), std::filesystem::perms(0644));
}

TEST_F(InstallStyle, TakesTheOneStyleInAFolder) {
  folder("unpacked/Sea.theme");

  const std::string name = installedName(sources() / "unpacked");

  EXPECT_EQ(name, "Sea.theme");
}

TEST_F(InstallStyle, RefusesAFolderWithoutAStyle) {
  write(sources() / "photos/beach.jpg", "jpg");
  std::filesystem::create_directories(sources() / "empty");

  EXPECT_THAT(refusal(sources() / "photos"), refusedFor(Reason::NotAStyle));
  EXPECT_THAT(refusal(sources() / "empty"), refusedFor(Reason::NotAStyle));
}

TEST_F(InstallStyle, RefusesToChooseAmongSeveralStyles) {
  folder("both/Sea.theme");
  folder("both/Sky.theme");

  EXPECT_THAT(refusal(sources() / "both"),
              refusedFor(Reason::SeveralStyles, "Sea.theme, Sky.theme"));
}

TEST_F(InstallStyle, RefusesWhatIsNeitherFolderNorZip) {
  write(sources() / "notes.zip", "These are only notes, not a zip file at all.");

  EXPECT_THAT(refusal(sources() / "notes.zip"), refusedFor(Reason::NotAFolderOrZip));
  EXPECT_THAT(refusal("/dev/null"), refusedFor(Reason::NotAFolderOrZip));
  EXPECT_THAT(refusal(sources() / "gone.zip"),
              refusedFor(Reason::Missing, "No such file or directory"));
}

TEST_F(InstallStyle, RefusesLinksPipesAndSocketsInAFolder) {
  const std::string linked = folder("linked.theme");
  std::filesystem::create_symlink(sources() / "mine.txt", linked + "/Images/link");
  const std::string piped = folder("piped.theme");
  ASSERT_EQ(::mkfifo((piped + "/Images/pipe").c_str(), 0600), 0);

  EXPECT_THAT(refusal(linked), refusedFor(Reason::Link, "Images/link"));
  EXPECT_THAT(refusal(piped), refusedFor(Reason::Device, "Images/pipe"));
}

TEST_F(InstallStyle, HoldsFoldersToTheLimits) {
  const std::string many = folder("many.theme");
  for (int i = 0; i < 9; ++i) write(many + "/Images/" + std::to_string(i), "");
  const std::string deep = folder("deep.theme");
  write(deep + "/Images/a/b/c/d", "");
  const std::string large = folder("large.theme");
  write(large + "/Images/large", std::string(1001, 'x'));
  installation.limits = {.entries = 10, .bytes = 1000, .depth = 4};

  EXPECT_THAT(refusal(many), refusedFor(Reason::TooManyEntries));
  EXPECT_THAT(refusal(deep), refusedFor(Reason::TooDeep, "Images/a/b/c"));
  EXPECT_THAT(refusal(large), refusedFor(Reason::TooLarge));
}

TEST_F(InstallStyle, KeepsTheStyleThatHasTheName) {
  write(themes() / "Sea.theme/HTML/index.html", "old");

  int told = 0;
  installation.progress = [&](double) { return ++told > 0; };

  const StyleRefusal refused = refusal(folder("Sea.theme"));

  EXPECT_THAT(refused, refusedFor(Reason::AlreadyInstalled, "Sea.theme"));
  EXPECT_EQ(told, 0);
}

TEST_F(InstallStyle, KeepsAStyleThatTakesTheNameMeanwhile) {
  const std::string source = folder("Sea.theme");
  installation.progress = [&](double) {
    write(themes() / "Sea.theme/HTML/index.html", "faster");
    return true;
  };

  const auto result = install(source);

  ASSERT_TRUE(std::holds_alternative<StyleRefusal>(result));
  EXPECT_THAT(std::get<StyleRefusal>(result), refusedFor(Reason::AlreadyInstalled, "Sea.theme"));
  EXPECT_EQ(read(themes() / "Sea.theme/HTML/index.html"), "faster");
  EXPECT_FALSE(std::filesystem::exists(themes() / "Sea.theme/Images"));
  EXPECT_THAT(unfinished(), testing::IsEmpty());
}

TEST_F(InstallStyle, ReplacesTheStyleThatHasTheNameWhenTold) {
  write(themes() / "Sea.theme/HTML/index.html", "old");
  installation.replace = true;

  const std::string name = installedName(folder("Sea.theme"));

  EXPECT_EQ(name, "Sea.theme");
  EXPECT_EQ(read(themes() / "Sea.theme/Images/Key.png"), "key");
  EXPECT_FALSE(std::filesystem::exists(themes() / "Sea.theme/HTML"));
  EXPECT_THAT(unfinished(), testing::IsEmpty());
}

TEST_F(InstallStyle, CanBeCancelledAnywhere) {
  const std::string source = folder("Sea.theme");
  for (int i = 0; i < 5; ++i) write(source + "/Images/" + std::to_string(i), "bytes");
  int calls = 0;
  installation.progress = [&](double) { return ++calls < 1'000; };
  ASSERT_EQ(installedName(source), "Sea.theme");
  const int all = calls;
  std::filesystem::remove_all(themes() / "Sea.theme");

  for (int last = 1; last <= all; ++last) {
    calls = 0;
    installation.progress = [&](double) { return ++calls < last; };
    EXPECT_THAT(refusal(source), refusedFor(Reason::Cancelled)) << last;
  }

  EXPECT_EQ(all, 13);
}

TEST_F(InstallStyle, StopsInTheMiddleOfALargeFileOnceItIsCancelled) {
  const std::string noise(300'000, 'n');
  write(sources() / "Sea.theme/Images/large", noise);
  const std::string zip = put("Sky.theme.zip", GeneratedZip().add("Images/large", noise));
  for (const std::string& source : {std::string(sources() / "Sea.theme"), zip}) {
    int told = 0;
    installation.progress = [&](double) { return ++told < 3; };

    EXPECT_THAT(refusal(source), refusedFor(Reason::Cancelled));
    EXPECT_EQ(told, 3);
  }
}

TEST_F(InstallStyle, TakesAZipAsLargeAsAStyleMayBe) {
  const std::string zip = put("Sea.theme.zip", GeneratedZip().add("Images/Key.png", "key"));
  const auto size = std::filesystem::file_size(zip);

  installation.limits.bytes = size - 1;
  EXPECT_THAT(refusal(zip), refusedFor(Reason::TooLarge));
  installation.limits.bytes = size;
  EXPECT_EQ(installedName(zip), "Sea.theme");
}

TEST_F(InstallStyle, SaysWhyItCannotWrite) {
  installation.source = folder("Sea.theme");
  installation.root = root();
  const auto before = everything();
  const auto isSaidOf = [&](long call, int error) {
    return exitStatusOfChild([&] {
             failSystemCall(call, error);
             const auto result = installStyle(installation);
             const auto* refused = std::get_if<StyleRefusal>(&result);
             return refused && refused->reason == Reason::CannotWrite &&
                            refused->detail == std::strerror(error)
                        ? 0
                        : 1;
           }) == 0;
  };

  EXPECT_TRUE(isSaidOf(SYS_mkdirat, EACCES));
  EXPECT_TRUE(isSaidOf(SYS_write, ENOSPC));
  EXPECT_TRUE(isSaidOf(SYS_syncfs, EIO));
  EXPECT_TRUE(isSaidOf(SYS_renameat2, EROFS));
  EXPECT_EQ(everything(), before);
}

TEST_F(InstallStyle, MakesNoStyleThatLacksAFolder) {
  const std::string source = folder("Sea.theme");
  std::filesystem::create_directory(source + "/Empty");
  installation.source = source;
  installation.root = root();

  const auto status = waitStatusOfSteppedChild(
      [&] { return statusOfInstalling(); },
      [&](pid_t, int) {
        for (const auto& path : unfinished())
          if (const auto style = path / ".style";
              std::filesystem::exists(style) && !std::filesystem::exists(style / "Empty"))
            write(style / "Empty", "in the way");
      });

  if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";
  EXPECT_TRUE(WIFEXITED(*status));
  EXPECT_EQ(WEXITSTATUS(*status), 1);
  EXPECT_FALSE(std::filesystem::exists(themes() / "Sea.theme"));
}

TEST_F(InstallStyle, BringsItsNameToTheDiskOnceItHasIt) {
  installation.source = folder("Sea.theme");
  installation.root = root();

  const int status = exitStatusOfChild([&] {
    dieAtSystemCall(SYS_fsync);
    return statusOfInstalling();
  });

  EXPECT_EQ(status, -1);
  EXPECT_EQ(read(themes() / "Sea.theme/Images/Key.png"), "key");
}

TEST_F(InstallStyle, TellsProgressFromNothingToAll) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/a", "1234").add("Images/b", "567890"));
  std::vector<double> told;
  installation.progress = [&](double part) {
    told.push_back(part);
    return true;
  };

  installedName(zip);

  EXPECT_THAT(told, testing::ElementsAre(0, 0.4, 0.4, 1, 1));
}

TEST_F(InstallStyle, LeavesNothingWhenTheDiskTakesNoMore) {
  const std::string source = folder("Sea.theme");
  write(source + "/Images/large", std::string(100'000, 'x'));
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before;
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit little{50'000, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &little), 0);

  const StyleRefusal refused = refusal(source);
  ::setrlimit(RLIMIT_FSIZE, &before);

  EXPECT_THAT(refused, refusedFor(Reason::CannotWrite, "File too large"));
}

TEST_F(InstallStyle, DoesNotFollowALinkOutOfTheRoot) {
  std::filesystem::remove(themes());
  std::filesystem::create_symlink(sources(), themes());
  const std::string source = folder("Sea.theme");

  const auto result = install(source);

  EXPECT_TRUE(std::holds_alternative<StyleRefusal>(result));
  EXPECT_EQ(read(sources() / "Sea.theme/Images/Key.png"), "key");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(sources()), {}), 2);
}

}  // namespace
}  // namespace frelta
