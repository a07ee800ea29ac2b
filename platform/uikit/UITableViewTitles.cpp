#include "uikit/UITableViewTitles.h"

#include <memory>
#include <utility>

#include "uikit/UITableViewMetrics.h"

namespace frelta {

void UITableViewTitles::place(const UITableViewLayout& layout, double minY, double maxY) {
  const int sections = static_cast<int>(layout.sections().size());
  std::map<int, Labels> kept;
  for (int index = 0; index < sections; ++index) {
    const UITableViewLayout::Section& section = layout.sections()[static_cast<std::size_t>(index)];
    const double top = section.header.empty() ? section.edges.front() : section.headerFrame.minY();
    const double bottom =
        section.footer.empty() ? section.edges.back() : section.footerFrame.maxY();
    if (bottom <= minY || top >= maxY) continue;
    Labels labels = labels_[index];
    labels_.erase(index);
    labels.header = placed(labels.header, section.header, section.headerFrame, true);
    labels.footer = placed(labels.footer, section.footer, section.footerFrame, false);
    kept[index] = labels;
  }
  for (const auto& [index, labels] : labels_) {
    if (labels.header) labels.header->removeFromSuperview();
    if (labels.footer) labels.footer->removeFromSuperview();
  }
  labels_ = std::move(kept);
}

UILabel* UITableViewTitles::placed(UILabel* label, const std::string& text, const CGRect& frame,
                                   bool header) {
  if (text.empty()) {
    if (label) label->removeFromSuperview();
    return nullptr;
  }
  if (!label) {
    auto made = std::make_unique<UILabel>(frame);
    made->setFont(UIFont::systemFontOfSize(UITableViewMetrics::kTitlePointSize));
    made->setTextColor(UIColor::secondaryLabelColor());
    made->setNumberOfLines(0);
    if (header) made->setAccessibility({.role = UIAccessibility::Role::Heading});
    label = table_.addSubview(std::move(made));
  }
  label->setText(text);
  label->setFrame(frame);
  return label;
}

}  // namespace frelta
