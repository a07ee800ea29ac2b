#include "app/WindowNotes.h"

#include <QQmlComponent>

#include "foundation/Log.h"
#include "quick/Fonts.h"

namespace frelta {

namespace {
constexpr double kFontSize = 15;
}

std::unique_ptr<QQuickItem> WindowNotes::add(QVariantMap properties) {
  if (!engine_) engine_ = std::make_unique<QQmlEngine>();
  if (!column_) column_ = make(QStringLiteral("Notes"), {}, window_.contentItem());
  properties[QStringLiteral("textFont")] = qtFont(UIFont::systemFontOfSize(kFontSize));
  properties[QStringLiteral("theme")] = QVariant::fromValue<QObject*>(&window_.mirror().theme());
  return make(QStringLiteral("Note"), properties, column_.get());
}

std::unique_ptr<QQuickItem> WindowNotes::make(const QString& file, const QVariantMap& properties,
                                              QQuickItem* parent) {
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
