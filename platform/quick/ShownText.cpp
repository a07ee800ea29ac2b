#include "quick/ShownText.h"

namespace frelta {

namespace {

bool turnsDirection(QChar character) {
  const char16_t unit = character.unicode();
  return (unit >= 0x202a && unit <= 0x202e) || (unit >= 0x2066 && unit <= 0x2069);
}

bool breaksTheSentence(QChar character) {
  return character.category() == QChar::Other_Control ||
         character.category() == QChar::Separator_Line ||
         character.category() == QChar::Separator_Paragraph;
}

constexpr qsizetype kLongestName = 60;
constexpr QChar kLeftOut(0x2026);

}  // namespace

QString shownText(std::string_view text) {
  QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  for (QChar& character : shown)
    if (turnsDirection(character)) character = QChar::ReplacementCharacter;
  return shown;
}

QString shownName(std::string_view name) {
  QString shown = shownText(name);
  for (QChar& character : shown)
    if (breaksTheSentence(character)) character = QChar::ReplacementCharacter;
  if (shown.size() <= kLongestName) return shown;
  // No character is cut in two.
  qsizetype head = kLongestName / 2;
  qsizetype tail = shown.size() - kLongestName / 2 + 1;
  if (shown[head - 1].isHighSurrogate()) --head;
  if (shown[tail].isLowSurrogate()) ++tail;
  return shown.left(head) + kLeftOut + shown.mid(tail);
}

}  // namespace frelta
