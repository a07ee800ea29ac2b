#pragma once

#include <QObject>
#include <string_view>

namespace frelta {

/// Tells which files and folders the program has removed.
class FileRemovals : public QObject {
  Q_OBJECT

 public:
  /// From any thread.
  void tell(std::string_view path) {
    Q_EMIT removed(QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size())));
  }

 Q_SIGNALS:
  /// A device path.
  void removed(const QString& path);
};

}  // namespace frelta
