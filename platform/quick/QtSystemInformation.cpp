#include "quick/QtSystemInformation.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace frelta {

std::vector<SystemInformation::Window> QtSystemInformation::windows() const {
  std::vector<Window> windows;
  for (const QWindow* window : QGuiApplication::topLevelWindows()) {
    windows.push_back({window == QGuiApplication::focusWindow(), appearance_.style()});
  }
  return windows;
}

double QtSystemInformation::screenScale() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? std::clamp(std::ceil(screen->devicePixelRatio()), 1.0, 3.0) : 1.0;
}

}  // namespace frelta
