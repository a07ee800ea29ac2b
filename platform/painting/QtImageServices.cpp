#include "painting/QtImageServices.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QImageWriter>
#include <utility>

#include "painting/QtImageContext.h"
#include "painting/QtPixels.h"

namespace frelta {

namespace {

/// A fifth of the time that the smallest file would take, for a file a fifth larger.
constexpr int kFastPNG = 80;

/// Told by the first bytes. Qt would ask every plug-in that is installed, whatever it reads.
const char* formatOf(std::string_view bytes) {
  if (bytes.starts_with("\x89PNG\r\n\x1a\n")) return "png";
  if (bytes.starts_with("\xFF\xD8\xFF")) return "jpeg";
  if (bytes.starts_with("GIF8")) return "gif";
  return nullptr;
}

bool fitsInMemory(QSize size) {
  return !size.isEmpty() &&
         static_cast<std::uint64_t>(size.width()) * static_cast<std::uint64_t>(size.height()) <=
             ImageServices::kMaximumPixels;
}

}  // namespace

std::unique_ptr<UIGraphicsImageContext> QtImageServices::beginImageContext(CGSize size,
                                                                           double scale) const {
  return std::make_unique<QtImageContext>(size, scale);
}

std::shared_ptr<const UIImage> QtImageServices::imageWithData(std::string_view bytes) const {
  const char* format = formatOf(bytes);
  if (!format) return nullptr;
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, format);
  reader.setAutoDetectImageFormat(false);
  if (!fitsInMemory(reader.size())) return nullptr;
  reader.setAutoTransform(true);
  QImage picture;
  if (!reader.read(&picture)) return nullptr;
  return imageWithPixels(std::move(picture), 1);
}

std::optional<std::string> QtImageServices::pngRepresentation(const UIImage& image) const {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "png");
  writer.setQuality(kFastPNG);
  if (!writer.write(pixelsOf(image))) return std::nullopt;
  return data.toStdString();
}

}  // namespace frelta
