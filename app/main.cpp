#include <csignal>
#include <cstdio>

#include <QGuiApplication>
#include <QIcon>
#include <QTemporaryDir>
#include <optional>
#include <utility>

#include "app/HostPlatform.h"
#include "app/InstallCommand.h"
#include "app/LoadedBundle.h"
#include "app/Options.h"
#include "app/SettingsApplication.h"
#include "app/StartChecks.h"
#include "app/StyleDrop.h"
#include "app/TerminalText.h"
#include "app/Tour.h"
#include "app/Translations.h"
#include "app/WindowState.h"
#include "app/WindowSystem.h"
#include "quick/RenderBackend.h"

namespace {

using namespace frelta;

// Children are started and forgotten; none may stay behind as a zombie.
void forgetChildren() {
  struct sigaction action = {};
  action.sa_handler = SIG_DFL;
  action.sa_flags = SA_NOCLDWAIT;
  sigaction(SIGCHLD, &action, nullptr);
}

int fail(const QString& message, int status) {
  const char* before = "frelta-settings: ";
  for (const QString& line : message.split(QLatin1Char('\n')))
    std::fprintf(stderr, "%s%s\n", std::exchange(before, ""), terminalText(line).constData());
  return status;
}

class MainTexts {
  Q_DECLARE_TR_FUNCTIONS(MainTexts)
};

/// Everything that can be said before there is a window system: reads the options, or ends.
class Start {
 public:
  Start(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("frelta-settings"));
    installTranslations();
    texts_ = WindowSystemTexts::current();
    status_ = judge();
  }

  /// The exit status when there is nothing more to do.
  std::optional<int> status() const { return status_; }
  const Options& options() const { return options_; }
  const WindowSystemTexts& texts() const { return texts_; }

 private:
  std::optional<int> judge() {
    QString error;
    const auto options = Options::parse(QCoreApplication::arguments(), error);
    if (!options) return fail(error + QLatin1Char('\n') + MainTexts::tr("Try --help."), 2);
    options_ = *options;
    if (!options_.styleToInstall.isEmpty()) return runInstallCommand(options_);
    // A tour changes settings, so it gets a root that nobody needs.
    if (options_.root.isEmpty() && options_.tourFolder.isEmpty())
      options_.root = Options::defaultRoot();
    std::optional<StartFailure> failure;
    if (!options_.root.isEmpty()) failure = checkRoot(options_.root);
    if (!failure && !options_.page.isEmpty())
      failure = checkPage(options_.page, LoadedBundle::defaultFolder(), options_.root);
    return failure ? std::optional(fail(failure->text, failure->status)) : std::nullopt;
  }

  Options options_;
  WindowSystemTexts texts_;
  std::optional<int> status_;
};

int runInWindow(int argc, char** argv, const Start& start) {
  forgetChildren();
  const auto application = connectToWindowSystem(argc, argv, start.texts());
  installTranslations();
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Frelta"));
  QGuiApplication::setDesktopFileName(QStringLiteral("com.tarno.frelta"));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.tarno.frelta")));
  followReadingDirection();
  chooseRenderBackend();

  const Options& options = start.options();
  const bool tour = !options.tourFolder.isEmpty();
  QTemporaryDir tourRoot;
  const QString root = options.root.isEmpty() ? tourRoot.path() : options.root;
  Appearance appearance(options.appearance);
  HostPlatform host(root.toStdString(), appearance);
  SettingsApplication settings(host.platform(), host.graphicsServices(), host.uiKitServices(),
                               appearance);
  QString error;
  if (!settings.open(LoadedBundle::defaultFolder(), error)) return fail(error, 1);
  if (!options.page.isEmpty()) settings.openPage(options.page);
  // A tour's pictures are all of one size.
  const WindowState state(WindowState::defaultFile());
  if (!tour) state.restore(*settings.window());
  settings.window()->show();
  if (tour) return Tour(settings, options.tourFolder).run() ? 0 : 1;
  const StyleDrop drop(*settings.window(), *settings.navigationController(), root.toStdString());
  const int status = QGuiApplication::exec();
  state.save(*settings.window());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const Start start(argc, argv);
  return start.status() ? *start.status() : runInWindow(argc, argv, start);
}
