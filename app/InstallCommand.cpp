#include "app/InstallCommand.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <cstdio>

#include "app/BundledFiles.h"
#include "app/DeviceFolders.h"
#include "app/LoadedBundle.h"
#include "app/StyleRefusalText.h"
#include "app/TerminalText.h"
#include "device/Notifications.h"
#include "foundation/Platform.h"
#include "installer/StyleInstallation.h"
#include "linux/LinuxDarwinNotificationCenter.h"
#include "linux/LinuxFileManager.h"
#include "linux/SyslogLog.h"

namespace frelta {

namespace {

class InstallCommand {
  Q_DECLARE_TR_FUNCTIONS(InstallCommand)

 public:
  static QString installed(const QString& name) { return tr("“%1” was installed.").arg(name); }
  static QString replaceHint() { return tr("--replace installs it in the other one's place."); }
};

/// One line that is written over itself, for people only.
bool showProgress(double part) {
  if (::isatty(STDERR_FILENO)) std::fprintf(stderr, "\r%3d %%", static_cast<int>(part * 100));
  return true;
}

void endProgress() {
  if (::isatty(STDERR_FILENO)) std::fputs("\r     \r", stderr);
}

}  // namespace

int runInstallCommand(const Options& options) {
  const std::string root =
      (options.root.isEmpty() ? Options::defaultRoot() : options.root).toStdString();
  LinuxFileManager files(root);
  LinuxDarwinNotificationCenter notifications;
  SyslogLog log;
  Platform platform;
  platform.fileManager = &files;
  platform.darwinNotificationCenter = &notifications;
  platform.log = &log;
  Platform::install(platform);
  // As a first start would: once there is a styles folder, the examples never come.
  installBundledFiles(LoadedBundle::defaultFolder());
  createDeviceFolders();

  const auto result =
      installStyle({options.styleToInstall.toStdString(), root, options.replace, {}, showProgress});
  endProgress();
  if (const auto* refusal = std::get_if<StyleRefusal>(&result)) {
    QString text = textOfRefusal(QFileInfo(options.styleToInstall).fileName(), *refusal);
    if (refusal->reason == StyleRefusalReason::AlreadyInstalled)
      text += QLatin1Char(' ') + InstallCommand::replaceHint();
    std::fprintf(stderr, "frelta-settings: %s\n", terminalText(text).constData());
    return 1;
  }
  const QString name = QString::fromStdString(std::get<InstalledStyle>(result).name);
  std::puts(terminalText(InstallCommand::installed(name)).constData());
  // Other windows list the style, and the keyboard may be showing the one that was there.
  notifications.post(kRefreshNotification);
  return 0;
}

}  // namespace frelta
