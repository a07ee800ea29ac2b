#pragma once

#include <functional>
#include <memory>
#include <string>

#include "uikit/UIAlertController.h"

namespace frelta {

/// The alerts of the presets screens, ready to be presented. What a callback captures must outlive
/// the alert or be held weakly.
using AlertCallback = std::function<void()>;

std::shared_ptr<UIAlertController> presetNameErrorAlert(std::string problem);
std::shared_ptr<UIAlertController> importErrorAlert();
std::shared_ptr<UIAlertController> importOrAddAlert(AlertCallback import, AlertCallback add);
/// Saves under the name as it was typed.
std::shared_ptr<UIAlertController> newPresetAlert(std::function<void(const std::string&)> save);
/// Imports the data under the name, both as they were typed.
std::shared_ptr<UIAlertController> importPresetAlert(
    std::function<void(const std::string& name, const std::string& data)> import);
std::shared_ptr<UIAlertController> applyPresetAlert(const std::string& name, AlertCallback apply);
std::shared_ptr<UIAlertController> deletePresetAlert(const std::string& name, AlertCallback remove);
/// Shows the text and copies it to the pasteboard.
std::shared_ptr<UIAlertController> sharePresetAlert(const std::string& name, std::string text);

}  // namespace frelta
