#include "app/Options.h"

#include <gmock/gmock.h>

namespace frelta {
namespace {

std::optional<Options> parse(QStringList arguments, QString* error = nullptr) {
  QString ignored;
  arguments.prepend(QStringLiteral("frelta-settings"));
  return Options::parse(arguments, error ? *error : ignored);
}

TEST(Options, AreAllUnsetByDefault) {
  const auto options = parse({});

  ASSERT_TRUE(options);
  EXPECT_TRUE(options->root.isEmpty());
  EXPECT_FALSE(options->appearance);
  EXPECT_TRUE(options->page.isEmpty());
  EXPECT_TRUE(options->tourFolder.isEmpty());
}

TEST(Options, TakeTheirValues) {
  const auto options =
      parse({QStringLiteral("--root"), QStringLiteral("/mnt"), QStringLiteral("--appearance=dark"),
             QStringLiteral("--page"), QStringLiteral("Settings"), QStringLiteral("--tour=out")});

  ASSERT_TRUE(options);
  EXPECT_EQ(options->root, QStringLiteral("/mnt"));
  EXPECT_EQ(options->appearance, UserInterfaceStyle::Dark);
  EXPECT_EQ(options->page, QStringLiteral("Settings"));
  EXPECT_EQ(options->tourFolder, QStringLiteral("out"));
}

TEST(Options, SystemAppearanceFollowsTheDesktop) {
  const auto options = parse({QStringLiteral("--appearance=system")});

  ASSERT_TRUE(options);
  EXPECT_FALSE(options->appearance);
}

TEST(Options, PassOverWhatQtTakesForItself) {
  const auto options =
      parse({QStringLiteral("-platform"), QStringLiteral("xcb"), QStringLiteral("--display"),
             QStringLiteral(":1"), QStringLiteral("--page"), QStringLiteral("Settings"),
             QStringLiteral("-reverse"), QStringLiteral("--qwindowtitle")});

  ASSERT_TRUE(options);
  EXPECT_EQ(options->page, QStringLiteral("Settings"));
}

TEST(Options, KeepValuesThatLookLikeQtsOptions) {
  const auto options = parse({QStringLiteral("--root"), QStringLiteral("platform"),
                              QStringLiteral("--page"), QStringLiteral("reverse")});

  ASSERT_TRUE(options);
  EXPECT_EQ(options->root, QStringLiteral("platform"));
  EXPECT_EQ(options->page, QStringLiteral("reverse"));
}

TEST(Options, SayWhatIsWrong) {
  const QList<QStringList> wrong = {{QStringLiteral("--appearance=pink")},
                                    {QStringLiteral("--unknown")},
                                    {QStringLiteral("stray")},
                                    {QStringLiteral("--root")},
                                    {QStringLiteral("--root=")},
                                    {QStringLiteral("--tour=")},
                                    {QStringLiteral("--page=")},
                                    {QStringLiteral("--install-style=")},
                                    {QStringLiteral("--replace")}};
  for (const QStringList& arguments : wrong) {
    QString error;

    EXPECT_FALSE(parse(arguments, &error)) << arguments.join(u' ').toStdString();

    EXPECT_FALSE(error.isEmpty());
  }
}

}  // namespace
}  // namespace frelta
