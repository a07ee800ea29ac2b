#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "app/StartChecks.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::Not;
using testing::StartsWith;

/// The program, started where there is no window system.
class StartTest : public testing::Test {
 protected:
  struct Outcome {
    bool crashed;
    int status;
    std::string output;
    std::string errors;
  };
  Outcome run(const QStringList& arguments, const QString& display = {}) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
      environment.remove(QString::fromLatin1(name));
    if (!display.isEmpty()) environment.insert(QStringLiteral("DISPLAY"), display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(FRELTA_SETTINGS_BINARY), arguments);
    EXPECT_TRUE(program.waitForFinished(60'000));
    return {program.exitStatus() == QProcess::CrashExit, program.exitCode(),
            program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
  }
  Outcome runWithRoot(QStringList arguments, const QString& display = {}) const {
    return run(QStringList{QStringLiteral("--root"), QString::fromStdString(root)} + arguments,
               display);
  }

  const TemporaryFolder folder;
  const std::filesystem::path root = folder.path() / "root";
};

TEST_F(StartTest, WithoutADisplaySaysSoInOneLine) {
  const Outcome outcome = runWithRoot({});

  EXPECT_FALSE(outcome.crashed);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "frelta-settings: There is no display to open a window on.\n");
  EXPECT_EQ(outcome.output, "");
}

TEST_F(StartTest, WithADisplayThatDoesNotAnswerSaysWhichInOneLine) {
  const Outcome outcome = runWithRoot({}, QStringLiteral(":4711"));

  EXPECT_FALSE(outcome.crashed);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors,
            "frelta-settings: No window can be opened: could not connect to display :4711\n");
}

TEST_F(StartTest, JudgesTheOptionsBeforeItLooksForADisplay) {
  const Outcome unknown = runWithRoot({QStringLiteral("--colour")});
  const Outcome wrong = runWithRoot({QStringLiteral("--appearance=pink")});

  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.errors, "frelta-settings: Unknown option 'colour'.\nTry --help.\n");
  EXPECT_EQ(wrong.status, 2);
  EXPECT_THAT(wrong.errors, EndsWith("\"pink\".\nTry --help.\n"));
}

TEST_F(StartTest, JudgesThePageBeforeItLooksForADisplay) {
  for (const char* none : {"Nope", "Enabled", "Respring", "FreltaThemesCell"}) {
    const Outcome outcome = runWithRoot({QStringLiteral("--page"), QString::fromLatin1(none)});

    EXPECT_EQ(outcome.status, 2) << none;
    EXPECT_EQ(outcome.errors, "frelta-settings: There is no page \"" + std::string(none) + "\".\n");
  }
}

TEST_F(StartTest, TakesAPageThatTheStoredModeShows) {
  std::filesystem::create_directories(root / "var/mobile/Library/Preferences");
  std::ofstream(root / "var/mobile/Library/Preferences/com.tarno.freltaprefs.plist")
      << "<plist><dict><key>BackgroundMode</key><integer>3</integer></dict></plist>";

  for (const char* page : {"Settings", "CurrentPreset", "FreltaThemesCell"}) {
    const Outcome outcome = runWithRoot({QStringLiteral("--page"), QString::fromLatin1(page)});

    EXPECT_EQ(outcome.status, 1) << page;
    EXPECT_THAT(outcome.errors, StartsWith("frelta-settings: There is no display"));
  }
}

TEST_F(StartTest, LeavesQtItsOwnOptions) {
  const Outcome outcome =
      runWithRoot({QStringLiteral("-platform"), QStringLiteral("offscreen"),
                   QStringLiteral("--reverse"), QStringLiteral("--page"), QStringLiteral("Nope")});

  EXPECT_EQ(outcome.errors, "frelta-settings: There is no page \"Nope\".\n");
}

TEST_F(StartTest, RefusesARootThatCannotBeMade) {
  const Outcome outcome = run({QStringLiteral("--root"), QStringLiteral("/dev/null/x")});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors,
            "frelta-settings: Settings cannot be written under /dev/null/x: Not a directory\n");
}

TEST_F(StartTest, SaysThatAPlugInIsMissingWhereADisplayWouldNotHelp) {
  const Outcome outcome =
      runWithRoot({QStringLiteral("-platform"), QStringLiteral("no-such-platform")});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, StartsWith("frelta-settings: No window can be opened: Could not find "
                                         "the Qt platform plugin \"no-such-platform\""));
}

TEST_F(StartTest, ForgesNoSecondLine) {
  const Outcome outcome =
      run({QStringLiteral("--root"), QStringLiteral("/dev/null/x\nfrelta-settings: forged")});

  EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1);
}

TEST_F(StartTest, RefusesATourWhosePicturesHaveNoPlaceBeforeItLooksForADisplay) {
  const Outcome outcome =
      runWithRoot({QStringLiteral("--tour"), QStringLiteral("/dev/null/pictures")});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "frelta-settings: Pictures cannot be saved in /dev/null/pictures.\n");
}

TEST_F(StartTest, RefusesARootWithAFolderInTheSettingsPlace) {
  std::filesystem::create_directories(root /
                                      "var/mobile/Library/Preferences/com.tarno.freltaprefs.plist");

  const Outcome outcome = runWithRoot({});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, EndsWith(": Is a directory\n"));
}

TEST_F(StartTest, RefusesARootWhoseSettingsFolderCannotBeMade) {
  std::filesystem::create_directories(root);
  std::ofstream(root / "var") << "in the way";

  const Outcome outcome = runWithRoot({});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, AllOf(StartsWith("frelta-settings: Settings cannot be written under"),
                                    Not(EndsWith(": \n"))));
}

TEST_F(StartTest, RefusesASettingsFolderThatNothingCanBeWrittenTo) {
  const std::filesystem::path settings = root / "var/mobile/Library/Preferences";
  std::filesystem::create_directories(settings);
  ::chmod(folder.path().c_str(), 0711);
  ::chmod(settings.c_str(), 0555);
  const bool isSuperuser = ::geteuid() == 0;
  ASSERT_TRUE(!isSuperuser || ::seteuid(65534) == 0);

  const auto failure = checkRoot(QString::fromStdString(root));

  ASSERT_TRUE(!isSuperuser || ::seteuid(0) == 0);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->status, 1);
  EXPECT_THAT(failure->text.toStdString(), EndsWith(": Permission denied"));
}

TEST_F(StartTest, MakesTheRootThatIsMissing) {
  EXPECT_FALSE(checkRoot(QString::fromStdString(root)));

  EXPECT_TRUE(std::filesystem::is_directory(root / "var/mobile/Library/Preferences"));
}

}  // namespace
}  // namespace frelta
