#include <gmock/gmock.h>
#include <QProcess>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "tests/app/HeardNames.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {
namespace {

class InstallCommandTest : public testing::Test {
 protected:
  InstallCommandTest() {
    std::filesystem::create_directories(source / "Images");
    std::ofstream(source / "Images/Key.png") << "key";
  }

  struct Outcome {
    int status;
    std::string output;
    std::string errors;
  };
  /// In a process without any display.
  Outcome run(const QStringList& more = {}) const { return install(source, more); }
  Outcome install(const std::filesystem::path& file, const QStringList& more = {},
                  const std::string& bus = "unix:path=/nonexistent") const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // Others listen on the session's bus for broadcasts of their own.
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QString::fromStdString(bus));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(
        QStringLiteral(FRELTA_SETTINGS_BINARY),
        QStringList{QStringLiteral("--root"), QString::fromStdString(folder.path() / "root"),
                    QStringLiteral("--install-style"), QString::fromStdString(file)} +
            more);
    EXPECT_TRUE(program.waitForFinished(60'000));
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
  }
  std::filesystem::path themes() const { return folder.path() / "root/Library/Frelta/Themes"; }

  const TemporaryFolder folder;
  const std::filesystem::path source = folder.path() / "Sea.theme";
};

TEST_F(InstallCommandTest, InstallsBesideTheExamples) {
  const Outcome outcome = run();

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "“Sea.theme” was installed.\n");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_TRUE(std::filesystem::exists(themes() / "Sea.theme/Images/Key.png"));
  EXPECT_TRUE(std::filesystem::exists(themes() / "Example Images.theme/Images/Key.png"));
}

TEST_F(InstallCommandTest, TellsOpenWindowsOfTheStyle) {
  const PrivateBus bus;
  HeardNames heard;

  install(source, {}, qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString());

  EXPECT_TRUE(QTest::qWaitFor([&] { return !heard.names.isEmpty(); }, 20'000));
  EXPECT_EQ(heard.names, QStringList{QStringLiteral("com.tarno.frelta.refresh")});
}

TEST_F(InstallCommandTest, SaysHowAStyleOfTheNameIsReplaced) {
  run();

  const Outcome refused = run();
  const Outcome replaced = run({QStringLiteral("--replace")});

  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.errors,
            "frelta-settings: “Sea.theme” was not installed. A style called “Sea.theme” is "
            "installed already. --replace installs it in the other one's place.\n");
  EXPECT_EQ(replaced.status, 0);
}

TEST_F(InstallCommandTest, PrintsNoNameThatATerminalWouldObey) {
  const std::string name = "a\x1b[2J\n\u202e.theme";
  const auto hostile = folder.path() / name;
  std::filesystem::create_directories(hostile / "Images");
  std::filesystem::create_symlink("/etc", hostile / "Images/b\u009b\r");
  const auto turned = folder.path() / "c\u202e.theme";
  std::filesystem::create_directories(turned / "Images");

  const Outcome refused = install(hostile);
  const Outcome installed = install(turned);

  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.output, "");
  EXPECT_EQ(
      refused.errors,
      "frelta-settings: “a\\x1b[2J\\n\\u202e.theme” was not installed. A file in it has a name "
      "with characters that are not allowed.\n");
  EXPECT_EQ(installed.status, 0);
  EXPECT_EQ(installed.output, "“c\\u202e.theme” was installed.\n");
}

}  // namespace
}  // namespace frelta
