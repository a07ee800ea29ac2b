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
#include "app/StyleDrop.h"
#include "app/TerminalText.h"
#include "app/Tour.h"
#include "app/Translations.h"
#include "app/WindowState.h"
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

std::optional<Options> parseOptions(QString& error) {
  QCoreApplication::setApplicationName(QStringLiteral("frelta-settings"));
  installTranslations();
  auto options = Options::parse(QCoreApplication::arguments(), error);
  if (!options) error += QLatin1Char('\n') + MainTexts::tr("Try --help.");
  return options;
}

int runOnTerminal(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QString error;
  const auto options = parseOptions(error);
  return options ? runInstallCommand(*options) : fail(error, 2);
}

int runInWindow(int argc, char** argv) {
  forgetChildren();
  QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Frelta"));
  QGuiApplication::setDesktopFileName(QStringLiteral("com.tarno.frelta"));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.tarno.frelta")));
  followReadingDirection();

  QString error;
  const auto options = parseOptions(error);
  if (!options) return fail(error, 2);
  chooseRenderBackend();

  // A tour changes settings, so it gets a root that nobody needs.
  QTemporaryDir tourRoot;
  const bool tour = !options->tourFolder.isEmpty();
  const QString root = !options->root.isEmpty() ? options->root
                       : tour                   ? tourRoot.path()
                                                : Options::defaultRoot();
  Appearance appearance(options->appearance);
  HostPlatform host(root.toStdString(), appearance);
  SettingsApplication settings(host.platform(), host.graphicsServices(), host.uiKitServices(),
                               appearance);
  if (!settings.open(LoadedBundle::defaultFolder(), error)) return fail(error, 1);
  if (!options->page.isEmpty() && !settings.openPage(options->page)) {
    return fail(MainTexts::tr("There is no page \"%1\".").arg(options->page), 2);
  }
  // A tour's pictures are all of one size.
  const WindowState state(WindowState::defaultFile());
  if (!tour) state.restore(*settings.window());
  settings.window()->show();
  if (tour) return Tour(settings, options->tourFolder).run() ? 0 : 1;
  const StyleDrop drop(*settings.window(), *settings.navigationController(), root.toStdString());
  const int status = QGuiApplication::exec();
  state.save(*settings.window());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const QStringList arguments(argv + 1, argv + argc);
  return Options::areForTerminal(arguments) ? runOnTerminal(argc, argv) : runInWindow(argc, argv);
}
