#include "app/StartChecks.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "app/FirstPage.h"
#include "app/LoadedBundle.h"
#include "device/Paths.h"
#include "foundation/Platform.h"
#include "linux/DeviceRoot.h"
#include "linux/LinuxFileManager.h"
#include "linux/LinuxPropertyListSerialization.h"
#include "linux/SyslogLog.h"

namespace frelta {

namespace {

constexpr int kFailed = 1;
constexpr int kBadOption = 2;

class StartTexts {
  Q_DECLARE_TR_FUNCTIONS(StartTexts)
};

/// Zero when the settings file's folder is there and files can be made in it.
int errorOfSettingsFolder(const std::string& root) {
  std::error_code error;
  std::filesystem::create_directories(root, error);
  if (error) return error.value();
  errno = 0;
  LinuxFileManager files(root);
  if (!files.createDirectoryAtPath(kPreferencesFolder)) return errno ? errno : EIO;
  if (files.directoryExistsAtPath(kSettingsPath)) return EISDIR;
  const FileDescriptor folder =
      DeviceRoot(root, PathLookup::Kernel).open(kPreferencesFolder, O_PATH | O_DIRECTORY);
  if (!folder) return errno;
  return ::faccessat(folder.get(), ".", W_OK | X_OK, AT_EACCESS) == 0 ? 0 : errno;
}

}  // namespace

std::optional<StartFailure> checkRoot(const QString& root) {
  const int error = errorOfSettingsFolder(root.toStdString());
  if (error == 0) return std::nullopt;
  const std::string reason = std::system_category().message(error);
  return StartFailure{StartTexts::tr("Settings cannot be written under %1: %2")
                          .arg(root, QString::fromLocal8Bit(reason.c_str())),
                      kFailed};
}

std::optional<StartFailure> checkTourFolder(const QString& folder) {
  if (QDir().mkpath(folder)) return std::nullopt;
  return StartFailure{StartTexts::tr("Pictures cannot be saved in %1.").arg(folder), kFailed};
}

std::optional<StartFailure> checkPage(const QString& page, const QString& bundleFolder,
                                      const QString& root) {
  LinuxFileManager files(root.toStdString());
  LinuxPropertyListSerialization propertyLists;
  SyslogLog log;
  Platform platform;
  platform.fileManager = &files;
  platform.propertyLists = &propertyLists;
  platform.log = &log;
  Platform::install(platform);
  QString error;
  const auto bundle = LoadedBundle::load(bundleFolder, error);
  const bool isThere = bundle && rowToPage(*makeFirstPage(*bundle), page);
  Platform::install({});
  if (!bundle) return StartFailure{error, kFailed};
  if (isThere) return std::nullopt;
  return StartFailure{StartTexts::tr("There is no page \"%1\".").arg(page), kBadOption};
}

}  // namespace frelta
