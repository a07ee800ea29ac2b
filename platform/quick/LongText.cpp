#include "quick/LongText.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <algorithm>

namespace frelta {

namespace {

constexpr qsizetype kParagraphLength = 4096;
constexpr int kParagraphsAtOnce = 4;

}  // namespace

void LongText::fill(QTextDocument* document, const QString& text, const QFont& font, double width) {
  document_ = document;
  text_ = text;
  // A line break of the text is one within a paragraph, so that the breaks between paragraphs are
  // all of this class's own making.
  text_.replace(QLatin1Char('\n'), QChar::LineSeparator);
  font_ = font;
  width_ = width;
  position_ = 0;
  ++filling_;
  document->setUndoRedoEnabled(false);
  document->clear();
  step();
}

QString LongText::textOfSelection(QString selected) {
  selected.remove(QChar::ParagraphSeparator);
  return selected.replace(QChar::LineSeparator, QLatin1Char('\n'));
}

void LongText::step() {
  if (!document_) return;
  QTextCursor cursor(document_);
  cursor.movePosition(QTextCursor::End);
  for (int i = 0; i < kParagraphsAtOnce && position_ < text_.size(); ++i) {
    const qsizetype rest = text_.size() - position_;
    const qsizetype length =
        rest <= kParagraphLength ? rest : lengthOfWholeLines(position_, kParagraphLength);
    if (position_ > 0) cursor.insertBlock();
    cursor.insertText(text_.mid(position_, length));
    position_ += length;
  }
  if (position_ == text_.size()) return;
  QMetaObject::invokeMethod(
      this,
      [this, filling = filling_] {
        if (filling == filling_) step();
      },
      Qt::QueuedConnection);
}

qsizetype LongText::lengthOfWholeLines(qsizetype start, qsizetype length) const {
  QTextLayout layout(text_.mid(start, length), font_);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  int lastLine = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width_);
    lastLine = line.textStart();
  }
  layout.endLayout();
  // The last line goes on in the next paragraph.
  return lastLine > 0 ? lastLine : length;
}

}  // namespace frelta
