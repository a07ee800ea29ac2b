#include "app/StyleDrop.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLocale>
#include <QMimeData>
#include <filesystem>
#include <fstream>
#include <future>

#include "app/Translations.h"
#include "tests/app/OpenWindow.h"
#include "tests/app/PicturesOnDemand.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {
namespace {

class StyleDropTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(window.open());
    drop = std::make_unique<StyleDrop>(*window.application->window(), *window.notes,
                                       *window.application->navigationController(), root());
    std::filesystem::create_directories(root());
  }

  std::string root() const { return folder.path() / "root"; }
  std::filesystem::path themes() const { return folder.path() / "root/Library/Frelta/Themes"; }
  QString style(const std::string& name, int files = 1) const {
    const auto images = folder.path() / "sources" / name / "Images";
    std::filesystem::create_directories(images);
    for (int i = 0; i < files; ++i) std::ofstream(images / std::to_string(i)) << "key";
    return QString::fromStdString(folder.path() / "sources" / name);
  }

  int unfinished() const {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(themes().parent_path()))
      count += entry.path().filename().string().starts_with(".installing-style");
    return count;
  }

  template <typename Event>
  bool send(const QMimeData& data) {
    Event event(QPoint(50, 50), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    event.ignore();
    QCoreApplication::sendEvent(window.application->window(), &event);
    return event.isAccepted();
  }
  bool dropFiles(const QStringList& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    event.ignore();
    QCoreApplication::sendEvent(window.application->window(), &event);
    return event.isAccepted();
  }
  void waitUntilIdle() {
    ASSERT_TRUE(QTest::qWaitFor([&] { return drop->isIdle(); }, 20'000));
    window.settle();
  }
  QQuickItem* note() const { return window.note(); }
  QString noteText() const { return window.noteText(); }

  const TemporaryFolder folder;
  OpenWindow window;
  std::unique_ptr<StyleDrop> drop;
};

TEST_F(StyleDropTest, InstallsTheFolderThatIsDropped) {
  const bool taken = dropFiles({style("Sea.theme")});
  waitUntilIdle();

  EXPECT_TRUE(taken);
  EXPECT_TRUE(std::filesystem::exists(themes() / "Sea.theme/Images/0"));
  EXPECT_EQ(noteText(), QStringLiteral("“Sea.theme” was installed."));
  EXPECT_EQ(window.driver->alert(), nullptr);
  EXPECT_THAT(window.platform.notifications.posted,
              testing::ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(StyleDropTest, InstallsSeveralOneAfterTheOther) {
  dropFiles({style("Sea.theme"), style("Sky.theme"), style("Sun.theme")});
  waitUntilIdle();

  for (const char* name : {"Sea.theme", "Sky.theme", "Sun.theme"})
    EXPECT_TRUE(std::filesystem::exists(themes() / name / "Images/0")) << name;
}

TEST_F(StyleDropTest, TakesNothingThatIsNoFile) {
  QMimeData text;
  text.setText(QStringLiteral("hello"));
  QMimeData page;
  page.setUrls({QUrl(QStringLiteral("https://frelta.tarno.example/a.zip"))});

  EXPECT_FALSE(send<QDragEnterEvent>(text));
  EXPECT_FALSE(send<QDragEnterEvent>(page));
  EXPECT_EQ(note(), nullptr);
}

TEST_F(StyleDropTest, SaysSoWhileAFileIsHeldOverTheWindow) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(style("Sea.theme"))});

  const bool taken = send<QDragEnterEvent>(data);
  const QString text = noteText();
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(window.application->window(), &leave);

  EXPECT_TRUE(taken);
  EXPECT_EQ(text, QStringLiteral("Drop to install the style"));
  EXPECT_EQ(note(), nullptr);
}

TEST_F(StyleDropTest, SaysExactlyWhyAFileIsRefused) {
  std::filesystem::create_directories(folder.path() / "sources/photos");
  dropFiles({QString::fromStdString(folder.path() / "sources/photos")});
  waitUntilIdle();

  ASSERT_NE(window.driver->alert(), nullptr);
  EXPECT_EQ(window.driver->alert()->title(), "Error");
  EXPECT_EQ(window.driver->alert()->message(),
            "“photos” was not installed. There is no style in it: a style holds a folder “Images” "
            "or “HTML”, or has a name that ends in “.bundle”.");
  EXPECT_EQ(note(), nullptr);
}

TEST_F(StyleDropTest, ReplacesAStyleOnlyWhenToldTo) {
  std::filesystem::create_directories(themes() / "Sea.theme/HTML");
  const QString source = style("Sea.theme");

  dropFiles({source});
  waitUntilIdle();
  ASSERT_NE(window.driver->alert(), nullptr);
  window.driver->tapAlertButton("Cancel");
  window.settle();
  const bool kept = std::filesystem::exists(themes() / "Sea.theme/HTML");
  dropFiles({source});
  waitUntilIdle();
  window.driver->tapAlertButton("Replace");
  waitUntilIdle();

  EXPECT_TRUE(kept);
  EXPECT_FALSE(std::filesystem::exists(themes() / "Sea.theme/HTML"));
  EXPECT_TRUE(std::filesystem::exists(themes() / "Sea.theme/Images/0"));
  EXPECT_THAT(window.platform.notifications.posted,
              testing::ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(StyleDropTest, ReplacesAStyleAfterWhatWasDroppedWhileTheQuestionStood) {
  std::filesystem::create_directories(themes() / "Sea.theme/HTML");
  dropFiles({style("Sea.theme")});
  waitUntilIdle();
  ASSERT_NE(window.driver->alert(), nullptr);

  dropFiles({style("Large.theme", 4000)});
  window.driver->tapAlertButton("Replace");
  waitUntilIdle();

  EXPECT_TRUE(std::filesystem::exists(themes() / "Large.theme/Images/3999"));
  EXPECT_TRUE(std::filesystem::exists(themes() / "Sea.theme/Images/0"));
  EXPECT_FALSE(std::filesystem::exists(themes() / "Sea.theme/HTML"));
  EXPECT_EQ(window.driver->alert(), nullptr);
}

TEST_F(StyleDropTest, AsksInTheUsersLanguage) {
  QLocale::setDefault(QLocale(QLocale::German));
  installTranslations();
  std::filesystem::create_directories(themes() / "Sea.theme/HTML");

  dropFiles({style("Sea.theme")});
  waitUntilIdle();

  ASSERT_NE(window.driver->alert(), nullptr);
  EXPECT_EQ(window.driver->alert()->title(), "Stil ersetzen");
  keepPicture(*window.driver, "drop-question-german");
  EXPECT_TRUE(window.driver->tapAlertButton("Abbrechen"));
}

TEST_F(StyleDropTest, ShowsABarThatCanBeCancelled) {
  dropFiles({style("Large.theme", 4000)});
  ASSERT_NE(note(), nullptr);
  const QString text = noteText();
  auto* cancel = note()->findChild<QQuickItem*>(QStringLiteral("noteAction"));
  ASSERT_NE(cancel, nullptr);
  const QPointF middle = cancel->mapToScene({cancel->width() / 2, cancel->height() / 2});

  QTest::mouseClick(window.application->window(), Qt::LeftButton, {}, middle.toPoint());
  waitUntilIdle();

  EXPECT_EQ(text, QStringLiteral("Installing “Large.theme”"));
  EXPECT_TRUE(std::filesystem::is_empty(themes()));
  EXPECT_EQ(unfinished(), 0);
  EXPECT_EQ(note(), nullptr);
  EXPECT_EQ(window.driver->alert(), nullptr);
}

TEST_F(StyleDropTest, WaitsForNoInstallationThatDoesNotHearThatItIsCancelled) {
  std::promise<void> heard;
  const auto hearing = heard.get_future().share();
  drop = std::make_unique<StyleDrop>(*window.application->window(), *window.notes,
                                     *window.application->navigationController(), root(),
                                     [hearing](const StyleInstallation& installation) {
                                       if (installation.source.ends_with("Deaf.theme"))
                                         hearing.wait();
                                       return installStyle(installation);
                                     });
  dropFiles({style("Deaf.theme"), style("Sea.theme")});
  auto* cancel = note()->findChild<QQuickItem*>(QStringLiteral("noteAction"));
  const QPointF middle = cancel->mapToScene({cancel->width() / 2, cancel->height() / 2});

  QTest::mouseClick(window.application->window(), Qt::LeftButton, {}, middle.toPoint());
  const bool isNextInstalled = QTest::qWaitFor(
      [&] { return noteText() == QStringLiteral("“Sea.theme” was installed."); }, 20'000);
  const bool isIdleMeanwhile = drop->isIdle();
  const bool isInstallingMeanwhile = drop->isInstalling();
  heard.set_value();
  waitUntilIdle();

  EXPECT_TRUE(isNextInstalled);
  EXPECT_FALSE(isIdleMeanwhile);
  EXPECT_TRUE(isInstallingMeanwhile);
  EXPECT_TRUE(std::filesystem::exists(themes() / "Sea.theme/Images/0"));
  EXPECT_FALSE(std::filesystem::exists(themes() / "Deaf.theme"));
  EXPECT_EQ(window.driver->alert(), nullptr);
}

TEST_F(StyleDropTest, SaysSoWhenACancelCameTooLate) {
  std::promise<void> done;
  const auto isDone = done.get_future().share();
  drop = std::make_unique<StyleDrop>(*window.application->window(), *window.notes,
                                     *window.application->navigationController(), root(),
                                     [isDone](const StyleInstallation& installation) {
                                       StyleInstallation deaf = installation;
                                       deaf.progress = {};
                                       const auto result = installStyle(deaf);
                                       isDone.wait();
                                       return result;
                                     });
  dropFiles({style("Sea.theme")});
  auto* cancel = note()->findChild<QQuickItem*>(QStringLiteral("noteAction"));
  const QPointF middle = cancel->mapToScene({cancel->width() / 2, cancel->height() / 2});

  QTest::mouseClick(window.application->window(), Qt::LeftButton, {}, middle.toPoint());
  window.settle();
  const QString meanwhile = noteText();
  done.set_value();
  waitUntilIdle();

  EXPECT_EQ(meanwhile, QString());
  EXPECT_EQ(noteText(), QStringLiteral("“Sea.theme” was installed."));
}

TEST_F(StyleDropTest, SaysWhatAnInstallationThrows) {
  drop = std::make_unique<StyleDrop>(
      *window.application->window(), *window.notes, *window.application->navigationController(),
      root(), [](const StyleInstallation&) -> StyleInstallJob::Result { throw std::bad_alloc(); });

  dropFiles({style("Sea.theme")});
  waitUntilIdle();

  ASSERT_NE(window.driver->alert(), nullptr);
  EXPECT_EQ(window.driver->alert()->message(),
            "“Sea.theme” was not installed. It cannot be read: std::bad_alloc.");
}

TEST_F(StyleDropTest, LetsNoNameInARefusalForgeASentence) {
  drop = std::make_unique<StyleDrop>(
      *window.application->window(), *window.notes, *window.application->navigationController(),
      root(), [](const StyleInstallation&) -> StyleInstallJob::Result {
        return StyleRefusal{StyleRefusalReason::Link, "a” was installed.\u2028Pay now.\n"};
      });

  dropFiles({style("Sea.theme")});
  waitUntilIdle();

  ASSERT_NE(window.driver->alert(), nullptr);
  EXPECT_EQ(window.driver->alert()->message(),
            "“Sea.theme” was not installed. “a” was installed.\uFFFDPay now.\uFFFD” in it is a "
            "link, and styles may not hold links.");
}

TEST_F(StyleDropTest, LeavesNothingWhenTheApplicationEndsMeanwhile) {
  dropFiles({style("Large.theme", 4000)});

  drop.reset();

  EXPECT_FALSE(std::filesystem::exists(themes() / "Large.theme"));
  EXPECT_EQ(unfinished(), 0);
}

}  // namespace
}  // namespace frelta
