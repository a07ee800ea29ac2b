#include "app/WindowNotes.h"

#include <QQmlComponent>

#include "foundation/Log.h"
#include "quick/Fonts.h"
#include "quick/ShownText.h"

namespace frelta {

namespace {
constexpr double kFontSize = 15;
}

std::unique_ptr<QQuickItem> WindowNotes::add(QVariantMap properties) {
  if (!column_) column_ = make(QStringLiteral("Notes"), {}, window_.contentItem());
  properties[QStringLiteral("textFont")] = qtFont(UIFont::systemFontOfSize(kFontSize));
  properties[QStringLiteral("theme")] = QVariant::fromValue<QObject*>(&window_.mirror().theme());
  return make(QStringLiteral("Note"), properties, column_.get());
}

void WindowNotes::announce(const QString& text) {
  if (!announcement_)
    announcement_ = make(QStringLiteral("Announcement"), {}, window_.contentItem());
  if (!announcement_) return;
  // What appears is read.
  announcement_->setVisible(false);
  announcement_->setProperty("text", shownText(text.toStdString()));
  announcement_->setVisible(true);
}

std::unique_ptr<QQuickItem> WindowNotes::make(const QString& file, const QVariantMap& properties,
                                              QQuickItem* parent) {
  if (!engine_) engine_ = std::make_unique<QQmlEngine>();
  QQmlComponent component(engine_.get(), QUrl(QStringLiteral("qrc:/frelta/app/%1.qml").arg(file)));
  std::unique_ptr<QQuickItem> item(
      qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
  if (item)
    item->setParentItem(parent);
  else
    freltaLog("WindowNotes " + component.errorString().toStdString());
  return item;
}

}  // namespace frelta
