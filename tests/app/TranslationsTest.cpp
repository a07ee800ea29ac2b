#include "app/Translations.h"

#include <gmock/gmock.h>
#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QXmlStreamReader>

#include "app/StyleRefusalText.h"

namespace frelta {
namespace {

struct Texts {
  QStringList sources;
  QStringList translations;
  int unfinished = 0;
};

Texts textsOf(const char* name) {
  QFile file(QStringLiteral(FRELTA_TRANSLATIONS "/") + QString::fromLatin1(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
  Texts texts;
  QXmlStreamReader xml(&file);
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == QStringLiteral("source")) texts.sources.append(xml.readElementText());
    if (xml.name() == QStringLiteral("translation")) {
      texts.unfinished += xml.attributes().value(QStringLiteral("type")).isEmpty() ? 0 : 1;
      texts.translations.append(xml.readElementText());
    }
  }
  EXPECT_FALSE(xml.hasError()) << name;
  return texts;
}

int placesIn(const QString& text) {
  return static_cast<int>(text.count(QStringLiteral("%1")));
}

TEST(Translations, TheGermanOneIsCompleteAndHasTheTemplatesTexts) {
  const Texts pattern = textsOf("frelta.ts");
  const Texts german = textsOf("frelta_de.ts");

  EXPECT_FALSE(pattern.sources.isEmpty());
  EXPECT_EQ(german.sources, pattern.sources);
  EXPECT_EQ(german.unfinished, 0);
  for (qsizetype i = 0; i < german.sources.size(); ++i) {
    EXPECT_FALSE(german.translations[i].isEmpty()) << german.sources[i].toStdString();
    EXPECT_EQ(placesIn(german.translations[i]), placesIn(german.sources[i]))
        << german.sources[i].toStdString();
  }
}

TEST(Translations, AreUsedInTheUsersLanguage) {
  QLocale::setDefault(QLocale(QLocale::German));
  const StyleRefusal refusal{StyleRefusalReason::Link, "Images/a"};
  const QString before = textOfRefusal(QStringLiteral("a.zip"), refusal);

  installTranslations();

  EXPECT_EQ(before, QStringLiteral("“a.zip” was not installed. “Images/a” in it is a link, and "
                                   "styles may not hold links."));
  EXPECT_EQ(textOfRefusal(QStringLiteral("a.zip"), refusal),
            QStringLiteral("„a.zip“ wurde nicht installiert. „Images/a“ darin ist eine "
                           "Verknüpfung, und Stile dürfen keine Verknüpfungen enthalten."));
}

TEST(Translations, EveryRefusalHasATextWithoutGaps) {
  for (int i = 0; i <= static_cast<int>(StyleRefusalReason::Cancelled); ++i) {
    for (const char* detail : {"", "Images/a"}) {
      const QString text =
          textOfRefusal(QStringLiteral("a.zip"), {static_cast<StyleRefusalReason>(i), detail});

      EXPECT_TRUE(text.startsWith(QStringLiteral("“a.zip” was not installed. "))) << i;
      EXPECT_TRUE(text.endsWith(u'.') && text.size() > 35) << i;
      EXPECT_FALSE(text.contains(u'%')) << i;
    }
  }
}

}  // namespace
}  // namespace frelta
