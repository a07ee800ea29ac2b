#include "app/BundledFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <string>

#include "foundation/Log.h"
#include "foundation/Platform.h"

namespace frelta {

namespace {

const QString kBundle = QStringLiteral("/Library/PreferenceBundles/freltaprefs.bundle");
const QString kThemes = QStringLiteral("/Library/Frelta/Themes");

bool exists(const QString& devicePath) {
  return Platform::current().fileManager->fileExistsAtPath(devicePath.toStdString());
}

void install(const QString& hostPath, const QString& devicePath) {
  FileManager& files = *Platform::current().fileManager;
  QFile file(hostPath);
  const bool installed =
      file.open(QIODevice::ReadOnly) &&
      files.createDirectoryAtPath(QFileInfo(devicePath).path().toStdString()) &&
      files.writeAtomically(devicePath.toStdString(), file.readAll().toStdString());
  if (!installed) freltaLog("installBundledFiles cannot make " + devicePath.toStdString());
}

}  // namespace

void installBundledFiles(const QString& bundleFolder) {
  for (const QString& picture :
       {QStringLiteral("/placeholder.png"), QStringLiteral("/iconlarge.png")})
    if (!exists(kBundle + picture)) install(bundleFolder + picture, kBundle + picture);

  if (exists(kThemes)) return;
  const QDir themes(bundleFolder + QStringLiteral("/Themes"));
  QDirIterator files(themes.path(), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    install(path, kThemes + QLatin1Char('/') + themes.relativeFilePath(path));
  }
}

}  // namespace frelta
