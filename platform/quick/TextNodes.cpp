#include "quick/TextNodes.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

#include "quick/EventGuard.h"
#include "quick/Fonts.h"
#include "quick/ShownText.h"
#include "quick/TextAlignment.h"
#include "quick/ViewMirror.h"

namespace frelta {

namespace {
// More than any window shows; laying out megabytes in one line would stop it.
constexpr qsizetype kLongestLine = 2000;

// Points. Smaller letters are no help to anybody: a text that would shrink further is elided, in
// the middle, since names are told apart by their beginnings and ends.
constexpr double kLeastReadableSize = 9;
}  // namespace

void LabelNode::syncContents() {
  const UILabel& label = *viewAs<UILabel>(*this);
  text_ = shownText(label.text());
  if (label.numberOfLines() == 1) text_.truncate(kLongestLine);
  font_ = qtFont(label.font());
  color_ = mirror().theme().resolve(label.textColor());
  alignment_ = qtAlignment(label.textAlignment(), mirror().isRightToLeft());
  lines_ = label.numberOfLines();
  minimumPixelSize_ = 0;
  elidesMiddle_ = false;
  if (!label.adjustsFontSizeToFitWidth()) return;
  const double size = label.font().pointSize;
  const double least = size * label.minimumScaleFactor();
  elidesMiddle_ = least < std::min(size, kLeastReadableSize);
  minimumPixelSize_ = static_cast<int>(std::max(least, std::min(size, kLeastReadableSize)));
}

void TextFieldNode::syncContents() {
  const UITextField& field = *viewAs<UITextField>(*this);
  const QString whole = QString::fromStdString(field.text());
  if (whole != elided_.whole()) elided_.setWhole(whole);
  text_ = elided_.shown();
  placeholder_ = QString::fromStdString(field.placeholder());
  font_ = qtFont(field.font());
  alignment_ = qtAlignment(field.textAlignment(), mirror().isRightToLeft());
  clearButton_ = field.clearButtonMode() == UITextFieldViewMode::WhileEditing &&
                 field.isFirstResponder() && !field.text().empty();
  editing_ = field.isFirstResponder();
  mirrored_ = mirror().isRightToLeft();
  enabled_ = field.isEnabled();
}

void TextFieldNode::edited(const QString& shown) {
  if (!view()) return;
  elided_.edit(shown);
  guardEvent([&] { viewAs<UITextField>(*this)->userDidEdit(elided_.whole().toStdString()); });
}

void TextFieldNode::paste(int start, int end, bool mouseSelection) {
  const auto mode = mouseSelection ? QClipboard::Selection : QClipboard::Clipboard;
  const QString pasted = QGuiApplication::clipboard()->text(mode);
  if (pasted.isEmpty()) return;
  edited(elided_.shown().left(start) + pasted + elided_.shown().mid(end));
}

void TextFieldNode::copy(int start, int end) const {
  if (start < end) QGuiApplication::clipboard()->setText(elided_.wholeOf(start, end));
}

void TextFieldNode::focusChanged(bool focused) {
  if (!view()) return;
  guardEvent([&] {
    auto* field = viewAs<UITextField>(*this);
    if (focused) {
      field->becomeFirstResponder();
    } else {
      field->resignFirstResponder();
    }
  });
}

}  // namespace frelta
