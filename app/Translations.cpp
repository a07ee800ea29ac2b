#include "app/Translations.h"

#include <QGuiApplication>
#include <QLocale>
#include <QTranslator>

namespace frelta {

namespace {

bool load(QTranslator& translator) {
  return translator.load(QLocale(), QStringLiteral("frelta"), QStringLiteral("_"),
                         QStringLiteral(":/frelta/translations"));
}

}  // namespace

void installTranslations() {
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (load(*translator)) QCoreApplication::installTranslator(translator);
}

QString earlyText(const char* context, const char* text) {
  QTranslator translator;
  const QString translated = load(translator) ? translator.translate(context, text) : QString();
  return translated.isEmpty() ? QString::fromUtf8(text) : translated;
}

void followReadingDirection() {
  if (QLocale().textDirection() == Qt::RightToLeft)
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
}

}  // namespace frelta
