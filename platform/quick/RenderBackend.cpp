#include "quick/RenderBackend.h"

#include <QDir>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

namespace frelta {

namespace {

bool hasRealGpu() {
  if (QGuiApplication::platformName() == QLatin1String("offscreen")) return false;
  if (QDir(QStringLiteral("/dev/dri"))
          .entryList({QStringLiteral("renderD*")}, QDir::System)
          .isEmpty()) {
    return false;
  }
  QOffscreenSurface surface;
  surface.create();
  QOpenGLContext context;
  if (!surface.isValid() || !context.create() || !context.makeCurrent(&surface)) return false;
  const auto* name = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
  const QByteArray renderer = QByteArray(name ? name : "").toLower();
  context.doneCurrent();
  return !renderer.isEmpty() && !renderer.contains("llvmpipe") && !renderer.contains("softpipe") &&
         !renderer.contains("swrast") && !renderer.contains("software");
}

}  // namespace

void chooseRenderBackend() {
  if (!qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) return;
  if (!hasRealGpu()) QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
}

}  // namespace frelta
