#include "app/Translations.h"

#include <QGuiApplication>
#include <QLocale>
#include <QTranslator>

namespace frelta {

void installTranslations() {
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(QLocale(), QStringLiteral("frelta"), QStringLiteral("_"),
                       QStringLiteral(":/frelta/translations")))
    QCoreApplication::installTranslator(translator);
}

void followReadingDirection() {
  if (QLocale().textDirection() == Qt::RightToLeft)
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
}

}  // namespace frelta
