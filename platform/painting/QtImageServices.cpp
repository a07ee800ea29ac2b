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

bool isKnownFormat(const QByteArray& format) {
  return format == "png" || format == "jpeg" || format == "gif";
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
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  if (!isKnownFormat(reader.format()) || !fitsInMemory(reader.size())) return nullptr;
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
  if (!writer.write(pixelsOf(image))) return std::nullopt;
  return data.toStdString();
}

}  // namespace frelta
