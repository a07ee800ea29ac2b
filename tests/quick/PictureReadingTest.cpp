#include "quick/PictureReading.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <atomic>
#include <cstdio>
#include <new>
#include <thread>

#include "foundation/Base64.h"
#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

using testing::Gt;
using testing::HasSubstr;
using testing::Lt;

class CountedImages : public QtImageServices {
 public:
  std::optional<std::string> pngRepresentation(const UIImage& image) const override {
    ++encodings;
    return QtImageServices::pngRepresentation(image);
  }
  std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const override {
    if (lacksMemory) throw std::bad_alloc();
    return QtImageServices::imageWithData(bytes);
  }
  mutable int encodings = 0;
  bool lacksMemory = false;
};

/// Files of the host, read the way the picker reads them.
class PictureReading : public testing::Test {
 protected:
  PictureReading() { GraphicsServices::install({&images}); }
  ~PictureReading() override { GraphicsServices::install({}); }

  PicturePickerService::Result resultFor(const std::string& bytes) {
    const QString path = folder.filePath(QStringLiteral("a picture"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(bytes));
    file.close();
    return readPicture(path);
  }
  static std::string fileOf(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 100);
    return bytes.toStdString();
  }
  /// Red on the left, blue on the right.
  static QImage redAndBlue() {
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int y = 0; y < 32; ++y)
      for (int x = 32; x < 64; ++x) image.setPixelColor(x, y, Qt::blue);
    return image;
  }

  CountedImages images;
  QTemporaryDir folder;
};

TEST_F(PictureReading, TurnsAPhotoTheWayItsOrientationTagSays) {
  const std::string jpeg = fileOf(redAndBlue(), "jpeg");

  const auto upright = resultFor(withOrientation(jpeg, 1)).picture;
  const auto turned = resultFor(withOrientation(jpeg, 6)).picture;

  ASSERT_TRUE(upright);
  EXPECT_EQ(upright->size(), (CGSize{64, 32}));
  ASSERT_TRUE(turned);
  EXPECT_EQ(turned->size(), (CGSize{32, 64}));
  EXPECT_THAT(pixelOf(*turned, 16, 8), testing::ElementsAre(Gt(240), Lt(15), Lt(15), 255));
  EXPECT_THAT(pixelOf(*turned, 16, 56), testing::ElementsAre(Lt(15), Lt(15), Gt(240), 255));
}

TEST_F(PictureReading, TakesFourInksAndTheFirstFrameOfAnAnimation) {
  const auto inks = resultFor(dataFromBase64String(kCyanJPEG).value()).picture;
  const auto frames = resultFor(dataFromBase64String(kRedThenBlueGIF).value()).picture;

  ASSERT_TRUE(inks);
  EXPECT_THAT(pixelOf(*inks, 0, 0), testing::ElementsAre(Lt(40), Gt(150), Gt(150), 255));
  ASSERT_TRUE(frames);
  EXPECT_EQ(pixelOf(*frames, 1, 1), kRed);
}

TEST_F(PictureReading, SaysWhyOfAFileThatIsNoPictureOrTooLarge) {
  const std::string whole = fileOf(redAndBlue(), "png");
  QImage mono(16, 16, QImage::Format_Mono);
  mono.fill(0);

  for (const std::string& bytes :
       {std::string(), std::string("no picture"), whole.substr(0, whole.size() / 2),
        withSize(fileOf(mono, "png"), 60'000, 60'000)}) {
    const auto result = resultFor(bytes);

    EXPECT_FALSE(result.picture);
    EXPECT_THAT(result.failure, HasSubstr("has too many pixels"));
  }
  EXPECT_EQ(images.encodings, 0);
}

TEST_F(PictureReading, WaitsForNoPipe) {
  const QString path = folder.filePath(QStringLiteral("a pipe"));
  ASSERT_EQ(::mkfifo(qPrintable(path), 0600), 0);

  const auto result = readPicture(path);

  EXPECT_EQ(result.picture, nullptr);
  EXPECT_THAT(result.failure, HasSubstr("not an ordinary one"));
}

TEST_F(PictureReading, WaitsForNoPipeThatTakesAFilesPlaceMeanwhile) {
  const QString path = folder.filePath(QStringLiteral("a picture"));
  const QString pipe = folder.filePath(QStringLiteral("a pipe"));
  ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
  ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
  std::atomic<bool> isDone = false;
  std::thread neighbour([&] {
    while (!isDone)
      ::renameat2(AT_FDCWD, qPrintable(path), AT_FDCWD, qPrintable(pipe), RENAME_EXCHANGE);
  });

  for (int pick = 0; pick < 20'000; ++pick) readPicture(path);
  isDone = true;
  neighbour.join();
}

TEST_F(PictureReading, SaysWhyWhenThereIsNoMemory) {
  images.lacksMemory = true;

  const auto result = resultFor(fileOf(redAndBlue(), "png"));

  EXPECT_FALSE(result.picture);
  EXPECT_THAT(result.failure, HasSubstr("not enough memory"));
}

TEST_F(PictureReading, LeavesNothingToEncodeToTheMainThread) {
  const auto result = resultFor(fileOf(redAndBlue(), "jpeg"));
  ASSERT_TRUE(result.picture);
  const int before = images.encodings;

  const auto png = UIImagePNGRepresentation(*result.picture);

  EXPECT_EQ(before, 1);
  EXPECT_EQ(images.encodings, 1);
  ASSERT_TRUE(png);
  EXPECT_EQ(images.imageWithData(*png)->size(), (CGSize{64, 32}));
}

}  // namespace
}  // namespace frelta
