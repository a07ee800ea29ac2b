#include "quick/PictureReading.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>
#include <exception>
#include <string_view>

#include "graphics/GraphicsServices.h"
#include "linux/FileDescriptor.h"

namespace frelta {

namespace {

PicturePickerService::Result failure(const QString& sentence) {
  return {nullptr, sentence.toStdString()};
}

}  // namespace

PicturePickerService::Result readPicture(const QString& path) try {
  struct stat status;
  // Opened without waiting, and looked at once it is open: a pipe may be put in the file's place.
  const FileDescriptor descriptor(
      ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (descriptor ? ::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode)
                 : !QFileInfo(path).isFile()) {
    return failure(QObject::tr("There is no file of that name, or it is not an ordinary one."));
  }
  QFile file;
  if (!descriptor || !file.open(descriptor.get(), QIODevice::ReadOnly))
    return failure(QObject::tr("The file cannot be read."));
  // It may grow meanwhile.
  const QByteArray bytes = file.read(static_cast<qint64>(ImageServices::kMaximumBytes) + 1);
  if (bytes.size() > static_cast<qint64>(ImageServices::kMaximumBytes)) {
    return failure(
        QObject::tr("The file is larger than %1 MB.").arg(ImageServices::kMaximumBytes >> 20));
  }
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
