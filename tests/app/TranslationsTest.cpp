#include "app/Translations.h"

#include <gmock/gmock.h>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <set>
#include <string>

#include "app/StyleRefusalText.h"

namespace frelta {
namespace {

struct Texts {
  QStringList sources;
  QStringList translations;
  int unfinished = 0;
};

QString pathOf(const char* name) {
  return QStringLiteral(FRELTA_SOURCE "/app/translations/") + QString::fromLatin1(name);
}

Texts textsOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
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
  EXPECT_FALSE(xml.hasError()) << path.toStdString();
  return texts;
}

/// Without their order, which is another in a file that was brought up to date.
std::multiset<std::string> sourcesOf(const Texts& texts) {
  std::multiset<std::string> sources;
  for (const QString& source : texts.sources) sources.insert(source.toStdString());
  return sources;
}

int placesIn(const QString& text) {
  return static_cast<int>(text.count(QStringLiteral("%1")));
}

TEST(Translations, TheGermanOneIsCompleteAndHasTheTemplatesTexts) {
  const Texts pattern = textsOf(pathOf("frelta.ts"));
  const Texts german = textsOf(pathOf("frelta_de.ts"));

  EXPECT_FALSE(pattern.sources.isEmpty());
  EXPECT_EQ(sourcesOf(german), sourcesOf(pattern));
  EXPECT_EQ(german.unfinished, 0);
  for (qsizetype i = 0; i < german.sources.size(); ++i) {
    EXPECT_FALSE(german.translations[i].isEmpty()) << german.sources[i].toStdString();
    EXPECT_EQ(placesIn(german.translations[i]), placesIn(german.sources[i]))
        << german.sources[i].toStdString();
  }
}

TEST(Translations, TheTemplateHasEveryTextOfTheApplicationAndItsWindow) {
  const QTemporaryDir folder;
  const QString found = folder.filePath(QStringLiteral("found.ts"));
  QProcess lupdate;
  lupdate.start(
      QStringLiteral(FRELTA_LUPDATE),
      {QStringLiteral(FRELTA_SOURCE "/app"), QStringLiteral(FRELTA_SOURCE "/platform/quick"),
       QStringLiteral("-I"), QStringLiteral(FRELTA_SOURCE), QStringLiteral("-I"),
       QStringLiteral(FRELTA_SOURCE "/platform"), QStringLiteral("-ts"), found});
  ASSERT_TRUE(lupdate.waitForFinished(60'000));
  ASSERT_EQ(lupdate.exitCode(), 0);

  const Texts texts = textsOf(found);

  EXPECT_FALSE(texts.sources.isEmpty());
  EXPECT_EQ(sourcesOf(textsOf(pathOf("frelta.ts"))), sourcesOf(texts));
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

TEST(Translations, PagesAreMirroredForLanguagesThatAreReadFromTheRight) {
  QLocale::setDefault(QLocale(QLocale::German));
  followReadingDirection();
  const Qt::LayoutDirection german = QGuiApplication::layoutDirection();
  QLocale::setDefault(QLocale(QLocale::Arabic));

  followReadingDirection();

  EXPECT_EQ(german, Qt::LeftToRight);
  EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
  QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
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
