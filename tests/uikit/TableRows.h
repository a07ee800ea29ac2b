#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "uikit/UITableView.h"

namespace frelta {

/// Rows of one table for a test, counting what the table asks.
class TableRows : public UITableViewDataSource, public UITableViewDelegate {
 public:
  struct Section {
    std::string header;
    int rows = 0;
    std::string footer;
  };
  explicit TableRows(std::vector<Section> shown) : sections(std::move(shown)) {}
  explicit TableRows(int rows) : sections{{"", rows, ""}} {}

  int numberOfSectionsInTableView(UITableView&) override {
    ++sectionQuestions;
    return static_cast<int>(sections.size());
  }
  int numberOfRowsInSection(UITableView&, int section) override {
    return sections.at(static_cast<std::size_t>(section)).rows;
  }
  std::string titleForHeaderInSection(UITableView&, int section) override {
    return sections.at(static_cast<std::size_t>(section)).header;
  }
  std::string titleForFooterInSection(UITableView&, int section) override {
    return sections.at(static_cast<std::size_t>(section)).footer;
  }
  std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                         IndexPath path) override {
    auto cell = table.dequeueReusableCellWithIdentifier(identifier(path));
    if (!cell) {
      ++cellsMade;
      cell = makeCell(identifier(path));
    }
    cell->textLabel()->setText(title(path));
    if (fill) fill(*cell, path);
    return cell;
  }
  std::shared_ptr<const void> itemForRowAtIndexPath(UITableView&, IndexPath path) override {
    return item ? item(path) : nullptr;
  }
  double heightForRowAtIndexPath(UITableView& table, IndexPath path) override {
    ++heightQuestions;
    return height ? height(table, path) : UITableView::kDefaultRowHeight;
  }
  std::optional<IndexPath> willSelectRowAtIndexPath(UITableView&, IndexPath path) override {
    return allowed ? allowed(path) : std::optional(path);
  }
  void didSelectRowAtIndexPath(UITableView&, IndexPath path) override {
    selections.push_back(path);
    if (selected) selected(path);
  }

  static std::string title(IndexPath path) {
    return std::to_string(path.section) + "/" + std::to_string(path.row);
  }

  std::vector<Section> sections;
  std::function<std::string(IndexPath)> identifier = [](IndexPath) { return "row"; };
  std::function<std::unique_ptr<UITableViewCell>(std::string)> makeCell = [](std::string name) {
    return std::make_unique<UITableViewCell>(UITableViewCellStyle::Default, std::move(name));
  };
  std::function<void(UITableViewCell&, IndexPath)> fill;
  std::function<std::shared_ptr<const void>(IndexPath)> item;
  std::function<double(UITableView&, IndexPath)> height;
  std::function<std::optional<IndexPath>(IndexPath)> allowed;
  std::function<void(IndexPath)> selected;

  int sectionQuestions = 0;
  int heightQuestions = 0;
  int cellsMade = 0;
  std::vector<IndexPath> selections;
};

}  // namespace frelta
