#include "app/Translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace frelta {

void installTranslations() {
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(QLocale(), QStringLiteral("frelta"), QStringLiteral("_"),
                       QStringLiteral(":/frelta/translations")))
    QCoreApplication::installTranslator(translator);
}

}  // namespace frelta
