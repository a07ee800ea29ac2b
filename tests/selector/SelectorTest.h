#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fake/FakeTextMeasurer.h"
#include "selector/FreltaStyleCell.h"
#include "selector/FreltaStyleSubCell.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "settings/RefreshNotification.h"
#include "tests/styles/StylesTest.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIKitServices.h"
#include "uikit/UINavigationController.h"
#include "uikit/UIWindow.h"

namespace frelta {

/// A device without styles and a window of 390 points width with an empty screen in it.
class SelectorTest : public StylesTest {
 protected:
  using Selector = FreltaThemeSelectorViewController;
  using Group = std::shared_ptr<FreltaSortedItem>;
  using Item = std::shared_ptr<FreltaStyleItem>;

  SelectorTest() {
    UIKitServices::install({.text = &measurer});
    window.setFrame({0, 0, 390, 844});
    window.setRootViewController(navigation);
    navigation->pushViewController(std::make_shared<UIViewController>(), false);
  }
  ~SelectorTest() override {
    setCurrentSelector(nullptr);
    FreltaToggleButton::setDisabledColor(std::nullopt);
    FreltaStyleContentsCell::setCustomBackgroundColor(std::nullopt);
    UIKitServices::install({});
  }

  static Item item(const std::string& name, bool isEnabled = false) {
    auto made = std::make_shared<FreltaStyleItem>();
    made->setTitle("title of " + name);
    made->setFulltitle("full " + name);
    made->setIdentifier("id." + name);
    made->setIsEnabled(isEnabled);
    return made;
  }
  static Group group(std::vector<Item> items, bool isExpanded = false) {
    auto made = std::make_shared<FreltaSortedItem>();
    made->setTitle("Group");
    made->setItems(std::make_shared<std::vector<Item>>(std::move(items)));
    made->setIsExpanded(isExpanded);
    made->updateEnabledState();
    return made;
  }
  static Group groupOf(int count, bool isExpanded = false) {
    std::vector<Item> items;
    for (int i = 0; i < count; ++i) items.push_back(item(std::to_string(i)));
    return group(std::move(items), isExpanded);
  }
  static std::shared_ptr<FreltaSortedStyle> style(const std::string& name,
                                                  std::int32_t mode = FreltaStyleModeImages,
                                                  std::int32_t state = FreltaEnabledStateNone) {
    auto made = std::make_shared<FreltaSortedStyle>();
    made->setDisplayName(name);
    made->setTitle("title of " + name);
    made->setFullPath(inThemes(name + ".theme"));
    made->setStyleMode(mode);
    made->setEnabledState(state);
    return made;
  }
  /// Installs an images theme.
  void install(const std::string& name) { makeFolder(inThemes(name + ".theme/Images")); }

  /// Puts a selector on the stack, as the root page does.
  std::shared_ptr<Selector> show(std::shared_ptr<Selector> selector) {
    navigation->pushViewController(selector, false);
    window.layoutIfNeeded();
    return selector;
  }
  /// An images selector in grouped display that shows these entries in its library.
  std::shared_ptr<Selector> showGroups(FreltaStyleLibrary::Entries entries) {
    auto selector = show(Selector::init());
    selector->setIsGrouped(true);
    selector->setSortedStyles(std::move(entries));
    selector->tableView()->reloadData();
    window.layoutIfNeeded();
    return selector;
  }
  static FreltaStyleCell* cellAt(const Selector& selector, IndexPath path) {
    return dynamic_cast<FreltaStyleCell*>(selector.tableView()->cellForRowAtIndexPath(path));
  }
  static FreltaStyleSubCell* subCell(const FreltaStyleCell& cell, std::size_t index) {
    return dynamic_cast<FreltaStyleSubCell*>(cell.subCellsView()->subviews()[index].get());
  }
  static void tap(UIControl& button) {
    button.sendActionsForControlEvents(UIControlEventTouchUpInside);
  }
  void tapCard(const Selector& selector, int row) {
    tap(*cellAt(selector, {1, row})->headerView()->enableButton());
    window.layoutIfNeeded();
  }
  /// The titles of the cards' buttons in the library section, in order.
  static std::vector<std::string> buttonTitles(const Selector& selector) {
    std::vector<std::string> titles;
    for (int row = 0; row < selector.tableView()->numberOfRowsInSection(1); ++row)
      titles.push_back(
          cellAt(selector, {1, row})->headerView()->enableButton()->title().value_or(""));
    return titles;
  }
  /// The alert in front; null when there is none.
  UIAlertController* alert() const {
    const auto presented = window.presentedViewControllers();
    return presented.empty() ? nullptr : dynamic_cast<UIAlertController*>(presented.back().get());
  }

  FakeTextMeasurer measurer;
  UIWindow window;
  std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
};

}  // namespace frelta
