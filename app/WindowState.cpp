#include "app/WindowState.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <algorithm>

namespace frelta {

namespace {

const QString kSize = QStringLiteral("size");
const QString kPlace = QStringLiteral("place");
const QString kMaximized = QStringLiteral("maximized");
/// What must be in sight for a person to get hold of the window, points.
constexpr int kHandle = 48;

QRect availableGeometry(const QWindow& window) {
  const QScreen* screen = window.screen() ? window.screen() : QGuiApplication::primaryScreen();
  return screen ? screen->availableGeometry() : QRect();
}

bool isInSight(QPoint place, QSize size) {
  // By the middle of its upper edge, where a window is taken hold of.
  // A place read from a file may lie beyond what two whole numbers can be added to.
  const QRectF handle(place.x() + (size.width() - kHandle) / 2.0, place.y(), kHandle, kHandle);
  const auto screens = QGuiApplication::screens();
  return std::ranges::any_of(screens, [&](const QScreen* screen) {
    return QRectF(screen->availableGeometry()).contains(handle);
  });
}

}  // namespace

void WindowState::restore(QWindow& window) const {
  const QSettings settings(file_, QSettings::IniFormat);
  const QSize stored = settings.value(kSize).toSize();
  QSize size = stored.isValid() ? stored : window.size();
  const QSize largest = availableGeometry(window).size();
  if (!largest.isEmpty()) size = size.boundedTo(largest);
  window.resize(size.expandedTo(window.minimumSize()));
  // What is no point would read as the corner.
  const QVariant place = settings.value(kPlace);
  if (place.typeId() == QMetaType::QPoint && isInSight(place.toPoint(), window.size()))
    window.setFramePosition(place.toPoint());
  if (settings.value(kMaximized).toBool()) window.setWindowStates(Qt::WindowMaximized);
}

void WindowState::save(const QWindow& window) const {
  QSettings settings(file_, QSettings::IniFormat);
  const bool maximized = window.windowStates() & Qt::WindowMaximized;
  settings.setValue(kMaximized, maximized);
  // A maximized window goes back to the size that it had before.
  if (maximized) return;
  settings.setValue(kSize, window.size());
  settings.setValue(kPlace, window.framePosition());
}

QString WindowState::defaultFile() {
  QString folder = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(folder)) folder = QDir::homePath() + QStringLiteral("/.local/state");
  return folder + QStringLiteral("/frelta/window.ini");
}

}  // namespace frelta
