#include <gmock/gmock.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <set>

#include "app/HostPlatform.h"
#include "tests/support/PrivateBus.h"

namespace frelta {
namespace {

TEST(Tour, WalksEveryStepAndLeavesAPictureOfEach) {
  PrivateBus bus;
  QTemporaryDir folder;
  QProcess program;
  program.start(QStringLiteral(FRELTA_SETTINGS_BINARY),
                {QStringLiteral("--tour"), folder.filePath(QStringLiteral("pictures"))});

  ASSERT_TRUE(program.waitForFinished(120000));
  const std::string output = program.readAllStandardOutput().toStdString();

  EXPECT_EQ(program.exitCode(), 0) << output << program.readAllStandardError().toStdString();
  EXPECT_THAT(output, testing::HasSubstr("heard com.tarno.frelta.refresh"));
  EXPECT_THAT(output, testing::HasSubstr("<key>CurrentPreset</key>"));
  EXPECT_THAT(output, testing::HasSubstr("Switch Widgets off: ok"));
  EXPECT_THAT(output, testing::Not(testing::HasSubstr("FAILED")));
  const QDir pictures(folder.filePath(QStringLiteral("pictures")));
  const QStringList files = pictures.entryList({QStringLiteral("*.png")});
  EXPECT_GE(files.size(), 41);
  for (const QString& file : files) {
    EXPECT_FALSE(QImage(pictures.filePath(file)).isNull()) << file.toStdString();
  }
}

TEST(Tour, GoesWellFromRightToLeft) {
  PrivateBus bus;
  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("ar_EG.UTF-8"));
  QProcess program;
  program.setProcessEnvironment(environment);
  program.start(QStringLiteral(FRELTA_SETTINGS_BINARY), {QStringLiteral("--tour"), folder.path()});

  ASSERT_TRUE(program.waitForFinished(120000));

  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardOutput().toStdString();
}

TEST(HostPlatform, BeginsByRemovingWhatAWriteLeftThatWasCutShort) {
  QTemporaryDir root;
  const QString folder = root.filePath(QStringLiteral("var/mobile/Library/Preferences"));
  ASSERT_TRUE(QDir().mkpath(folder));
  QFile litter(folder + QStringLiteral("/.frelta-writing-0123456789abcdef"));
  ASSERT_TRUE(litter.open(QIODevice::WriteOnly));
  const Appearance appearance(UserInterfaceStyle::Light);

  const HostPlatform host(root.path().toStdString(), appearance);

  EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TEST(Tour, FailsWhenItsPicturesHaveNoPlace) {
  QTemporaryDir folder;
  const QString blocked = folder.filePath(QStringLiteral("file"));
  QFile(blocked).open(QIODevice::WriteOnly);
  QProcess program;
  program.start(QStringLiteral(FRELTA_SETTINGS_BINARY),
                {QStringLiteral("--tour"), blocked + QStringLiteral("/below")});

  ASSERT_TRUE(program.waitForFinished(60000));

  EXPECT_EQ(program.exitCode(), 1);
}

/// What the program prints when it is asked for nothing else; empty unless it ends well.
QString printed(const QString& option) {
  QProcess program;
  program.start(QStringLiteral(FRELTA_SETTINGS_BINARY), {option});
  const bool well = program.waitForFinished(60000) && program.exitCode() == 0;
  return well ? QString::fromUtf8(program.readAllStandardOutput()) : QString();
}

TEST(Program, PrintsItsVersion) {
  EXPECT_EQ(printed(QStringLiteral("--version")),
            QStringLiteral("frelta-settings " FRELTA_VERSION "\n"));
  EXPECT_EQ(printed(QStringLiteral("-v")), printed(QStringLiteral("--version")));
}

TEST(Program, HelpAndManualNameTheSameOptions) {
  const auto namedIn = [](QString text) {
    text.replace(QStringLiteral("\\-"), QStringLiteral("-"));
    std::set<QString> names;
    const QRegularExpression option(QStringLiteral("--[a-z]+(-[a-z]+)*"));
    for (const auto& found : option.globalMatch(text)) names.insert(found.captured());
    return names;
  };
  QFile manual(QStringLiteral(FRELTA_MAN_PAGE));
  ASSERT_TRUE(manual.open(QIODevice::ReadOnly));

  const auto inHelp = namedIn(printed(QStringLiteral("--help")));

  EXPECT_THAT(inHelp,
              testing::ElementsAre(QStringLiteral("--appearance"), QStringLiteral("--help"),
                                   QStringLiteral("--install-style"), QStringLiteral("--page"),
                                   QStringLiteral("--replace"), QStringLiteral("--root"),
                                   QStringLiteral("--tour"), QStringLiteral("--version")));
  EXPECT_EQ(namedIn(QString::fromUtf8(manual.readAll())), inHelp);
}

TEST(Program, RefusesAWrongCommandLineWithStatusTwo) {
  QProcess program;
  program.start(QStringLiteral(FRELTA_SETTINGS_BINARY), {QStringLiteral("--appearance=pink")});

  ASSERT_TRUE(program.waitForFinished(60000));

  EXPECT_EQ(program.exitCode(), 2);
  EXPECT_THAT(program.readAllStandardError().toStdString(), testing::HasSubstr("pink"));
}

}  // namespace
}  // namespace frelta
