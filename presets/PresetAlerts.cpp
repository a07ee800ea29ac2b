#include "presets/PresetAlerts.h"

#include <utility>

#include "uikit/UIPasteboard.h"

namespace frelta {

namespace {

using Alert = std::shared_ptr<UIAlertController>;
using enum UIAlertActionStyle;

Alert makeAlert(std::string title, std::string message) {
  return UIAlertController::alertControllerWithTitle(std::move(title), std::move(message));
}

void addAction(const Alert& alert, std::string title, UIAlertActionStyle style,
               AlertCallback callback = nullptr) {
  UIAlertAction::Handler handler;
  if (callback) handler = [callback = std::move(callback)](UIAlertAction&) { callback(); };
  alert->addAction(UIAlertAction::actionWithTitle(std::move(title), style, std::move(handler)));
}

void addCancel(const Alert& alert) {
  addAction(alert, "Cancel", Cancel);
}

/// The alert owns the field and outlives its actions.
UITextField* addField(const Alert& alert, const std::string& placeholder) {
  alert->addTextFieldWithConfigurationHandler([&](UITextField& field) {
    field.setPlaceholder(placeholder);
    field.setClearButtonMode(UITextFieldViewMode::WhileEditing);
  });
  return alert->textFields().back();
}

Alert confirmation(std::string title, std::string message, AlertCallback confirm) {
  Alert alert = makeAlert(std::move(title), std::move(message));
  addAction(alert, "Confirm", Destructive, std::move(confirm));
  addCancel(alert);
  return alert;
}

}  // namespace

Alert presetNameErrorAlert(std::string problem) {
  Alert alert = makeAlert("Error", std::move(problem));
  addAction(alert, "OK", Default);
  return alert;
}

Alert importErrorAlert() {
  Alert alert =
      makeAlert("Error", "Failed to import preset. Please check the preset data and try again.");
  addAction(alert, "OK", Cancel);
  return alert;
}

Alert importOrAddAlert(AlertCallback import, AlertCallback add) {
  Alert alert = makeAlert("Import/Add", "What would you like to do?");
  addAction(alert, "Import Existing Preset...", Default, std::move(import));
  addAction(alert, "Create New Preset...", Default, std::move(add));
  addCancel(alert);
  return alert;
}

Alert newPresetAlert(std::function<void(const std::string&)> save) {
  Alert alert = makeAlert("New Preset", "Enter a name for your preset");
  UITextField* name = addField(alert, "Preset Name...");
  addAction(alert, "Save", Default, [name, save = std::move(save)] { save(name->text()); });
  addCancel(alert);
  return alert;
}

Alert importPresetAlert(std::function<void(const std::string&, const std::string&)> import) {
  Alert alert = makeAlert("Import Preset", "Enter a name and paste the preset data below...");
  UITextField* name = addField(alert, "Preset Name...");
  UITextField* data = addField(alert, "Preset Data...");
  addAction(alert, "Import", Default,
            [name, data, import = std::move(import)] { import(name->text(), data->text()); });
  addCancel(alert);
  return alert;
}

Alert applyPresetAlert(const std::string& name, AlertCallback apply) {
  return confirmation("Apply Preset",
                      "Are you sure you would like to apply preset \"" + name +
                          "\"?\n\nAny current changes will be lost.",
                      std::move(apply));
}

Alert deletePresetAlert(const std::string& name, AlertCallback remove) {
  return confirmation("Delete Preset",
                      "Are you sure you would like to delete preset \"" + name + "\"?",
                      std::move(remove));
}

Alert sharePresetAlert(const std::string& name, std::string text) {
  Alert alert =
      makeAlert("Share \"" + name + "\"...", "Copy the following to share the preset: \n\n" + text);
  addAction(alert, "Copy to Clipboard", Default,
            [text = std::move(text)] { UIPasteboard::generalPasteboard().setString(text); });
  addAction(alert, "Done", Cancel);
  return alert;
}

}  // namespace frelta
