#pragma once

#include <QFont>
#include <QPointer>
#include <QString>
#include <QTextDocument>

namespace frelta {

/// Fills a text editor's document with text of any length, a little on each turn of the event loop,
/// in paragraphs of whole lines: the editor lays out and draws by the paragraph, and a line of a
/// million characters in one would stop the window for seconds.
class LongText : public QObject {
 public:
  /// Puts the text into the document, in place of what is there. The document belongs to the editor
  /// and outlives this, or is replaced by another call.
  void fill(QTextDocument* document, const QString& text, const QFont& font, double width);

  /// What the user selected in the editor, as it stands in the text.
  static QString textOfSelection(QString selected);

 private:
  void step();
  qsizetype lengthOfWholeLines(qsizetype start, qsizetype length) const;

  QPointer<QTextDocument> document_;
  QString text_;
  QFont font_;
  double width_ = 0;
  qsizetype position_ = 0;
  int filling_ = 0;  // tells the steps of this filling from those of the last
};

}  // namespace frelta
