#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QUrl>
#include <QVariantMap>
#include <memory>

#include "quick/QuickWindow.h"

namespace frelta {

/// The foot of a window, where its notes stand above each other, and what is said beside them.
class WindowNotes {
 public:
  /// The window is not owned; it outlives this, and this outlives the notes.
  explicit WindowNotes(QuickWindow& window) : window_(window) {}

  /// A note with these properties; see Note.qml. Null when it cannot be made, which is logged.
  std::unique_ptr<QQuickItem> add(QVariantMap properties);
  /// Has screen readers say the text; nothing is shown.
  void announce(const QString& text);

 private:
  std::unique_ptr<QQuickItem> make(const QString& file, const QVariantMap& properties,
                                   QQuickItem* parent);

  QuickWindow& window_;
  // Once there is something to show.
  std::unique_ptr<QQmlEngine> engine_;
  std::unique_ptr<QQuickItem> column_;
  std::unique_ptr<QQuickItem> announcement_;
};

}  // namespace frelta
