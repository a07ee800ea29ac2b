// The peer of root_page_window: an empty Qt Quick window, up to its first frame.

#include <QGuiApplication>
#include <QQuickView>

#include "FirstFrame.h"

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
  QQuickView view;
  view.setSource(QUrl::fromLocalFile(QStringLiteral(EMPTY_QML)));
  view.resize(480, 800);
  quitAfterFirstFrame(view);
  view.show();
  return QGuiApplication::exec();
}
