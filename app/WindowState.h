#pragma once

#include <QString>
#include <QWindow>

namespace frelta {

/// Where the window was when it was last closed, in a file that may be missing or hold anything.
class WindowState {
 public:
  explicit WindowState(QString file) : file_(std::move(file)) {}

  /// Gives the window the size and, where the desktop lets it, the place; without a stored size it
  /// keeps its own. Never smaller than its minimum, never larger than the screen's work area, never
  /// out of sight.
  void restore(QWindow& window) const;
  /// Failure is ignored: the next start is then as if this one had not been.
  void save(const QWindow& window) const;

  /// $XDG_STATE_HOME/frelta/window.ini, by the XDG base directory rules.
  static QString defaultFile();

 private:
  QString file_;
};

}  // namespace frelta
