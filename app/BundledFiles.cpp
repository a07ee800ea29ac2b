#include "app/BundledFiles.h"

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <string>

#include "device/Paths.h"
#include "foundation/Log.h"
#include "foundation/Platform.h"

namespace frelta {

namespace {

const QString kBundle = QString::fromUtf8(kBundleFolder.data(), kBundleFolder.size());
const QString kThemes = QString::fromUtf8(kThemesFolder.data(), kThemesFolder.size());
/// Stands until every example is installed, so that the next start makes up for one cut short.
const QString kUnfinished = QStringLiteral("/Library/Frelta/.installing-examples");

bool exists(const QString& devicePath) {
  return Platform::current().fileManager->fileExistsAtPath(devicePath.toStdString());
}

bool write(const QString& devicePath, const QByteArray& bytes) {
  FileManager& files = *Platform::current().fileManager;
  return files.createDirectoryAtPath(QFileInfo(devicePath).path().toStdString()) &&
         files.writeAtomically(devicePath.toStdString(), bytes.toStdString());
}

/// True when the file stands there afterwards.
bool install(const QString& hostPath, const QString& devicePath) {
  if (exists(devicePath)) return true;
  QFile file(hostPath);
  if (file.open(QIODevice::ReadOnly) && write(devicePath, file.readAll())) return true;
  freltaLog("installBundledFiles cannot make " + devicePath.toStdString());
  return false;
}

}  // namespace

void installBundledFiles(const QString& bundleFolder) {
  for (const QString& picture :
       {QStringLiteral("/placeholder.png"), QStringLiteral("/iconlarge.png")})
    install(bundleFolder + picture, kBundle + picture);

  if (exists(kThemes) && !exists(kUnfinished)) return;
  write(kUnfinished, {});
  bool complete = true;
  const QDir themes(bundleFolder + QStringLiteral("/Themes"));
  QDirIterator files(themes.path(), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    complete &= install(path, kThemes + themes.relativeFilePath(path));
  }
  if (complete) Platform::current().fileManager->removeItemAtPath(kUnfinished.toStdString());
}

}  // namespace frelta
