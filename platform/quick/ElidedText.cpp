#include "quick/ElidedText.h"

#include <algorithm>

namespace frelta {

namespace {

constexpr QChar kMark(0x2026);
/// Of what is shown on either side of the mark.
constexpr qsizetype kSide = 1000;

}  // namespace

void ElidedText::setWhole(const QString& whole) {
  whole_ = whole;
  shown_ = whole;
  mark_ = -1;
  leftOut_ = 0;
  if (whole.size() <= kLongestShown) return;
  // No character is cut in two.
  mark_ = kSide - (whole[kSide - 1].isHighSurrogate() ? 1 : 0);
  const qsizetype end = whole.size() - kSide;
  const qsizetype resumed = end + (whole[end].isLowSurrogate() ? 1 : 0);
  leftOut_ = resumed - mark_;
  shown_ = whole.left(mark_) + kMark + whole.mid(resumed);
}

void ElidedText::edit(const QString& shown) {
  const qsizetype shorter = std::min(shown.size(), shown_.size());
  const auto same = std::mismatch(shown.begin(), shown.begin() + shorter, shown_.begin());
  const qsizetype before = same.first - shown.begin();
  const auto sameAfter =
      std::mismatch(shown.rbegin(), shown.rbegin() + (shorter - before), shown_.rbegin());
  const qsizetype after = sameAfter.first - shown.rbegin();
  const qsizetype end = shown_.size() - after;

  const qsizetype start = positionInWhole(before);
  whole_.replace(start, positionInWhole(end) - start,
                 shown.mid(before, shown.size() - after - before));
  if (mark_ >= end) {
    mark_ += shown.size() - shown_.size();
  } else if (mark_ >= before) {
    mark_ = -1;
    leftOut_ = 0;
  }
  shown_ = shown;
  if (shown_.size() > kLongestShown) setWhole(QString(whole_));
}

QString ElidedText::wholeOf(qsizetype start, qsizetype end) const {
  const qsizetype first = positionInWhole(start);
  return whole_.mid(first, positionInWhole(end) - first);
}

qsizetype ElidedText::positionInWhole(qsizetype shown) const {
  return mark_ < 0 || shown <= mark_ ? shown : shown + leftOut_ - 1;
}

}  // namespace frelta
