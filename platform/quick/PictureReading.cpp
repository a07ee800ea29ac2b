#include "quick/PictureReading.h"

#include <QFile>
#include <QFileInfo>
#include <exception>
#include <string_view>

#include "graphics/GraphicsServices.h"

namespace frelta {

namespace {

PicturePickerService::Result failure(const QString& sentence) {
  return {nullptr, sentence.toStdString()};
}

}  // namespace

PicturePickerService::Result readPicture(const QString& path) try {
  // Opening a pipe or a device could wait for ever.
  if (!QFileInfo(path).isFile()) {
    return failure(QObject::tr("There is no file of that name, or it is not an ordinary one."));
  }
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return failure(QObject::tr("The file cannot be read."));
  if (file.size() > static_cast<qint64>(ImageServices::kMaximumBytes)) {
    return failure(
        QObject::tr("The file is larger than %1 MB.").arg(ImageServices::kMaximumBytes >> 20));
  }
  const QByteArray bytes = file.readAll();
  const auto picture = GraphicsServices::current().images->imageWithData(
      std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  // It is to be stored as one, by the main thread.
  if (picture) return {picture->imageWithPNGRepresentation(), {}};
  return failure(
      QObject::tr("It is no PNG, JPEG or GIF picture, is damaged, or has too many pixels."));
} catch (const std::exception&) {
  // What leaves a thread's body ends the program.
  return failure(QObject::tr("There is not enough memory for the picture."));
}

}  // namespace frelta
