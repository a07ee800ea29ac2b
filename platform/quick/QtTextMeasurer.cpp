#include "quick/QtTextMeasurer.h"

#include <QFontMetricsF>
#include <QString>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "quick/Fonts.h"
#include "quick/ShownText.h"

namespace frelta {

namespace {
// Wide enough for any line, small enough that the layout's fixed-point numbers hold it.
constexpr double kNoLimit = 1e6;
constexpr std::size_t kMostRemembered = 1000;
constexpr std::size_t kLongestRemembered = 500;

CGSize measure(std::string_view text, const UIFont& font, double maximumWidth, int maximumLines) {
  const QFont qfont = qtFont(font);
  const double lineHeight = std::ceil(QFontMetricsF(qfont).height());
  if (text.empty()) return {0, lineHeight};

  QString string = shownText(text);
  string.replace(QLatin1Char('\n'), QChar::LineSeparator);
  QTextLayout layout(string, qfont);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  double width = 0;
  double height = 0;
  int lines = 0;
  while (maximumLines <= 0 || lines < maximumLines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(maximumWidth > 0 ? maximumWidth : kNoLimit);
    width = std::max(width, line.naturalTextWidth());
    // A font that steps in for characters that the first one lacks may need more room.
    height += line.height();
    ++lines;
  }
  layout.endLayout();
  return {std::ceil(width), std::max(lineHeight, std::ceil(height))};
}

}  // namespace

CGSize QtTextMeasurer::sizeOfText(std::string_view text, const UIFont& font, double maximumWidth,
                                  int maximumLines) const {
  if (text.size() > kLongestRemembered) return measure(text, font, maximumWidth, maximumLines);
  Key key(text, font.pointSize, font.weight, maximumWidth, maximumLines);
  const auto known = measured_.find(key);
  if (known != measured_.end()) return known->second;
  if (measured_.size() >= kMostRemembered) measured_.clear();
  return measured_[std::move(key)] = measure(text, font, maximumWidth, maximumLines);
}

}  // namespace frelta
