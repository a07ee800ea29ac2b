#include <csignal>
#include <cstdio>

#include <QGuiApplication>
#include <QTemporaryDir>

#include "app/HostPlatform.h"
#include "app/LoadedBundle.h"
#include "app/Options.h"
#include "app/SettingsApplication.h"
#include "app/Tour.h"
#include "quick/RenderBackend.h"

namespace {

// Children are started and forgotten; none may stay behind as a zombie.
void forgetChildren() {
  struct sigaction action = {};
  action.sa_handler = SIG_DFL;
  action.sa_flags = SA_NOCLDWAIT;
  sigaction(SIGCHLD, &action, nullptr);
}

int fail(const QString& message, int status) {
  std::fprintf(stderr, "frelta-settings: %s\n", qPrintable(message));
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace frelta;
  forgetChildren();
  QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationName(QStringLiteral("frelta-settings"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Frelta"));
  QGuiApplication::setDesktopFileName(QStringLiteral("com.tarno.frelta"));

  QString error;
  const std::optional<Options> options = Options::parse(application.arguments(), error);
  if (!options) return fail(error + QStringLiteral("\nTry --help."), 2);
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
    return fail(QStringLiteral("There is no page \"%1\".").arg(options->page), 2);
  }
  settings.window()->show();
  if (tour) return Tour(settings, options->tourFolder).run() ? 0 : 1;
  return QGuiApplication::exec();
}
