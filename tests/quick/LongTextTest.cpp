#include "quick/LongText.h"

#include <gmock/gmock.h>
#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QTextBlock>

#include "quick/QtPasteboard.h"

namespace frelta {
namespace {

QString noise(int length) {
  QString text;
  unsigned seed = 1;
  for (int i = 0; i < length; ++i) {
    seed = seed * 1664525 + 1013904223;
    text += QChar(u'A' + static_cast<char16_t>(seed >> 27));
  }
  return text;
}

// The text as a user who selects everything copies it.
QString copied(const QTextDocument& document) {
  QTextCursor cursor(const_cast<QTextDocument*>(&document));
  cursor.select(QTextCursor::Document);
  return LongText::textOfSelection(cursor.selectedText());
}

TEST(LongText, OfManyPiecesIsCopiedAsItIs) {
  const QString text = QStringLiteral("First\n\n") + noise(100'000);
  QTextDocument document;
  LongText longText;

  longText.fill(&document, text, QFont(), 200);
  EXPECT_LT(document.characterCount(), text.size()) << "the rest comes on later turns";
  for (int turn = 0; turn < 100; ++turn) QCoreApplication::processEvents();

  EXPECT_GT(document.blockCount(), 20);
  EXPECT_EQ(copied(document), text);
}

TEST(LongText, BreaksParagraphsOnlyWhereALineEnds) {
  const QString text = noise(50'000);
  const QFont font;
  constexpr double kWidth = 200;
  QTextDocument document;
  document.setDefaultFont(font);
  document.setDocumentMargin(0);
  document.setTextWidth(kWidth);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document.setDefaultTextOption(option);
  LongText longText;

  longText.fill(&document, text, font, kWidth);
  for (int turn = 0; turn < 100; ++turn) QCoreApplication::processEvents();
  document.documentLayout()->documentSize();

  const QFontMetricsF metrics(font);
  for (QTextBlock block = document.begin(); block.next().isValid(); block = block.next()) {
    const QTextLine last = block.layout()->lineAt(block.layout()->lineCount() - 1);
    const double next = metrics.horizontalAdvance(block.next().text().front());
    EXPECT_GT(last.naturalTextWidth() + next, kWidth - 1) << block.blockNumber();
  }
}

TEST(LongText, FilledAnewForgetsTheRestOfTheLastText) {
  QTextDocument document;
  LongText longText;
  longText.fill(&document, noise(100'000), QFont(), 200);

  longText.fill(&document, QStringLiteral("short"), QFont(), 200);
  for (int turn = 0; turn < 100; ++turn) QCoreApplication::processEvents();

  EXPECT_EQ(copied(document), QStringLiteral("short"));
}

TEST(QtPasteboard, HoldsTextByteForByte) {
  QtPasteboard pasteboard;
  const std::string text = noise(1'500'000).toStdString() + "+/= \n é😀";

  pasteboard.setString(text);

  EXPECT_TRUE(pasteboard.string() == text);
}

}  // namespace
}  // namespace frelta
