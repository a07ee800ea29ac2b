#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fake/FakePlatform.h"
#include "fake/FakeTextMeasurer.h"
#include "preferences/PSListController.h"
#include "preferences/PSTableCell.h"
#include "tests/preferences/FakeBundle.h"
#include "uikit/UIKitServices.h"
#include "uikit/UINavigationController.h"

namespace frelta {

class FakeAddressOpener : public AddressOpener {
 public:
  bool openURL(std::string_view address) override {
    opened.emplace_back(address);
    return true;
  }
  std::vector<std::string> opened;
};

/// The page description "Test"; keeps its values in memory and records what happens to them.
class TestPage : public PSListController {
 public:
  const PSSpecifierList& specifiers() override {
    if (!specifiers_) {
      ++loads;
      specifiers_ = loadSpecifiersFromPlistName("Test", *this);
      std::erase_if(*specifiers_, [&](const auto& row) {
        return std::ranges::find(hidden, row->identifier()) != hidden.end();
      });
    }
    return *specifiers_;
  }
  std::optional<PropertyListValue> readPreferenceValue(PSSpecifier& specifier) override {
    reads.push_back(specifier.identifier());
    if (onRead) onRead(specifier);
    const auto found = values.find(specifier.identifier());
    if (found != values.end()) return found->second;
    return PSListController::readPreferenceValue(specifier);
  }
  void setPreferenceValue(std::optional<PropertyListValue> value, PSSpecifier* specifier) override {
    writes.emplace_back(specifier->identifier(), *value);
    values[specifier->identifier()] = *value;
    if (onWrite) onWrite(*specifier);
  }

  std::vector<std::string> hidden;
  std::map<std::string, PropertyListValue> values;
  std::vector<std::string> reads;
  std::vector<std::pair<std::string, PropertyListValue>> writes;
  std::function<void(PSSpecifier&)> onRead;
  std::function<void(PSSpecifier&)> onWrite;
  int loads = 0;
};

/// Shows list pages in a navigation window of 320 points width.
class ListPageTest : public testing::Test {
 protected:
  ListPageTest() {
    UIKitServices::install({&measurer, &addresses});
    navigation->view().setFrame({0, 0, 320, 4000});
  }

  static Dictionary row(const std::string& cell, const std::string& key, Dictionary more = {}) {
    Dictionary item{{"cell", cell}, {"key", key}, {"label", key}};
    for (auto& [name, value] : more) item.insert_or_assign(name, value);
    return item;
  }
  static Dictionary group(const std::string& label = {}) {
    return {{"cell", "PSGroupCell"}, {"label", label}};
  }
  void describe(Array items) { bundle.describe("Test", Dictionary{{"items", std::move(items)}}); }

  void show(const std::shared_ptr<PSListController>& shown) {
    shown->setBundle(&bundle);
    navigation->pushViewController(shown, false);
    layout();
  }
  std::shared_ptr<TestPage> showTestPage(Array items) {
    describe(std::move(items));
    auto page = std::make_shared<TestPage>();
    show(page);
    return page;
  }
  /// Runs what was put off, then lays out.
  void layout() {
    platform.mainQueue.runPending();
    navigation->view().layoutIfNeeded();
  }

  template <typename Cell = PSTableCell>
  static Cell* cell(PSListController& page, std::string_view identifier) {
    const auto row = page.specifierForID(identifier);
    const auto path = row ? page.indexPathForSpecifier(*row) : std::nullopt;
    return path ? dynamic_cast<Cell*>(page.table().cellForRowAtIndexPath(*path)) : nullptr;
  }
  static void tap(PSListController& page, std::string_view identifier) {
    page.table().userDidSelectRowAtIndexPath(
        page.indexPathForSpecifier(*page.specifierForID(identifier)).value());
  }
  /// The identifiers of the rows that the table shows, section by section.
  static std::vector<std::vector<std::string>> shownRows(PSListController& page) {
    std::vector<std::vector<std::string>> sections(
        static_cast<std::size_t>(page.table().numberOfSections()));
    for (const IndexPath path : page.table().indexPathsForVisibleRows()) {
      sections[static_cast<std::size_t>(path.section)].push_back(
          page.table().cellForRowAtIndexPath(path)->accessibilityIdentifier());
    }
    return sections;
  }

  FakePlatform platform;
  FakeTextMeasurer measurer;
  FakeAddressOpener addresses;
  FakeBundle bundle;
  std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
};

}  // namespace frelta
