#include "painting/PictureGate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QByteArray>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <cstdlib>
#include <string>

#include "foundation/Base64.h"
#include "painting/QtImageServices.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;

constexpr std::size_t kAfterHeader = 33;
constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20;

/// 5 × 5 in seven passes; each pixel is (50 x, 50 y, 7).
constexpr const char* kInterlacedPNG =
    "iVBORw0KGgoAAAANSUhEUgAAAAUAAAAFCAIAAAF1CoEkAAAAOElEQVR42hWJMREAMBDC2OIHTWhCE7L6HbgQkIR20dhQru"
    "aokLAgi97o0G+j/zY2MTXzeXFJaVl5GsIUOCn6NioAAAAASUVORK5CYII=";

std::string fileOf(const QImage& image, const char* format, bool progressive = false) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(95);
  writer.setProgressiveScanWrite(progressive);
  writer.write(image);
  return bytes.toStdString();
}

/// As zlib packs it.
std::string packed(const QByteArray& bytes) {
  constexpr qsizetype kLength = 4;
  return qCompress(bytes, 1).sliced(kLength).toStdString();
}

/// Four corners of different colours.
QImage corners(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      image.setPixel(x, y, qRgb(x < width / 2 ? 20 : 220, y < height / 2 ? 30 : 200, 90));
  return image;
}

/// The JPEG with its last scan repeated.
std::string withMoreScans(const std::string& jpeg, int more) {
  const std::size_t scan = jpeg.rfind("\xFF\xDA");
  const std::size_t end = jpeg.rfind("\xFF\xD9");
  std::string result = jpeg.substr(0, end);
  for (int i = 0; i < more; ++i) result += jpeg.substr(scan, end - scan);
  return result + "\xFF\xD9";
}

/// How often a marker stands in the JPEG.
int countOf(const std::string& jpeg, const char* marker) {
  int count = 0;
  for (std::size_t at = jpeg.find(marker); at != std::string::npos; at = jpeg.find(marker, at + 2))
    ++count;
  return count;
}

/// The JPEG with another size in its frame.
std::string withFrameSize(std::string jpeg, const char* frame, unsigned width, unsigned height) {
  const std::size_t at = jpeg.find(frame) + 5;
  jpeg[at] = static_cast<char>(height >> 8);
  jpeg[at + 1] = static_cast<char>(height);
  jpeg[at + 2] = static_cast<char>(width >> 8);
  jpeg[at + 3] = static_cast<char>(width);
  return jpeg;
}

class PictureGate : public testing::Test {
 protected:
  QtImageServices images;
};

TEST_F(PictureGate, HandsOnNothingOfAPNGButWhatMakesThePicture) {
  std::string png = fileOf(corners(4, 4), "png");
  const std::string others =
      chunk("tEXt", std::string("a\0b", 3)) + chunk("zTXt", std::string("a\0\0", 3) + packed("b")) +
      chunk("iTXt", std::string("a\0\0\0\0\0b", 7)) + chunk("acTL", bigEndian(2) + bigEndian(0)) +
      chunk("tIME", std::string(7, '\1')) + chunk("prVt", "mine");
  png.insert(kAfterHeader, others);
  png.insert(png.size() - 12, others);

  const auto gated = gatedPicture(png);

  ASSERT_TRUE(gated);
  for (const char* type : {"tEXt", "zTXt", "iTXt", "acTL", "tIME", "prVt"})
    EXPECT_THAT(gated->bytes, Not(HasSubstr(type)));
  EXPECT_EQ(pixelOf(*images.imageWithData(png), 3, 3), (Pixel{220, 200, 90, 255}));
}

TEST_F(PictureGate, TextsOfAPNGThatAreLargerThanMemoryTakeNone) {
  std::string png = fileOf(corners(64, 64), "png");
  std::string texts;
  const std::string text = std::string("a\0\0", 3) + packed(QByteArray(7'900'000, ' '));
  for (int i = 0; i < 100; ++i) texts += chunk("zTXt", text);
  png.insert(kAfterHeader, texts);
  const PeakMemory memory;

  const auto picture = images.imageWithData(png);

  EXPECT_TRUE(picture);
  EXPECT_LT(memory.growth(), 16 * kMebibyte);
}

TEST_F(PictureGate, HandsOnNoBytesAfterTheLastPixelOfAPNG) {
  const std::string png = fileOf(QImage(64, 64, QImage::Format_Grayscale8), "png");
  const std::string rows = packed(QByteArray(64 * 65 + 16'000'000, '\0'));
  const std::string endless = png.substr(0, kAfterHeader) + chunk("IDAT", rows) + chunk("IEND", "");

  const auto gated = gatedPicture(endless);

  ASSERT_TRUE(gated);
  EXPECT_LT(gated->bytes.size(), 1'000U);
  EXPECT_TRUE(images.imageWithData(endless));
}

TEST_F(PictureGate, RefusesMoreThanAHundredScans) {
  const std::string jpeg = fileOf(corners(64, 64), "jpeg", true);
  const int scans = countOf(jpeg, "\xFF\xDA");

  EXPECT_GT(scans, 1);
  EXPECT_TRUE(gatedPicture(withMoreScans(jpeg, 100 - scans)));
  EXPECT_FALSE(gatedPicture(withMoreScans(jpeg, 101 - scans)));
  EXPECT_FALSE(images.imageWithData(withMoreScans(jpeg, 5'000)));
}

TEST_F(PictureGate, RefusesFewerScansOfALargePicture) {
  QImage grey(64, 64, QImage::Format_Grayscale8);
  grey.fill(99);
  const std::string jpeg = fileOf(grey, "jpeg", true);
  const int scans = countOf(jpeg, "\xFF\xDA");
  constexpr int kFit = 31;  // 724 × 724 blocks each

  const std::string large = withFrameSize(jpeg, "\xFF\xC2", 5792, 5792);

  EXPECT_TRUE(gatedPicture(withMoreScans(large, kFit + 1 - scans)));
  EXPECT_FALSE(gatedPicture(withMoreScans(large, kFit + 2 - scans)));
}

TEST_F(PictureGate, RefusesWhatADecoderWouldNeedTooMuchMemoryFor) {
  const QImage grey(16, 16, QImage::Format_Grayscale8);
  const std::string baseline = fileOf(corners(64, 64), "jpeg");
  const std::string progressive = fileOf(corners(64, 64), "jpeg", true);
  const std::string png = fileOf(grey, "png");
  std::string gif = dataFromBase64String(kRedThenBlueGIF).value();
  gif.replace(6, 4, "\xFF\xFF\xFF\xFF");

  EXPECT_TRUE(gatedPicture(withFrameSize(baseline, "\xFF\xC0", 16'384, 16'384)));
  EXPECT_FALSE(gatedPicture(withFrameSize(baseline, "\xFF\xC0", 16'384, 16'385)));
  EXPECT_TRUE(gatedPicture(withFrameSize(progressive, "\xFF\xC2", 8'064, 6'048)));
  EXPECT_FALSE(gatedPicture(withFrameSize(progressive, "\xFF\xC2", 16'384, 16'384)));
  EXPECT_FALSE(gatedPicture(withSize(png, 8'192, 8'193)));
  EXPECT_FALSE(gatedPicture(withSize(png, 0xFFFFFFFF, 0xFFFFFFFF)));
  EXPECT_FALSE(gatedPicture(gif));
}

struct Kind {
  const char* name;
  std::string bytes;
  std::size_t trailer;
};

/// One rule for all: a file that lacks pixels is refused, and one that has them all is taken.
TEST_F(PictureGate, ACutFileIsRefusedOrHasEveryPixel) {
  QImage noise(24, 24, QImage::Format_RGB32);
  for (int i = 0; i < 24 * 24; ++i)
    noise.setPixel(i % 24, i / 24, static_cast<unsigned>(i) * 2654435761U);
  const std::vector<Kind> kinds{{"PNG", fileOf(noise, "png"), 12},
                                {"interlaced", dataFromBase64String(kInterlacedPNG).value(), 12},
                                {"JPEG", fileOf(noise, "jpeg"), 2},
                                {"progressive", fileOf(noise, "jpeg", true), 2},
                                {"GIF", dataFromBase64String(kRedThenBlueGIF).value(), 1}};

  for (const auto& [name, bytes, trailer] : kinds) {
    const auto whole = images.imageWithData(bytes);
    ASSERT_TRUE(whole) << name;
    std::size_t taken = 0;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
      const auto cut = images.imageWithData(bytes.substr(0, size));
      if (!cut) continue;
      ++taken;
      ASSERT_THAT(cut->pixels(), ElementsAreArray(whole->pixels())) << name << " of " << size;
    }
    EXPECT_TRUE(images.imageWithData(bytes.substr(0, bytes.size() - trailer))) << name;
    EXPECT_FALSE(images.imageWithData(bytes.substr(0, bytes.size() / 2))) << name;
    EXPECT_GE(taken, trailer) << name;
  }
}

TEST_F(PictureGate, RefusesPixelsThatWereDamaged) {
  std::string png = fileOf(corners(40, 40), "png");
  png[png.size() - 20] ^= 1;
  std::string jpeg = fileOf(corners(40, 40), "jpeg");
  const std::size_t data = jpeg.find("\xFF\xDA") + 20;
  jpeg.erase(data, jpeg.size() - data - 8);

  EXPECT_FALSE(images.imageWithData(png));
  EXPECT_FALSE(images.imageWithData(jpeg));
}

TEST_F(PictureGate, TakesADamagedChunkThatMakesNoPixels) {
  std::string png = fileOf(corners(4, 4), "png");
  std::string gamma = chunk("gAMA", bigEndian(10'000));
  gamma.back() ^= 1;
  const auto plain = images.imageWithData(png);
  png.insert(kAfterHeader, gamma);

  const auto picture = images.imageWithData(png);

  ASSERT_TRUE(picture);
  EXPECT_THAT(picture->pixels(), ElementsAreArray(plain->pixels()));
}

TEST_F(PictureGate, TakesAPNGWhosePixelsAreAllThereWhateverIsDamagedBehindThem) {
  const std::string png = fileOf(corners(4, 4), "png");
  const auto plain = images.imageWithData(png);
  std::string otherEnd = png;
  otherEnd.back() ^= 1;
  const std::string zeroedEnd = png.substr(0, png.size() - 12) + std::string(12, '\0');
  std::string palette = chunk("PLTE", "abc");
  palette.back() ^= 1;
  const std::string unusedPalette =
      png.substr(0, kAfterHeader) + palette + png.substr(kAfterHeader);

  for (const std::string& file : {otherEnd, zeroedEnd, unusedPalette}) {
    const auto picture = images.imageWithData(file);

    ASSERT_TRUE(picture);
    EXPECT_THAT(picture->pixels(), ElementsAreArray(plain->pixels()));
  }
}

TEST_F(PictureGate, RefusesAPaletteThatIsDamagedWhereThePixelsNeedIt) {
  const QImage indexed = corners(4, 4).convertToFormat(QImage::Format_Indexed8);
  const std::string whole = fileOf(indexed, "png");
  std::string png = whole;
  png[png.find("PLTE") + 4] ^= 1;

  EXPECT_TRUE(images.imageWithData(whole));
  EXPECT_FALSE(images.imageWithData(png));
}

TEST_F(PictureGate, BringsColoursOfEveryProfileToTheStandardOnes) {
  QImage photo(16, 16, QImage::Format_RGB32);
  photo.fill(qRgb(200, 100, 50));
  photo.setColorSpace(QColorSpace::DisplayP3);

  for (const char* format : {"png", "jpeg"}) {
    const auto picture = images.imageWithData(fileOf(photo, format));
    ASSERT_TRUE(picture) << format;
    const Pixel pixel = pixelOf(*picture, 8, 8);
    EXPECT_NEAR(pixel[0], 215, 3) << format;
    EXPECT_NEAR(pixel[1], 93, 3) << format;
    EXPECT_NEAR(pixel[2], 31, 3) << format;
    EXPECT_EQ(pixel[3], 255) << format;
  }
}

TEST_F(PictureGate, APalettesColoursAreBroughtToTheStandardOnesToo) {
  QImage photo(4, 4, QImage::Format_Indexed8);
  photo.setColorTable({qRgb(200, 100, 50), qRgb(0, 0, 0)});
  photo.fill(0);
  photo.setColorSpace(QColorSpace::DisplayP3);

  const auto picture = images.imageWithData(fileOf(photo, "png"));

  ASSERT_TRUE(picture);
  EXPECT_NEAR(pixelOf(*picture, 2, 2)[0], 215, 1);
  EXPECT_NEAR(pixelOf(*picture, 2, 2)[2], 31, 1);
}

TEST_F(PictureGate, AProfileBeyondAMegabyteIsNone) {
  QImage photo(4, 4, QImage::Format_RGB32);
  photo.fill(qRgb(200, 100, 50));
  std::string png = fileOf(photo, "png");
  const auto withProfile = [&](qsizetype size) {
    return std::string(png).insert(
        kAfterHeader, chunk("iCCP", std::string("a\0\0", 3) + packed(QByteArray(size, 'x'))));
  };

  const auto largest = gatedPicture(withProfile(1'048'576));
  const auto tooLarge = gatedPicture(withProfile(1'048'577));

  ASSERT_TRUE(largest && tooLarge);
  EXPECT_EQ(largest->profile.size(), 1'048'576U);
  EXPECT_EQ(tooLarge->profile, "");
  EXPECT_EQ(pixelOf(*images.imageWithData(withProfile(7'000'000)), 2, 2),
            (Pixel{200, 100, 50, 255}));
}

// Else a file of a megabyte could have a gigabyte of profiles unpacked, one by one.
TEST_F(PictureGate, UnpacksOneProfileOnlyEvenIfThatIsNone) {
  QImage photo(4, 4, QImage::Format_RGB32);
  photo.fill(qRgb(200, 100, 50));
  const auto profile = [](qsizetype size) {
    return chunk("iCCP", std::string("a\0\0", 3) + packed(QByteArray(size, 'x')));
  };
  std::string png = fileOf(photo, "png");
  png.insert(kAfterHeader, profile(1'048'577) + profile(100));

  const auto gated = gatedPicture(png);

  ASSERT_TRUE(gated);
  EXPECT_EQ(gated->profile, "");
}

TEST_F(PictureGate, StoresThePNGWithWhatItsColoursAre) {
  const std::string png = images.pngRepresentation(*picture(2, 2, kRed)).value();

  EXPECT_EQ(png.substr(kAfterHeader, 13), chunk("sRGB", std::string(1, '\0')));
  EXPECT_EQ(pixelOf(*images.imageWithData(png), 1, 1), kRed);
}

TEST_F(PictureGate, TurnsAPhotoAsEachOrientationSays) {
  const std::string jpeg = fileOf(corners(48, 32), "jpeg");
  for (char orientation = 1; orientation <= 8; ++orientation) {
    QByteArray bytes = QByteArray::fromStdString(withOrientation(jpeg, orientation));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "jpeg");
    reader.setAutoTransform(true);
    const QImage expected = reader.read();

    const auto picture = images.imageWithData(bytes.toStdString());

    ASSERT_TRUE(picture);
    ASSERT_EQ(QSize(picture->pixelWidth(), picture->pixelHeight()), expected.size());
    for (const QPoint at :
         {QPoint(4, 4), QPoint(expected.width() - 4, 4), QPoint(4, expected.height() - 4)}) {
      EXPECT_NEAR(pixelOf(*picture, at.x(), at.y())[0], expected.pixelColor(at).red(), 8);
      EXPECT_NEAR(pixelOf(*picture, at.x(), at.y())[1], expected.pixelColor(at).green(), 8);
    }
  }
}

TEST_F(PictureGate, ReadsThePixelsOfAnInterlacedPNG) {
  const auto picture = images.imageWithData(dataFromBase64String(kInterlacedPNG).value());

  ASSERT_TRUE(picture);
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 5; ++x) EXPECT_EQ(pixelOf(*picture, x, y), (Pixel{50 * x, 50 * y, 7, 255}));
}

TEST_F(PictureGate, ReadsAPhotoOf48MegapixelsInTheMemoryOfWhatAScreenShows) {
  std::string photo;
  {
    QImage large(8'064, 6'048, QImage::Format_Grayscale8);
    large.fill(120);
    photo = fileOf(large, "jpeg");
  }
  const PeakMemory memory;

  const auto picture = images.imageWithData(photo);

  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size(), (CGSize{4'032, 3'024}));
  EXPECT_EQ(pixelOf(*picture, 4'031, 3'023), (Pixel{120, 120, 120, 255}));
  EXPECT_LT(memory.growth(), 120 * kMebibyte);
}

TEST_F(PictureGate, ReadsAPNGOf16BitsBeyond4096Pixels) {
  QImage small(1, 1, QImage::Format_RGBA64);
  small.fill(Qt::red);
  const std::string header = withSize(fileOf(small, "png"), 4'100, 4'000).substr(0, kAfterHeader);
  const std::string png = header + chunk("IDAT", packed(QByteArray(4'000 * (1 + 8 * 4'100), '\0')));
  const PeakMemory memory;

  const auto picture = images.imageWithData(png);

  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size(), (CGSize{2'050, 2'000}));
  EXPECT_EQ(pixelOf(*picture, 2'049, 1'999), kTransparent);
  EXPECT_LT(memory.growth(), 200 * kMebibyte);
}

}  // namespace
}  // namespace frelta
