#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <array>
#include <filesystem>
#include <string>

#include "fake/FakePlatform.h"
#include "foundation/Base64.h"
#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

std::string fileOf(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes.toStdString();
}

std::string pngOf(const QImage& image) {
  return fileOf(image, "png");
}

class ImageFiles : public testing::Test {
 protected:
  ImageFiles() { GraphicsServices::install({&images}); }
  ~ImageFiles() override { GraphicsServices::install({}); }

  FakePlatform platform;
  QtImageServices images;
};

TEST_F(ImageFiles, ReadBackTheWayTheyWereWritten) {
  const auto opaque = picture(3, 2, 1, [](int x, int y) { return Pixel{40 * x, 90 * y, 7, 255}; });
  const auto clear = picture(2, 2, kTransparent);

  for (const auto& image : {opaque, clear}) {
    const auto copy = images.imageWithData(UIImagePNGRepresentation(*image).value());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->size(), image->size());
    EXPECT_EQ(copy->scale(), 1);
    EXPECT_THAT(copy->pixels(), testing::ElementsAreArray(image->pixels()));
  }
  EXPECT_EQ(UIImagePNGRepresentation(UIImage()), std::nullopt);
}

TEST_F(ImageFiles, OfEveryKindOfPixelBecomePremultipliedRGBA) {
  QImage source(2, 1, QImage::Format_ARGB32);
  source.setPixel(0, 0, qRgba(255, 128, 0, 128));
  source.setPixel(1, 0, qRgba(80, 80, 80, 255));
  const std::array formats{QImage::Format_ARGB32, QImage::Format_RGBA64};
  const std::array opaqueFormats{QImage::Format_RGB32, QImage::Format_Grayscale8,
                                 QImage::Format_Grayscale16, QImage::Format_Indexed8,
                                 QImage::Format_RGBX64};
  const QList<QRgb> palette{qRgb(0, 0, 0), qRgb(80, 80, 80)};

  for (const auto format : formats) {
    const auto image = images.imageWithData(pngOf(source.convertToFormat(format)));
    ASSERT_NE(image, nullptr) << format;
    EXPECT_EQ(pixelOf(*image, 0, 0), (Pixel{128, 64, 0, 128})) << format;
    EXPECT_EQ(pixelOf(*image, 1, 0), (Pixel{80, 80, 80, 255})) << format;
  }
  source.fill(qRgb(80, 80, 80));
  for (const auto format : opaqueFormats) {
    const auto image = images.imageWithData(pngOf(format == QImage::Format_Indexed8
                                                      ? source.convertToFormat(format, palette)
                                                      : source.convertToFormat(format)));
    ASSERT_NE(image, nullptr) << format;
    EXPECT_EQ(pixelOf(*image, 1, 0), (Pixel{80, 80, 80, 255})) << format;
  }
}

TEST_F(ImageFiles, InFourInksOrAnimatedGiveTheirFirstPicture) {
  const auto cyan = images.imageWithData(dataFromBase64String(kCyanJPEG).value());
  const auto red = images.imageWithData(dataFromBase64String(kRedThenBlueGIF).value());
  QImage green(2, 2, QImage::Format_RGB32);
  green.fill(Qt::green);
  std::string animation = pngOf(green);
  animation.insert(33, chunk("acTL", bigEndian(2) + bigEndian(0)));
  const auto animated = images.imageWithData(animation);

  ASSERT_NE(cyan, nullptr);
  EXPECT_LT(pixelOf(*cyan, 0, 0)[0], 40);
  EXPECT_GT(pixelOf(*cyan, 0, 0)[2], 150);
  ASSERT_NE(red, nullptr);
  EXPECT_EQ(pixelOf(*red, 1, 1), kRed);
  ASSERT_NE(animated, nullptr);
  EXPECT_EQ(pixelOf(*animated, 1, 1), (Pixel{0, 255, 0, 255}));
}

TEST_F(ImageFiles, ThatAreNoPicturesAreRefused) {
  QImage noise(64, 64, QImage::Format_RGB32);
  for (int i = 0; i < 64 * 64; ++i)
    noise.setPixel(i % 64, i / 64, static_cast<unsigned>(i) * 2654435761U);
  const std::string whole = pngOf(noise);

  ASSERT_NE(images.imageWithData(whole), nullptr);
  for (const std::string& bytes :
       {std::string(), std::string("\x89PNG\r\n\x1a\n"), std::string("no picture"),
        fileOf(noise, "bmp"),
        std::string("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
        whole.substr(0, 40), whole.substr(0, whole.size() / 2)})
    EXPECT_EQ(images.imageWithData(bytes), nullptr) << bytes.size() << " bytes";
}

TEST_F(ImageFiles, OfTooManyPixelsAreRefusedBeforeMemoryIsTaken) {
  QImage small(16, 16, QImage::Format_Mono);
  small.fill(0);
  const std::string huge = withSize(pngOf(small), 60'000, 60'000);
  QImage large(8192, 4096, QImage::Format_Mono);
  large.fill(0);
  const std::string atLimit = pngOf(large);
  const std::string beyond = withSize(atLimit, 8192, 4097);
  const PeakMemory memory;

  EXPECT_EQ(images.imageWithData(huge), nullptr);
  EXPECT_EQ(images.imageWithData(beyond), nullptr);

  EXPECT_LT(huge.size(), 4096U);
  EXPECT_LT(memory.growth(), std::uint64_t{8} << 20);
  const auto image = images.imageWithData(atLimit);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->size(),
            (CGSize{ImageServices::kMaximumSide, ImageServices::kMaximumSide / 2.0}));
}

TEST_F(ImageFiles, OfManyBytesTakeLittleMoreThanWhatTheyBecome) {
  QImage large(4000, 4000, QImage::Format_RGBA8888);
  large.fill(Qt::red);
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  ASSERT_TRUE(large.save(&buffer, "PNG", 100)) << "without compression";
  const std::string bytes = data.toStdString();
  large = {};
  const PeakMemory memory;

  const auto image = images.imageWithData(bytes);

  ASSERT_NE(image, nullptr);
  EXPECT_GT(bytes.size(), std::size_t{60} << 20);
  EXPECT_LT(memory.growth(), std::uint64_t{160} << 20);
}

TEST_F(ImageFiles, AreReadFromTheDevice) {
  platform.put("/a.png", UIImagePNGRepresentation(*picture(2, 2, kRed)).value());

  const auto image = UIImage::imageWithContentsOfFile("/a.png");

  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixelOf(*image, 0, 0), kRed);
}

TEST_F(ImageFiles, ThatArePipesAreNeverOpened) {
  platform.put("/file.png", "no picture");
  ASSERT_EQ(::mkfifo(platform.hostPath("/fifo.png").c_str(), 0600), 0);
  const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  const auto wasOpened = [&] {
    std::array<char, 4096> events;
    return ::read(watch, events.data(), events.size()) > 0;
  };
  for (const char* path : {"/file.png", "/fifo.png"})
    ASSERT_GE(::inotify_add_watch(watch, platform.hostPath(path).c_str(), IN_OPEN), 0);

  EXPECT_EQ(UIImage::imageWithContentsOfFile("/file.png"), nullptr);
  EXPECT_TRUE(wasOpened());
  EXPECT_EQ(UIImage::imageWithContentsOfFile("/fifo.png"), nullptr);
  EXPECT_FALSE(wasOpened());

  ::close(watch);
}

TEST_F(ImageFiles, ThatAreNoRegularFilesAreNoPictures) {
  platform.put("/empty.png", "");
  ASSERT_EQ(::mkfifo(platform.hostPath("/fifo.png").c_str(), 0600), 0);
  std::filesystem::create_directory(platform.hostPath("/folder.png"));
  std::filesystem::create_symlink("loop.png", platform.hostPath("/loop.png"));

  for (const char* path :
       {"/empty.png", "/fifo.png", "/folder.png", "/loop.png", "/missing.png", "/dev/zero", ""})
    EXPECT_EQ(UIImage::imageWithContentsOfFile(path), nullptr) << path;
}

}  // namespace
}  // namespace frelta
