#include "app/WindowNote.h"

#include "quick/ShownText.h"

namespace frelta {

namespace {
constexpr double kNoBar = -1;
constexpr std::chrono::milliseconds kForever{0};
}  // namespace

void WindowNote::show(const QString& text) {
  make(text, kNoBar, kForever, {});
}

void WindowNote::showFor(std::chrono::milliseconds time, const QString& text) {
  make(text, kNoBar, time, {});
}

void WindowNote::showProgress(const QString& text, const QString& actionTitle) {
  make(text, 0, kForever, actionTitle);
}

void WindowNote::setPart(double part) {
  if (item_ && item_->property("part").toDouble() >= 0) item_->setProperty("part", part);
}

QString WindowNote::text() const {
  return item_ ? item_->property("text").toString() : QString();
}

void WindowNote::make(const QString& text, double part, std::chrono::milliseconds time,
                      const QString& actionTitle) {
  item_ = notes_.add({
      {QStringLiteral("text"), shownText(text.toStdString())},
      {QStringLiteral("part"), part},
      {QStringLiteral("time"), static_cast<int>(time.count())},
      {QStringLiteral("actionTitle"), actionTitle},
  });
  if (!item_) return;
  // Queued: its own event ends before it goes.
  connect(item_.get(), SIGNAL(acted()), this, SIGNAL(acted()), Qt::QueuedConnection);
  connect(item_.get(), SIGNAL(expired()), this, SLOT(expire()), Qt::QueuedConnection);
}

}  // namespace frelta
