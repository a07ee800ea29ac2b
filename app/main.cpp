#include <csignal>
#include <cstdio>

#include <QGuiApplication>
#include <QIcon>
#include <QTemporaryDir>
#include <optional>
#include <span>
#include <utility>

#include "app/BroadcastFollower.h"
#include "app/ChangeAnnouncer.h"
#include "app/FailureBar.h"
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

int fail(const StartFailure& failure) {
  std::fprintf(stderr, "frelta-settings: %s\n", terminalText(failure.text).constData());
  if (!failure.hint.isEmpty()) std::fprintf(stderr, "%s\n", terminalText(failure.hint).constData());
  return failure.status;
}

class MainTexts {
  Q_DECLARE_TR_FUNCTIONS(MainTexts)
};

/// What the command line asks for, or why it cannot be done.
struct Start {
  Options options;
  std::optional<StartFailure> failure;

  bool needsWindow() const {
    return !failure && !options.help && !options.version && options.styleToInstall.isEmpty();
  }
};

Start judge(const QStringList& arguments) {
  QString error;
  auto options = Options::parse(arguments, error);
  if (!options) return {{}, StartFailure{error, 2, MainTexts::tr("Try --help.")}};
  Start start{std::move(*options), std::nullopt};
  if (!start.needsWindow()) return start;
  // A tour changes settings, so it gets a root that nobody needs.
  if (start.options.root.isEmpty() && start.options.tourFolder.isEmpty())
    start.options.root = Options::defaultRoot();
  if (!start.options.tourFolder.isEmpty())
    start.failure = checkTourFolder(start.options.tourFolder);
  if (!start.failure && !start.options.root.isEmpty())
    start.failure = checkRoot(start.options.root);
  if (!start.failure && !start.options.page.isEmpty())
    start.failure =
        checkPage(start.options.page, LoadedBundle::defaultFolder(), start.options.root);
  return start;
}

int runOnTerminal(int argc, char** argv, const Start& judged) {
  const QCoreApplication application(argc, argv);
  installTranslations();
  // Once more, now that there is an application object for what is said to be translated; what
  // hindered may be gone by now, and no window opens here.
  const Start again = judge(QCoreApplication::arguments());
  const Start& start = again.needsWindow() ? judged : again;
  if (start.failure) return fail(*start.failure);
  if (start.options.help) {
    std::fputs(qPrintable(Options::helpText()), stdout);
    return 0;
  }
  if (start.options.version) {
    std::puts(qPrintable(Options::versionText()));
    return 0;
  }
  return runInstallCommand(start.options);
}

int runInWindow(int argc, char** argv, const Options& options) {
  forgetChildren();
  const auto application = connectToWindowSystem(argc, argv);
  installTranslations();
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Frelta"));
  QGuiApplication::setDesktopFileName(QStringLiteral("com.tarno.frelta"));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.tarno.frelta")));
  followReadingDirection();
  chooseRenderBackend();

  const bool tour = !options.tourFolder.isEmpty();
  QTemporaryDir tourRoot;
  const QString root = options.root.isEmpty() ? tourRoot.path() : options.root;
  Appearance appearance(options.appearance);
  HostPlatform host(root.toStdString(), appearance);
  SettingsApplication settings(host.platform(), host.graphicsServices(), host.uiKitServices(),
                               appearance);
  QString error;
  if (!settings.open(LoadedBundle::defaultFolder(), error)) return fail({error, 1});
  if (!options.page.isEmpty()) settings.openPage(options.page);
  // A tour's pictures are all of one size.
  const WindowState state(WindowState::defaultFile());
  if (!tour) state.restore(*settings.window());
  settings.window()->show();
  if (tour) return Tour(settings, options.tourFolder).run() ? 0 : 1;
  const BroadcastFollower follower(host.notifications(), *settings.navigationController());
  WindowNotes notes(*settings.window());
  const StyleDrop drop(*settings.window(), notes, *settings.navigationController(),
                       root.toStdString());
  const FailureBar failures(host.failures(), notes, *settings.navigationController());
  const ChangeAnnouncer announcer(host.removals(), follower, notes);
  const int status = QGuiApplication::exec();
  state.save(*settings.window());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("frelta-settings"));
  // Judged without an application object: where one of the terminal's had been, Qt would have taken
  // away what makes a window's items accessible.
  QStringList arguments;
  for (const char* argument : std::span(argv, argc))
    arguments.append(QString::fromLocal8Bit(argument));
  const Start start = judge(arguments);
  return start.needsWindow() ? runInWindow(argc, argv, start.options)
                             : runOnTerminal(argc, argv, start);
}
