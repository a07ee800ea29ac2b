#include "quick/ShownText.h"

#include <gmock/gmock.h>

#include "quick/QtTextMeasurer.h"

namespace frelta {
namespace {

TEST(ShownText, IsTheTextAsItIs) {
  EXPECT_EQ(shownText(""), QString());
  EXPECT_EQ(shownText("größe 鍵盤 🎹 שלום\u200f\u2029\u202f"),
            QStringLiteral("größe 鍵盤 🎹 שלום\u200f\u2029\u202f"));
}

TEST(ShownText, ShowsWhatWouldTurnTheDirection) {
  EXPECT_EQ(shownText("a\u202a\u202b\u202c\u202d\u202e"),
            QStringLiteral("a") + QString(5, u'\uFFFD'));
  EXPECT_EQ(shownText("\u2066\u2067\u2068\u2069z"), QString(4, u'\uFFFD') + QStringLiteral("z"));
  EXPECT_EQ(shownText("\u2065\u206a"), QStringLiteral("\u2065\u206a"));
}

TEST(ShownName, IsOneLineOfASentence) {
  EXPECT_EQ(shownName("plain name 鍵盤 🎹"), QStringLiteral("plain name 鍵盤 🎹"));
  EXPECT_EQ(shownName("a\n\r\t\u2028\u2029\u0085\u202e"),
            QStringLiteral("a") + QString(7, u'\uFFFD'));
}

TEST(ShownName, LosesTheMiddleOfWhatIsLong) {
  const std::string head(30, 'h');
  const std::string tail(29, 't');

  EXPECT_EQ(shownName(head + "m" + tail), QString::fromStdString(head + "m" + tail));
  EXPECT_EQ(shownName(head + "mm" + tail), QString::fromStdString(head + "…" + tail));
}

TEST(ShownName, CutsNoCharacterInTwo) {
  std::string name = "x";
  for (int i = 0; i < 60; ++i) name += "😀";

  const QString shown = shownName(name);

  EXPECT_EQ(shown, QStringLiteral("x") + QStringLiteral("😀").repeated(14) + QChar(0x2026) +
                       QStringLiteral("😀").repeated(14));
}

TEST(ShownText, OfANameThatPosesAsAnotherIsMeasuredAsItIsPainted) {
  const QtTextMeasurer measurer;
  const UIFont font = UIFont::systemFontOfSize(17);

  const CGSize posing = measurer.sizeOfText("a\u202eemeht", font, 0, 1);
  const CGSize shown = measurer.sizeOfText("a\uFFFDemeht", font, 0, 1);

  EXPECT_EQ(posing.width, shown.width);
}

}  // namespace
}  // namespace frelta
