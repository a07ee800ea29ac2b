#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "graphics/CGGeometry.h"
#include "uikit/IndexPath.h"

namespace frelta {

enum class UITableViewStyle { Plain, Grouped, InsetGrouped };

/// Where the rows and titles of a table stand, in content coordinates.
class UITableViewLayout {
 public:
  struct Section {
    std::string header;
    std::string footer;
    CGRect headerFrame;  // empty when there is no title
    CGRect footerFrame;
    /// Top edge of each row, and the bottom of the last: one more than there are rows.
    std::vector<double> edges;
    int rows() const { return static_cast<int>(edges.size()) - 1; }
  };

  explicit UITableViewLayout(UITableViewStyle style) : style_(style) {}
  UITableViewStyle style() const { return style_; }

  void clear(double width);
  /// Sections come from the top down: begin, the heights of its rows, end.
  /// Without a title the height, in points, is the room above the rows in place of the style's own.
  void beginSection(std::string header, std::optional<double> headerHeight = std::nullopt);
  void addRow(double height);
  void endSection(std::string footer);
  /// After the last section.
  void finish();

  const std::vector<Section>& sections() const { return sections_; }
  /// Of all sections.
  int rows() const;
  bool contains(IndexPath path) const;
  CGSize contentSize() const { return {width_, bottom_}; }
  CGRect rectForRow(IndexPath path) const;
  /// First row of the section that ends below y and first that starts at or below the other.
  std::pair<int, int> rowsBetween(int section, double minY, double maxY) const;

 private:
  double cardInset() const;

  UITableViewStyle style_;
  double width_ = 0;
  double bottom_ = 0;
  std::vector<Section> sections_;
};

}  // namespace frelta
