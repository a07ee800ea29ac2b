#include "quick/QtTextMeasurer.h"

#include <gmock/gmock.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <cmath>
#include <memory>

#include "quick/Fonts.h"

namespace frelta {
namespace {

struct Sample {
  const char* name;
  const char* text;
  UIFont font;
  double width;
  int lines;
};

void PrintTo(const Sample& sample, std::ostream* stream) {
  *stream << sample.name;
}

/// What the window's own text item makes of the same text.
CGSize paintedSize(const Sample& sample) {
  static QQmlEngine engine;
  static QQmlComponent component(&engine);
  if (component.status() == QQmlComponent::Null) {
    component.setData("import QtQuick\nText { textFormat: Text.PlainText }", QUrl());
  }
  const std::unique_ptr<QObject> text(component.create());
  text->setProperty("font", qtFont(sample.font));
  text->setProperty("text", QString::fromUtf8(sample.text));
  if (sample.width > 0) {
    text->setProperty("width", sample.width);
    text->setProperty("wrapMode", 4);  // Text.Wrap
  }
  if (sample.lines > 0) text->setProperty("maximumLineCount", sample.lines);
  return {std::ceil(text->property("contentWidth").toDouble()),
          std::ceil(text->property("contentHeight").toDouble())};
}

class QtTextMeasurerTest : public testing::TestWithParam<Sample> {};

TEST_P(QtTextMeasurerTest, AgreesWithWhatIsPainted) {
  const Sample& sample = GetParam();
  const QtTextMeasurer measurer;

  const CGSize size = measurer.sizeOfText(sample.text, sample.font, sample.width, sample.lines);

  EXPECT_EQ(size, paintedSize(sample));
}

constexpr const char* kLong =
    "The settings take effect when the keyboard is shown again. Some applications keep theirs "
    "open.";

INSTANTIATE_TEST_SUITE_P(
    Texts, QtTextMeasurerTest,
    testing::Values(Sample{"Empty", "", {17}, 0, 1}, Sample{"Regular", "Enabled", {17}, 0, 1},
                    Sample{"Semibold", "Enabled", UIFont::semiboldSystemFontOfSize(17), 0, 1},
                    Sample{"LargeBold", "Enabled", UIFont::boldSystemFontOfSize(30), 0, 1},
                    Sample{"AccentsAndDescenders", "gjpqy ÄÖÜ", {13}, 0, 1},
                    Sample{"LongLine", kLong, {13}, 0, 1},
                    Sample{"LongInWideLines", kLong, {13}, 250, 0},
                    Sample{"LongInNarrowLines", kLong, {17}, 100, 0},
                    Sample{"FirstTwoLines", kLong, {13}, 250, 2},
                    Sample{"LineBreak", "two\nlines", {13}, 250, 0},
                    Sample{"LongWord", "Donaudampfschifffahrtsgesellschaft", {17}, 80, 0},
                    Sample{"BlanksAtTheEnd", "blanks at the end   ", {17}, 0, 1},
                    Sample{"RightToLeft", "العربية والعبرية", {17}, 0, 1},
                    Sample{"WithoutBlanks", "日本語の設定", {17}, 60, 0},
                    Sample{"OneFontStepsIn", "Ⓐ to Ⓩ", {17}, 0, 1},
                    Sample{"AnotherStepsInLarge", "Ⓐ", UIFont::boldSystemFontOfSize(35), 0, 1},
                    Sample{"OneStepsInOnTheSecondLine", "plain\nⒶ\nplain", {35}, 250, 0},
                    Sample{"OneStepsInBehindTheLastLine", "plain\nplain\nⒶ", {35}, 250, 2},
                    Sample{"SeveralScripts", "설정 日本 עברית العربية Ⓐ १२३ ไทย 😀", {17}, 90, 0},
                    Sample{"MarksOnMarks", "ẳ̷̉᷍ ᷉a", {30}, 0, 1}),
    [](const auto& test) { return test.param.name; });

TEST(QtTextMeasurer, SizesAreWholePointsAndEmptyTextHasOneLine) {
  const QtTextMeasurer measurer;

  const CGSize empty = measurer.sizeOfText("", {17}, 0, 1);
  const CGSize some = measurer.sizeOfText("some", {17}, 0, 1);

  EXPECT_EQ(empty.width, 0);
  EXPECT_EQ(empty.height, some.height);
  EXPECT_EQ(some.width, std::ceil(some.width));
  EXPECT_GT(some.width, 20);
}

TEST(QtTextMeasurer, ALineIsAsHighAsTheTallestFontInIt) {
  const QtTextMeasurer measurer;
  const bool firstFontHasIt = qtFont({17}).family() == QStringLiteral("Inter");

  const double plain = measurer.sizeOfText("A", {17}, 0, 1).height;
  const double circled = measurer.sizeOfText("Ⓐ", {17}, 0, 1).height;

  EXPECT_EQ(circled > plain, !firstFontHasIt);
}

}  // namespace
}  // namespace frelta
