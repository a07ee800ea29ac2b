#include "quick/TextViewNode.h"

#include <QClipboard>
#include <QGuiApplication>

#include "quick/Fonts.h"
#include "quick/ShownText.h"
#include "quick/TextAlignment.h"
#include "quick/ViewMirror.h"

namespace frelta {

void TextViewNode::syncContents() {
  const UITextView& view = *viewAs<UITextView>(*this);
  text_ = shownText(view.text());
  font_ = qtFont(view.font());
  alignment_ = qtAlignment(view.textAlignment(), mirror().isRightToLeft());
  fill();
}

void TextViewNode::itemMade() {
  connect(item(), &QQuickItem::widthChanged, this, &TextViewNode::fill);
  fill();
}

void TextViewNode::fill() {
  if (!item() || item()->width() <= 0) return;
  if (shownText_ == text_ && shownWidth_ == item()->width()) return;
  auto* document = item()->property("document").value<QQuickTextDocument*>();
  if (!document) return;
  shownText_ = text_;
  shownWidth_ = item()->width();
  longText_.fill(document->textDocument(), text_, font_, shownWidth_);
}

void TextViewNode::copy(const QString& selected) {
  if (!selected.isEmpty())
    QGuiApplication::clipboard()->setText(LongText::textOfSelection(selected));
}

}  // namespace frelta
