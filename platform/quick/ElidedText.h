#pragma once

#include <QString>

namespace frelta {

/// A text of any length and the short one that an editor shows of it: the start, a mark for what is
/// left out, and the end. What the editor makes of the short one is done to the whole. Positions
/// are UTF-16 units.
class ElidedText {
 public:
  /// A text no longer than this is shown whole; an editor lays out a line of a megabyte for
  /// seconds.
  static constexpr qsizetype kLongestShown = 4000;

  const QString& whole() const { return whole_; }
  const QString& shown() const { return shown_; }

  void setWhole(const QString& whole);
  /// The editor shows this now, in place of shown(). What is left out goes only with its mark.
  void edit(const QString& shown);
  /// What stands for a range of the shown text, its end not included.
  QString wholeOf(qsizetype start, qsizetype end) const;

 private:
  qsizetype positionInWhole(qsizetype shown) const;

  QString whole_;
  QString shown_;
  qsizetype mark_ = -1;    // where it is in the shown text; -1 where that is the whole
  qsizetype leftOut_ = 0;  // how much the mark stands for
};

}  // namespace frelta
