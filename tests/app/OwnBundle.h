#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace frelta {

/// The bundle in a folder of its own, as long as this lives. The code of each is loaded anew, so
/// that nothing that a bundle remembers outlives the test: not its caches, not the colours of its
/// classes.
class OwnBundle {
 public:
  explicit OwnBundle(const QString& original) {
    const QDir files(original);
    for (const QFileInfo& file : files.entryInfoList(QDir::NoDotAndDotDot | QDir::AllEntries)) {
      const QString place = folder_.filePath(file.fileName());
      // Of the code a link would not do: the loader takes it for what is loaded already.
      const bool isCode = file.fileName() == QStringLiteral("freltaprefs");
      EXPECT_TRUE(isCode ? QFile::copy(file.filePath(), place)
                         : QFile::link(file.absoluteFilePath(), place))
          << place.toStdString();
    }
  }
  QString path() const { return folder_.path(); }

 private:
  QTemporaryDir folder_;
};

}  // namespace frelta
