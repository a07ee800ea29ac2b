// The real application's start, up to the first frame of the root page.

#include <QGuiApplication>
#include <cstdio>

#include "FirstFrame.h"
#include "app/HostPlatform.h"
#include "app/LoadedBundle.h"
#include "app/SettingsApplication.h"
#include "quick/RenderBackend.h"

int main(int argc, char** argv) {
  using namespace frelta;
  QGuiApplication application(argc, argv);
  chooseRenderBackend();
  Appearance appearance(std::nullopt);
  HostPlatform host(argv[1], appearance);
  SettingsApplication settings(host.platform(), host.graphicsServices(), host.uiKitServices(),
                               appearance);
  QString error;
  if (!settings.open(LoadedBundle::defaultFolder(), error)) {
    std::fprintf(stderr, "%s\n", qPrintable(error));
    return 1;
  }
  quitAfterFirstFrame(*settings.window());
  settings.window()->show();
  return QGuiApplication::exec();
}
