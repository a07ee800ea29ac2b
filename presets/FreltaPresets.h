#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/PropertyListValue.h"
#include "preferences/PSController.h"
#include "uikit/UIAlertController.h"
#include "uikit/UITableViewController.h"

namespace frelta {

/// The saved presets: apply, create, import, share and delete them. A subclass with a selection key
/// lets one be chosen for that key instead of applied.
class FreltaPresets : public UITableViewController, public PSController {
 public:
  /// Files whose names end with ".plist" here are presets.
  static std::string presetsFolder();
  /// The settings key that a tap on a row sets; nothing where a tap applies the preset.
  virtual std::optional<std::string_view> selectionKey() const { return std::nullopt; }

  /// Full paths of the preset files, row by row.
  const std::vector<std::string>& presetsArray() const { return presetsArray_; }
  /// Lists the folder anew, making it where it is missing, and shows it.
  void loadPresets();

  /// The name to use for what was typed, blanks at the ends and all; nothing after telling the user
  /// what is wrong with it.
  std::optional<std::string> validatePresetName(std::string_view text);
  static bool presetWithNameExists(std::string_view name);

  /// Saves the settings in force as a preset, in place of one of that name, and applies it. Without
  /// a name it gets a new UUID for one.
  void savePresetWithName(std::optional<std::string> name);
  /// Makes the preset file the one in force; nothing happens when it is gone.
  void applyPreset(std::string_view path);

  static std::string base64StringFromDict(std::optional<Dictionary> dictionary);
  static std::optional<PropertyListValue> base64StringToDict(std::string_view text);
  /// Makes a preset of shared text, in place of one of that name, without applying it. When it
  /// cannot, the user is told.
  void importPresetWithBase64String(const std::string& text, const std::string& name);

  void onTapAdd();
  void askForSharedPreset();
  void newPresetAlert();
  void importPresetAlert();

  void viewDidLoad() override;

  int numberOfRowsInSection(UITableView&, int section) override;
  std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, IndexPath path) override;
  double heightForRowAtIndexPath(UITableView&, IndexPath path) override;
  void didSelectRowAtIndexPath(UITableView&, IndexPath path) override;
  bool canEditRowAtIndexPath(UITableView&, IndexPath path) override;
  UITableViewRowActions editActionsForRowAtIndexPath(UITableView&, IndexPath path) override;

  // The framework tells every controller that it pushes; this one has no use for it.
  void setRootController(std::weak_ptr<UIViewController>) override {}
  void setParentController(std::weak_ptr<UIViewController>) override {}
  void setSpecifier(std::shared_ptr<PSSpecifier>) override {}

 private:
  /// This screen for a callback that may outlive it: null once it is gone.
  std::weak_ptr<FreltaPresets> weakSelf();
  const std::string& pathAt(IndexPath path) const;
  /// False, with a line in the log, when the text holds no preset or the file cannot be written.
  bool importPreset(const std::string& text, const std::string& name);
  void choose(const std::string& presetPath);
  void confirmApplying(const std::string& presetPath);
  void confirmDeleting(const std::string& presetPath);
  void sharePreset(const std::string& presetPath);

  std::vector<std::string> presetsArray_;
};

}  // namespace frelta
