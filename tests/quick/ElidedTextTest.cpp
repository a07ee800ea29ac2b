#include "quick/ElidedText.h"

#include <gtest/gtest.h>

namespace frelta {
namespace {

/// A thousand a, as many b and so on, to z.
QString alphabet() {
  QString text;
  for (char letter = 'a'; letter <= 'z'; ++letter) text += QString(1000, QLatin1Char(letter));
  return text;
}

QString shownOfAlphabet() {
  return QString(1000, 'a') + QChar(0x2026) + QString(1000, 'z');
}

TEST(ElidedText, ShowsWhatIsNotLongWhole) {
  ElidedText text;
  const QString longest(ElidedText::kLongestShown, 'x');

  text.setWhole(longest);

  EXPECT_EQ(text.shown(), longest);
  EXPECT_EQ(text.wholeOf(1, 3), "xx");
}

TEST(ElidedText, ShowsTheEndsOfWhatIsLong) {
  ElidedText text;

  text.setWhole(alphabet());

  EXPECT_EQ(text.whole(), alphabet());
  EXPECT_EQ(text.shown(), shownOfAlphabet());
}

TEST(ElidedText, CutsNoCharacterInTwo) {
  ElidedText text;
  const QString pair = QString::fromUtf8("😀");

  text.setWhole("x" + pair.repeated(4000) + "x");

  EXPECT_EQ(text.shown(), "x" + pair.repeated(499) + QChar(0x2026) + pair.repeated(499) + "x");
  EXPECT_EQ(text.wholeOf(0, text.shown().size()), text.whole());
}

TEST(ElidedText, TakesEditsOnEitherSide) {
  ElidedText text;
  text.setWhole(alphabet());

  text.edit("1" + text.shown());
  text.edit(text.shown() + "2");
  text.edit(QString(text.shown()).insert(1001, "3"));
  text.edit(QString(text.shown()).insert(1003, "4"));
  text.edit(text.shown().mid(1));

  EXPECT_EQ(text.whole(), alphabet().insert(25'000, "4").insert(1000, "3") + "2");
  EXPECT_EQ(text.shown(), shownOfAlphabet().insert(1001, "4").insert(1000, "3") + "2");
}

TEST(ElidedText, LeavesOutNothingOnceItsMarkIsGone) {
  ElidedText text;
  text.setWhole(alphabet());

  text.edit(QString(text.shown()).remove(999, 3));

  EXPECT_EQ(text.whole(), QString(999, 'a') + QString(999, 'z'));
  EXPECT_EQ(text.shown(), text.whole());
  EXPECT_EQ(text.wholeOf(998, 1000), "az");
}

TEST(ElidedText, GivesWhatARangeStandsFor) {
  ElidedText text;
  text.setWhole(alphabet());

  EXPECT_EQ(text.wholeOf(0, 1000), QString(1000, 'a'));
  EXPECT_EQ(text.wholeOf(1001, 2001), QString(1000, 'z'));
  EXPECT_EQ(text.wholeOf(999, 1002), alphabet().mid(999, 24'002));
  EXPECT_EQ(text.wholeOf(0, 2001), alphabet());
}

TEST(ElidedText, ShowsTheEndsAgainWhereWhatIsShownGrowsLong) {
  ElidedText text;
  text.setWhole(alphabet());

  text.edit(QString(5000, '0') + text.shown());

  EXPECT_EQ(text.whole(), QString(5000, '0') + alphabet());
  EXPECT_EQ(text.shown(), QString(1000, '0') + QChar(0x2026) + QString(1000, 'z'));
}

TEST(ElidedText, TakesAnEditOfAShortText) {
  ElidedText text;
  text.setWhole("abcabc");

  text.edit("abcabcabc");
  text.edit("c");
  text.edit("");

  EXPECT_EQ(text.whole(), "");
  EXPECT_EQ(text.shown(), "");
}

}  // namespace
}  // namespace frelta
