#include "uikit/UITableViewLayout.h"

#include <algorithm>

#include "uikit/UIKitServices.h"
#include "uikit/UITableViewMetrics.h"

namespace frelta {

namespace {

constexpr double kTextInset = 16;
constexpr double kSectionGap = 28;
constexpr double kHeaderBottomGap = 7;
constexpr double kFooterTopGap = 7;
constexpr double kEndGap = 28;

double textHeight(const std::string& text, double width) {
  const UIFont font = UIFont::systemFontOfSize(UITableViewMetrics::kTitlePointSize);
  return UIKitServices::current().text->sizeOfText(text, font, width, 0).height;
}

}  // namespace

double UITableViewLayout::cardInset() const {
  return style_ == UITableViewStyle::InsetGrouped ? UITableViewMetrics::kCardInset : 0;
}

void UITableViewLayout::clear(double width) {
  sections_.clear();
  width_ = width;
  bottom_ = 0;
}

void UITableViewLayout::beginSection(std::string header, std::optional<double> headerHeight) {
  Section section;
  const bool grouped = style_ != UITableViewStyle::Plain;
  const double inset = cardInset() + kTextInset;
  const double textWidth = std::max(0.0, width_ - 2 * inset);
  if (header.empty() && headerHeight)
    bottom_ += std::max(0.0, *headerHeight);
  else if (grouped)
    bottom_ += sections_.empty() && header.empty() ? kSectionGap / 2 : kSectionGap;
  if (!header.empty()) {
    section.headerFrame = {inset, bottom_, textWidth, textHeight(header, textWidth)};
    bottom_ = section.headerFrame.maxY() + kHeaderBottomGap;
  }
  section.header = std::move(header);
  section.edges.push_back(bottom_);
  sections_.push_back(std::move(section));
}

void UITableViewLayout::addRow(double height) {
  bottom_ += std::max(0.0, height);
  sections_.back().edges.push_back(bottom_);
}

void UITableViewLayout::endSection(std::string footer) {
  Section& section = sections_.back();
  if (!footer.empty()) {
    const double inset = cardInset() + kTextInset;
    const double textWidth = std::max(0.0, width_ - 2 * inset);
    section.footerFrame = {inset, bottom_ + kFooterTopGap, textWidth,
                           textHeight(footer, textWidth)};
    bottom_ = section.footerFrame.maxY();
  }
  section.footer = std::move(footer);
}

void UITableViewLayout::finish() {
  if (style_ != UITableViewStyle::Plain) bottom_ += kEndGap;
}

int UITableViewLayout::rows() const {
  int rows = 0;
  for (const Section& section : sections_) rows += section.rows();
  return rows;
}

bool UITableViewLayout::contains(IndexPath path) const {
  return path.section >= 0 && path.section < static_cast<int>(sections_.size()) && path.row >= 0 &&
         path.row < sections_[static_cast<std::size_t>(path.section)].rows();
}

CGRect UITableViewLayout::rectForRow(IndexPath path) const {
  if (!contains(path)) return {};
  const Section& section = sections_[static_cast<std::size_t>(path.section)];
  const double top = section.edges[static_cast<std::size_t>(path.row)];
  const double bottom = section.edges[static_cast<std::size_t>(path.row) + 1];
  return {cardInset(), top, std::max(0.0, width_ - 2 * cardInset()), bottom - top};
}

std::pair<int, int> UITableViewLayout::rowsBetween(int section, double minY, double maxY) const {
  const std::vector<double>& edges = sections_[static_cast<std::size_t>(section)].edges;
  // Row i spans edges[i] to edges[i + 1].
  const auto first = std::upper_bound(edges.begin() + 1, edges.end(), minY) - (edges.begin() + 1);
  const auto last = std::lower_bound(edges.begin(), edges.end() - 1, maxY) - edges.begin();
  return {static_cast<int>(first), static_cast<int>(last)};
}

}  // namespace frelta
