#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fake/FakePasteboard.h"
#include "fake/FakeTextMeasurer.h"
#include "presets/FreltaPresets.h"
#include "tests/settings/SettingsTest.h"
#include "uikit/UIKitServices.h"
#include "uikit/UINavigationController.h"
#include "uikit/UIWindow.h"

namespace frelta {

inline const std::string kFolder = "/Library/Frelta/Presets/";
inline const std::string kBackupPath = std::string(kSettingsPath) + ".bak";
inline const std::string kRefresh = "com.tarno.frelta.refresh";

/// A device with a presets folder and a window that can show one screen.
class PresetsTest : public SettingsTest {
 protected:
  PresetsTest() {
    UIKitServices::install({.text = &measurer, .pasteboard = &pasteboard});
    std::filesystem::create_directories(platform.hostPath(kFolder));
    std::filesystem::create_directories(platform.hostPath(kPreferencesFolder));
  }
  ~PresetsTest() override { UIKitServices::install({}); }

  static std::string pathOf(const std::string& name) { return kFolder + name + ".plist"; }
  void putPreset(const std::string& name, const Dictionary& contents) {
    put(pathOf(name), contents);
  }
  std::optional<Dictionary> presetFile(const std::string& name) const {
    return contentsOf(pathOf(name));
  }
  bool exists(std::string_view path) const {
    return std::filesystem::exists(platform.hostPath(path));
  }
  /// Names of what lies in the presets folder, sorted.
  std::vector<std::string> folder() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(platform.hostPath(kFolder)))
      names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
  }

  /// Shows the screen below a page that led to it.
  template <typename Screen = FreltaPresets>
  Screen& show() {
    auto made = std::make_shared<Screen>();
    Screen& shown = *made;
    screen = made;
    navigation = std::make_shared<UINavigationController>();
    window.setRootViewController(navigation);
    window.setFrame({0, 0, 390, 844});
    navigation->pushViewController(std::make_shared<UIViewController>(), false);
    navigation->pushViewController(std::move(made), false);
    window.layoutIfNeeded();
    return shown;
  }

  /// The alert in front, or null.
  UIAlertController* alert() {
    const auto presented = window.presentedViewControllers();
    return presented.empty() ? nullptr : dynamic_cast<UIAlertController*>(presented.back().get());
  }
  void press(const std::string& button) {
    ASSERT_NE(alert(), nullptr) << button;
    for (const auto& action : alert()->actions()) {
      if (action->title() != button) continue;
      alert()->userDidPressAction(*action);
      return;
    }
    FAIL() << "no button " << button;
  }
  void type(std::size_t field, std::string text) {
    ASSERT_NE(alert(), nullptr);
    alert()->textFields()[field]->userDidEdit(std::move(text));
  }
  void tapRow(int row) {
    screen->tableView().userDidSelectRowAtIndexPath({0, row});
    window.layoutIfNeeded();
  }
  int rowOf(const std::string& name) const {
    const auto& paths = screen->presetsArray();
    return static_cast<int>(std::ranges::find(paths, pathOf(name)) - paths.begin());
  }
  std::vector<std::string> tickedNames() {
    window.layoutIfNeeded();
    std::vector<std::string> names;
    for (int row = 0; row < screen->tableView().numberOfRowsInSection(0); ++row) {
      const UITableViewCell* cell = screen->tableView().cellForRowAtIndexPath({0, row});
      if (cell && cell->accessoryType() == UITableViewCellAccessoryType::Checkmark)
        names.push_back(cell->textLabel()->text());
    }
    return names;
  }
  /// Presses the action that a swipe on the row brings out.
  void pressRowAction(int row, const std::string& title) {
    UITableView& table = screen->tableView();
    table.userDidSwipeRowAtIndexPath({0, row});
    for (const auto& action : table.rowActionsForRowAtIndexPath({0, row})) {
      if (action->title() == title) table.userDidPressRowAction(action, {0, row});
    }
  }

  FakeTextMeasurer measurer;
  FakePasteboard pasteboard;
  std::shared_ptr<UINavigationController> navigation;
  UIWindow window;
  std::shared_ptr<FreltaPresets> screen;
};

}  // namespace frelta
