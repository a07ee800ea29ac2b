#include "app/LoadedBundle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

#include "foundation/Platform.h"

namespace frelta {

namespace {

using RegisterClasses = void (*)(PSClassRegistry&);

QString joined(const QString& folder, std::string_view name) {
  return folder + QLatin1Char('/') +
         QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

QString LoadedBundle::defaultFolder() {
  // As QCoreApplication finds it, which is not there yet when the command line is judged.
  const QString program = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
  return QDir::cleanPath(QFileInfo(program).path() + QStringLiteral("/" FRELTA_BUNDLE_FROM_BINARY));
}

std::unique_ptr<LoadedBundle> LoadedBundle::load(const QString& folder, QString& error) {
  std::unique_ptr<LoadedBundle> bundle(new LoadedBundle(folder));
  const std::optional<std::string> bytes = bundle->contentsOfResource("Info.plist");
  std::optional<PropertyListValue> value;
  if (bytes) value = Platform::current().propertyLists->propertyListWithData(*bytes);
  const std::optional<PSBundleInfo> info = value ? bundleInfoWithValue(*value) : std::nullopt;
  if (!info) {
    error = tr("%1 is not a preference bundle.").arg(folder);
    return nullptr;
  }
  bundle->info_ = *info;

  QLibrary library(joined(folder, info->executable));
  library.setLoadHints(QLibrary::PreventUnloadHint);
  const auto registerClasses =
      reinterpret_cast<RegisterClasses>(library.resolve("PSBundleRegisterClasses"));
  if (!registerClasses) {
    error = tr("The bundle's code cannot be loaded: %1").arg(library.errorString());
    return nullptr;
  }
  registerClasses(bundle->classes_);
  if (!bundle->classes_.controller(info->principalClass)) {
    error = tr("The bundle has no class %1.").arg(QString::fromStdString(info->principalClass));
    return nullptr;
  }
  return bundle;
}

std::optional<std::string> LoadedBundle::contentsOfResource(std::string_view fileName) const {
  if (!isResourceName(fileName)) return std::nullopt;
  const QString path = joined(folder_, fileName);
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  return file.readAll().toStdString();
}

}  // namespace frelta
