#pragma once

#include <QCoreApplication>
#include <QString>
#include <memory>

#include "preferences/PSBundle.h"

namespace frelta {

/// A preference bundle in a folder of the host, its shared object loaded into this process. It
/// stays loaded to the end: objects of its classes may outlive every handle.
class LoadedBundle : public PSBundle {
  Q_DECLARE_TR_FUNCTIONS(LoadedBundle)

 public:
  /// Null when the folder is no bundle or its shared object cannot be loaded; error then says why.
  static std::unique_ptr<LoadedBundle> load(const QString& folder, QString& error);
  /// The folder of "freltaprefs.bundle" that belongs to the running program.
  static QString defaultFolder();

  const PSBundleInfo& info() const override { return info_; }
  const PSClassRegistry& classes() const override { return classes_; }
  std::optional<std::string> contentsOfResource(std::string_view fileName) const override;

 private:
  explicit LoadedBundle(QString folder) : folder_(std::move(folder)) {}

  QString folder_;
  PSBundleInfo info_;
  PSClassRegistry classes_;
};

}  // namespace frelta
