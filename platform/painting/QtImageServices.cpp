#include "painting/QtImageServices.h"

#include <QBuffer>
#include <QByteArray>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>
#include <QTransform>
#include <algorithm>
#include <memory>
#include <new>
#include <utility>

#include "painting/JPEGReading.h"
#include "painting/PictureGate.h"
#include "painting/QtImageContext.h"
#include "painting/QtPixels.h"

namespace frelta {

namespace {

/// A fifth of the time that the smallest file would take, for a file a fifth larger.
constexpr int kFastPNG = 80;
/// Where a PNG file's second chunk begins.
constexpr qsizetype kAfterPNGHeader = 33;
/// The chunk that says that the colours are sRGB, with its checksum.
constexpr std::string_view kStandardColours("\0\0\0\1sRGB\0\xAE\xCE\x1C\xE9", 13);
/// What is converted at a time, so that a large picture is not there twice.
constexpr int kPixelsOfBand = 1 << 20;

/// Ink is what is missing to 255.
void printInks(JPEGPixels& pixels) {
  std::uint8_t* at = pixels.bytes.get();
  const std::uint8_t* end = at + std::size_t{4} * pixels.width * pixels.height;
  for (; at < end; at += 4) {
    for (int i = 0; i < 3; ++i) at[i] = static_cast<std::uint8_t>((at[i] * at[3] + 127) / 255);
    at[3] = 255;
  }
}

QImage imageWithJPEG(const std::string& bytes) {
  std::optional<JPEGPixels> pixels = readJPEG(bytes, ImageServices::kMaximumSide);
  if (!pixels) return {};
  if (pixels->areInks) printInks(*pixels);
  std::uint8_t* const memory = pixels->bytes.release();
  return {memory,
          pixels->width,
          pixels->height,
          qsizetype{4} * pixels->width,
          QImage::Format_RGBX8888,
          [](void* it) { delete[] static_cast<std::uint8_t*>(it); },
          memory};
}

QImage decoded(const GatedPicture& picture) {
  if (picture.format == GatedPicture::Format::JPEG) return imageWithJPEG(picture.bytes);
  QByteArray data =
      QByteArray::fromRawData(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size()));
  QBuffer buffer(&data);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, picture.format == GatedPicture::Format::PNG ? "png" : "gif");
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(false);
  QImage image;
  if (!reader.read(&image)) return {};
  return image;
}

/// In our format and in sRGB.
QImage standardPixels(QImage pixels, const QColorSpace& colours) {
  const bool isOther = colours.isValid() && colours != QColorSpace(QColorSpace::SRgb);
  // Qt converts colours of pixels alone, not those of palettes and greys.
  const bool isDirect = pixels.pixelFormat().colorModel() == QPixelFormat::RGB;
  if (!isDirect) pixels.convertTo(kPixelFormat);
  if (isOther) {
    pixels.setColorSpace(colours);
    pixels.convertToColorSpace(QColorSpace::SRgb);
  }
  pixels.convertTo(kPixelFormat);
  pixels.setColorSpace({});
  return pixels;
}

/// The whole number of pixels that become one, in each direction.
int shrinkingOf(QSize size) {
  int shrinking = 1;
  while (std::max(size.width(), size.height()) > shrinking * ImageServices::kMaximumSide)
    shrinking *= 2;
  return shrinking;
}

/// In our format, in sRGB, and no side longer than the longest.
QImage readyPixels(const QImage& image, const QColorSpace& colours) {
  const int shrinking = shrinkingOf(image.size());
  const auto shrunk = [&](int side) { return (side + shrinking - 1) / shrinking; };
  QImage ready(shrunk(image.width()), shrunk(image.height()), kPixelFormat);
  if (ready.isNull()) return {};
  const int rows = shrinking * std::max(1, kPixelsOfBand / image.width() / shrinking);
  for (int y = 0; y < image.height(); y += rows) {
    const int height = std::min(rows, image.height() - y);
    QImage band = standardPixels(image.copy(0, y, image.width(), height), colours);
    if (shrinking > 1)
      band = band.scaled(ready.width(), shrunk(height), Qt::IgnoreAspectRatio,
                         Qt::SmoothTransformation);
    if (band.isNull()) return {};
    band.convertTo(kPixelFormat);
    for (int row = 0; row < band.height(); ++row)
      std::copy_n(band.constScanLine(row), qsizetype{4} * band.width(),
                  ready.scanLine(y / shrinking + row));
  }
  return ready;
}

/// Turned the way the camera was held.
QImage upright(const QImage& image, int orientation) {
  switch (orientation) {
    case 2:
      return image.mirrored(true, false);
    case 3:
      return image.mirrored(true, true);
    case 4:
      return image.mirrored(false, true);
    case 5:
      return image.mirrored(true, false).transformed(QTransform().rotate(270));
    case 6:
      return image.transformed(QTransform().rotate(90));
    case 7:
      return image.mirrored(true, false).transformed(QTransform().rotate(90));
    case 8:
      return image.transformed(QTransform().rotate(270));
    default:
      return image;
  }
}

}  // namespace

QtImageServices::QtImageServices() {
  // Qt's own limit is less than what the gate lets through.
  QImageReader::setAllocationLimit(static_cast<int>(kMaximumDecodedBytes >> 20));
}

std::unique_ptr<UIGraphicsImageContext> QtImageServices::beginImageContext(CGSize size,
                                                                           double scale) const {
  return std::make_unique<QtImageContext>(size, scale);
}

std::shared_ptr<const UIImage> QtImageServices::imageWithData(std::string_view bytes) const try {
  std::optional<GatedPicture> picture = gatedPicture(bytes);
  if (!picture) return nullptr;
  // What each step has made of the picture goes before the next makes more of it.
  QImage image = decoded(*picture);
  const QByteArray profile = QByteArray::fromStdString(picture->profile);
  const int orientation = picture->orientation;
  picture.reset();
  if (image.isNull()) return nullptr;
  const QColorSpace colours =
      profile.isEmpty() ? image.colorSpace() : QColorSpace::fromIccProfile(profile);
  QImage ready = readyPixels(image, colours);
  image = {};
  ready = upright(ready, orientation);
  if (ready.isNull()) return nullptr;
  return imageWithPixels(std::move(ready), 1);
} catch (const std::bad_alloc&) {
  return nullptr;
}

std::optional<std::string> QtImageServices::pngRepresentation(const UIImage& image) const {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "png");
  writer.setQuality(kFastPNG);
  if (!writer.write(pixelsOf(image))) return std::nullopt;
  std::string png = data.toStdString();
  png.insert(kAfterPNGHeader, kStandardColours);
  return png;
}

}  // namespace frelta
