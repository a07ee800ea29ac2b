#include "quick/ShownText.h"

namespace frelta {

namespace {

bool turnsDirection(QChar character) {
  const char16_t unit = character.unicode();
  return (unit >= 0x202a && unit <= 0x202e) || (unit >= 0x2066 && unit <= 0x2069);
}

}  // namespace

QString shownText(std::string_view text) {
  QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  for (QChar& character : shown)
    if (turnsDirection(character)) character = QChar::ReplacementCharacter;
  return shown;
}

}  // namespace frelta
