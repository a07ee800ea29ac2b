#include "app/WindowState.h"

#include <gmock/gmock.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>

namespace frelta {
namespace {

class WindowStateTest : public testing::Test {
 protected:
  WindowStateTest() {
    window.setMinimumSize({280, 320});
    window.resize(480, 700);
    window.setFramePosition({30, 40});
  }

  void write(const QByteArray& bytes) const {
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size());
  }

  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("state/frelta/window.ini"));
  const WindowState state{file};
  QWindow window;
};

TEST_F(WindowStateTest, GivesTheNextWindowTheSizeAndPlaceOfTheLast) {
  window.resize(500, 560);
  window.setFramePosition({120, 20});
  state.save(window);
  QWindow next;

  state.restore(next);

  EXPECT_EQ(next.size(), QSize(500, 560));
  EXPECT_EQ(next.framePosition(), QPoint(120, 20));
}

TEST_F(WindowStateTest, LeavesTheWindowAsItIsWithoutAFile) {
  state.restore(window);

  EXPECT_EQ(window.size(), QSize(480, 700));
  EXPECT_EQ(window.framePosition(), QPoint(30, 40));
  EXPECT_FALSE(QFile::exists(file));
}

TEST_F(WindowStateTest, FitsAWindowThatWasNeverClosedToTheScreenToo) {
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  window.resize(480, 50'000);

  state.restore(window);

  EXPECT_EQ(window.size(), QSize(480, screen.height()));
}

TEST_F(WindowStateTest, RemembersTheSizeFromBeforeItWasMaximized) {
  state.save(window);
  window.setWindowStates(Qt::WindowMaximized);
  window.resize(800, 600);
  state.save(window);
  QWindow next;

  state.restore(next);

  EXPECT_EQ(next.windowStates(), Qt::WindowMaximized);
  EXPECT_EQ(next.size(), QSize(480, 700));
}

TEST_F(WindowStateTest, KeepsTheWindowWithinTheScreenAndItsLimits) {
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  window.resize(50'000, 50'000);
  window.setFramePosition({40'000, -9'000});
  state.save(window);
  QWindow large;
  large.setFramePosition({7, 8});
  QWindow small;
  small.setMinimumSize({280, 320});

  state.restore(large);
  window.setMinimumSize({1, 1});
  window.resize(2, 3);
  state.save(window);
  state.restore(small);

  EXPECT_EQ(large.size(), screen);
  EXPECT_EQ(large.framePosition(), QPoint(7, 8));
  EXPECT_EQ(small.size(), QSize(280, 320));
}

TEST_F(WindowStateTest, TakesNoHarmFromAFileThatHoldsSomethingElse) {
  ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
  for (const QByteArray& bytes :
       {QByteArray("\0\xff\xfe[[[", 6), QByteArray("[General]\nsize=@Size(-1 nonsense\nplace=7"),
        QByteArray("[General]\nsize=@Variant(\\0\\0\\0)\nmaximized=maybe"),
        QByteArray("[General]\nsize=@Size(99999999999 -4)\nplace=@Point(2147483647 2147483647)")}) {
    write(bytes);
    QWindow next;
    next.resize(480, 700);
    next.setFramePosition({30, 40});

    state.restore(next);

    EXPECT_EQ(next.size(), QSize(480, 700)) << bytes.toStdString();
    EXPECT_EQ(next.framePosition(), QPoint(30, 40)) << bytes.toStdString();
  }
}

TEST_F(WindowStateTest, IsKeptWhereTheDesktopKeepsState) {
  qputenv("XDG_STATE_HOME", "/state");
  const QString given = WindowState::defaultFile();
  qputenv("XDG_STATE_HOME", "not/absolute");
  const QString ignored = WindowState::defaultFile();

  EXPECT_EQ(given, QStringLiteral("/state/frelta/window.ini"));
  EXPECT_EQ(ignored, QDir::homePath() + QStringLiteral("/.local/state/frelta/window.ini"));
}

}  // namespace
}  // namespace frelta
