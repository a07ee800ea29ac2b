#pragma once

#include <QObject>
#include <QQuickItem>
#include <chrono>
#include <memory>

#include "app/WindowNotes.h"

namespace frelta {

/// One place for a note at the foot of a window: it shows the latest thing that it was given.
class WindowNote : public QObject {
  Q_OBJECT

 public:
  /// The notes are not owned; they outlive this.
  explicit WindowNote(WindowNotes& notes) : notes_(notes) {}

  /// Says the text until it is hidden.
  void show(const QString& text);
  /// Says the text until the time is over, or until it is tapped.
  void showFor(std::chrono::milliseconds time, const QString& text);
  /// Says the text above a bar, with a button, until it is hidden.
  void showProgress(const QString& text, const QString& actionTitle);
  /// How much is done, 0 to 1, where showProgress() came last; else nothing happens.
  void setPart(double part);
  void hide() { item_.reset(); }

  /// What it says; empty when it is hidden.
  QString text() const;

 Q_SIGNALS:
  /// The button was pressed.
  void acted();

 private Q_SLOTS:
  void expire() { hide(); }

 private:
  void make(const QString& text, double part, std::chrono::milliseconds time,
            const QString& actionTitle);

  WindowNotes& notes_;
  std::unique_ptr<QQuickItem> item_;
};

}  // namespace frelta
