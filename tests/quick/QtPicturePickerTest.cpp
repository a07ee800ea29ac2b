#include "quick/QtPicturePicker.h"

#include <sys/stat.h>

#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>
#include <QUrl>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include "graphics/GraphicsServices.h"
#include "quick/PictureReading.h"
#include "tests/quick/WindowTest.h"

namespace frelta {
namespace {

using testing::HasSubstr;

/// Tells which thread it is called on.
class WatchedImages : public ImageServices {
 public:
  std::unique_ptr<UIGraphicsImageContext> beginImageContext(CGSize, double) const override {
    return nullptr;
  }
  std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const override {
    thread = QThread::currentThread();
    if (gate) gate->tryAcquire(1, 5000);
    return bytes == "a picture" ? std::make_shared<UIImage>() : nullptr;
  }
  std::optional<std::string> pngRepresentation(const UIImage&) const override { return {}; }
  mutable QThread* thread = nullptr;
  QSemaphore* gate = nullptr;  // to wait at, if any
};

class QtPicturePickerTest : public WindowTest {
 protected:
#ifdef __SANITIZE_ADDRESS__
  // Qt's dialogue leaves its icons' textures to a next frame, which a window that closes never has.
  __lsan::ScopedDisabler ignoreLeaks;
#endif

  QtPicturePickerTest() {
    GraphicsServices::install({&images});
    // Where the user keeps his pictures.
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QFile file(config.filePath(QStringLiteral("user-dirs.dirs")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("XDG_PICTURES_DIR=\"" + folder.path().toLocal8Bit() + "\"\n");
  }
  ~QtPicturePickerTest() override {
    GraphicsServices::install({});
  }

  QString put(const char* name, const QByteArray& bytes) {
    const QString path = folder.filePath(QLatin1String(name));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return path;
  }
  void ask() {
    showPlain();
    picker.pickPicture({.didChoose = [this] { ++chosen; },
                        .didFinish =
                            [this](PicturePickerService::Result result) {
                              results.push_back(std::move(result));
                            }});
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return picker.dialog() && picker.dialog()->property("visible").toBool(); }));
  }
  /// Marks the first file with the arrow key and opens it, as soon as the dialogue has listed it.
  void chooseFirst() {
    ASSERT_TRUE(QTest::qWaitFor([this] {
      if (chosen > 0) return true;
      QTest::keyClick(window.get(), Qt::Key_Down);
      QTest::keyClick(window.get(), Qt::Key_Return);
      return chosen > 0;
    }));
  }

  QTemporaryDir folder;
  QTemporaryDir config;
  WatchedImages images;
  int chosen = 0;
  std::vector<PicturePickerService::Result> results;
  QtPicturePicker picker;
};

TEST_F(QtPicturePickerTest, LoadsNothingBeforeItIsAsked) {
  EXPECT_TRUE(picker.isAvailable());
  EXPECT_EQ(picker.dialog(), nullptr);
}

TEST_F(QtPicturePickerTest, HandsOverAPictureThatWasReadBesideTheMainThread) {
  put("a.png", "a picture");
  ASSERT_NO_FATAL_FAILURE(ask());

  ASSERT_NO_FATAL_FAILURE(chooseFirst());
  const bool finished = QTest::qWaitFor([this] { return !results.empty(); });

  ASSERT_TRUE(finished);
  EXPECT_EQ(chosen, 1);
  EXPECT_TRUE(results[0].picture);
  EXPECT_EQ(results[0].failure, "");
  EXPECT_NE(images.thread, nullptr);
  EXPECT_NE(images.thread, QThread::currentThread());
  EXPECT_EQ(results.size(), 1u);
}

TEST_F(QtPicturePickerTest, TellsThatNothingWasChosen) {
  ASSERT_NO_FATAL_FAILURE(ask());

  QMetaObject::invokeMethod(picker.dialog(), "reject");
  settle();

  ASSERT_EQ(results.size(), 1u);
  EXPECT_FALSE(results[0].picture);
  EXPECT_EQ(results[0].failure, "");
  EXPECT_EQ(chosen, 0);
}

TEST_F(QtPicturePickerTest, SaysNothingMoreAfterTheQuestionWasTakenBack) {
  put("a.png", "a picture");
  QSemaphore gate;
  images.gate = &gate;
  ASSERT_NO_FATAL_FAILURE(ask());

  ASSERT_NO_FATAL_FAILURE(chooseFirst());
  picker.cancel();
  gate.release();
  ASSERT_TRUE(QTest::qWaitFor([this] { return images.thread != nullptr; }));
  for (int i = 0; i < 20; ++i) settle();

  EXPECT_TRUE(results.empty());
}

TEST_F(QtPicturePickerTest, AsksAgain) {
  put("a.png", "a picture");
  ASSERT_NO_FATAL_FAILURE(ask());
  QMetaObject::invokeMethod(picker.dialog(), "reject");
  settle();

  ASSERT_NO_FATAL_FAILURE(ask());
  ASSERT_NO_FATAL_FAILURE(chooseFirst());
  ASSERT_TRUE(QTest::qWaitFor([this] { return results.size() > 1; }));

  EXPECT_TRUE(results[1].picture);
}

TEST_F(QtPicturePickerTest, ReadsNothingButOrdinaryFilesOfReasonableSize) {
  const QString fifo = folder.filePath(QStringLiteral("fifo"));
  ASSERT_EQ(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
  const QString large = put("large.png", "a picture");
  // A hole, so that it takes no room.
  ASSERT_TRUE(QFile::resize(large, 100 << 20));

  const auto ofFolder = readPicture(folder.path());
  const auto ofFifo = readPicture(fifo);
  const auto ofNothing = readPicture(folder.filePath(QStringLiteral("missing")));
  const auto ofNoName = readPicture(QString());
  const auto ofLarge = readPicture(large);

  for (const auto* result : {&ofFolder, &ofFifo, &ofNothing, &ofNoName}) {
    EXPECT_FALSE(result->picture);
    EXPECT_THAT(result->failure, HasSubstr("There is no file of that name"));
  }
  EXPECT_FALSE(ofLarge.picture);
  EXPECT_EQ(ofLarge.failure, "The file is larger than 64 MB.");
  EXPECT_EQ(images.thread, nullptr);
}

TEST_F(QtPicturePickerTest, SaysThatAFileIsNoPicture) {
  const auto result = readPicture(put("a.png", "something else"));

  EXPECT_FALSE(result.picture);
  EXPECT_THAT(result.failure, HasSubstr("no PNG, JPEG or GIF picture"));
}

}  // namespace
}  // namespace frelta
