#include "tests/monkey/Inspection.h"

#include <cxxabi.h>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "quick/ViewMirror.h"
#include "tests/monkey/MonkeyWorld.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

namespace {

// More than there are rows, with all that is in each.
constexpr int kMostWaitingViews = 1500;

std::string kindOf(const UIView& view) {
  int status = 0;
  char* name = abi::__cxa_demangle(typeid(view).name(), nullptr, nullptr, &status);
  std::string kind = name ? name : typeid(view).name();
  std::free(name);
  return kind;
}

}  // namespace

std::vector<std::string> Inspection::faults() {
  found_.clear();
  lookAtWindow();
  lookAtFiles();
  lookAtViews();
  lookAtLog();
  forgetRecords();
  return std::move(found_);
}

void Inspection::lookAtWindow() {
  UIViewController* page = house_.navigation().topViewController();
  if (!house_.quick().isVisible() || !page) {
    found_.push_back("the window is gone");
    return;
  }
  UITableView* table = findView<UITableView>(page->view());
  if (!table || table->visibleCells().empty()) {
    found_.push_back("the first page has no rows");
    return;
  }
  for (const UITableViewCell* cell : table->visibleCells())
    if (!house_.quick().itemFor(*cell)) found_.push_back("a row is not shown");
}

void Inspection::lookAtFiles() {
  for (const auto& file :
       std::filesystem::recursive_directory_iterator(house_.window.platform.hostPath("/"))) {
    const std::string name = file.path().filename();
    // What is not finished is hidden.
    if (name.starts_with('.') && name != MonkeyWorld::kHiddenStyle)
      found_.push_back("a temporary file is left: " + name);
  }
}

void Inspection::lookAtViews() {
  int waiting = 0;
  std::set<const UIView*> withoutOwner;
  for (const ViewNode* node : house_.quick().mirror().nodes()) {
    const UIView* top = node->view();
    if (!top) {
      found_.push_back("a node has no view");
      continue;
    }
    bool isInCell = false;
    const auto look = [&] { isInCell |= dynamic_cast<const UITableViewCell*>(top) != nullptr; };
    for (look(); top->superview(); look()) top = top->superview();
    if (top == &house_.quick().uiWindow()) continue;
    // Rows out of sight wait in their table for being used again.
    if (isInCell)
      ++waiting;
    else
      withoutOwner.insert(top);
  }
  // The page of the selector that was opened last is kept until the next one is.
  if (withoutOwner.size() > 1)
    found_.push_back("a view without an owner: " + kindOf(**withoutOwner.begin()));
  if (waiting > kMostWaitingViews)
    found_.push_back(std::to_string(waiting) + " views wait for reuse");
}

void Inspection::lookAtLog() {
  for (const std::string& line : house_.window.platform.log.lines) {
    const bool isAnException = line.find("xception") != std::string::npos;
    // Sharing a preset that holds a date or cannot be read ends so.
    const bool isExpected =
        line.ends_with("JSON cannot hold a date") || line.ends_with("there is no dictionary");
    const bool isALostRow = line.find("table's rows are not") != std::string::npos;
    if ((isAnException && !isExpected) || isALostRow) found_.push_back("logged: " + line);
  }
  for (const std::string& line : house_.window.platform.mainQueue.exceptions)
    found_.push_back("logged: " + line);
}

void Inspection::forgetRecords() {
  auto& platform = house_.window.platform;
  platform.log.lines = {};
  platform.files.resetCalls();
  platform.processes.spawned = {};
  platform.processes.runs = {};
}

}  // namespace frelta
