#include "presets/FreltaPresets.h"

#include <exception>
#include <utility>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "foundation/Log.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"
#include "presets/PresetAlerts.h"
#include "presets/PresetCodec.h"
#include "presets/PresetName.h"
#include "presets/PresetStore.h"
#include "settings/FreltaPreferencesManager.h"
#include "settings/RefreshNotification.h"
#include "settings/SettingsFile.h"
#include "uikit/UIPasteboard.h"

namespace frelta {

namespace {

constexpr double kRowHeight = 60;
const std::string kReuseIdentifier = "Cell";

}  // namespace

std::string FreltaPresets::presetsFolder() {
  return std::string(kPresetsFolder);
}

void FreltaPresets::loadPresets() {
  presetsArray_ = presetPaths();
  tableView().reloadData();
}

std::optional<std::string> FreltaPresets::validatePresetName(std::string_view text) {
  PresetName checked = presetNameFromText(text);
  if (!checked.name) presentViewController(presetNameErrorAlert(checked.problem), true);
  return std::move(checked.name);
}

bool FreltaPresets::presetWithNameExists(std::string_view name) {
  return presetExistsAtPath(presetPathForName(name));
}

void FreltaPresets::savePresetWithName(std::optional<std::string> name) {
  if (!name) name = uuidString(*Platform::current().random);
  const std::string path = presetPathForName(*name);
  // What was not saved is not applied: an older preset of that name would take the settings' place.
  if (savePreset(path)) applyPreset(path);
  loadPresets();
}

void FreltaPresets::applyPreset(std::string_view path) {
  frelta::applyPreset(path);
}

std::string FreltaPresets::base64StringFromDict(std::optional<Dictionary> dictionary) {
  return frelta::base64StringFromDict(std::move(dictionary));
}

std::optional<PropertyListValue> FreltaPresets::base64StringToDict(std::string_view text) {
  return frelta::base64StringToDict(text);
}

void FreltaPresets::importPresetWithBase64String(const std::string& text, const std::string& name) {
  try {
    if (importPreset(text, name)) return;
  } catch (const std::exception& exception) {
    freltaLog(std::string("importPresetWithBase64String ") + exception.what());
  }
  presentViewController(importErrorAlert(), true);
}

bool FreltaPresets::importPreset(const std::string& text, const std::string& name) {
  freltaLog("importPresetWithBase64String base64Str: " + text);
  const std::optional<PropertyListValue> preset = base64StringToDict(text);
  if (!preset) {
    freltaLog("importPresetWithBase64String NULL");
    return false;
  }
  const std::string path = presetPathForName(name);
  if (presetExistsAtPath(path)) removePreset(path);
  if (!writeDecodedPresetToFile(*preset, path)) {
    freltaLog("importPresetWithBase64String writeToFile FAILED");
    return false;
  }
  loadPresets();
  return true;
}

void FreltaPresets::viewDidLoad() {
  UITableViewController::viewDidLoad();
  if (!selectionKey()) {
    navigationItem().setRightBarButtonItem(
        std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::Add, [screen = weakSelf()] {
          if (const auto self = screen.lock()) self->onTapAdd();
        }));
  }
  loadPresets();
  setTitle("Presets");
}

void FreltaPresets::onTapAdd() {
  if (UIPasteboard::generalPasteboard().string()) {
    askForSharedPreset();
  } else {
    newPresetAlert();
  }
}

void FreltaPresets::askForSharedPreset() {
  const auto then = [screen = weakSelf()](void (FreltaPresets::*next)()) {
    return [screen, next] {
      if (const auto self = screen.lock()) ((*self).*next)();
    };
  };
  presentViewController(importOrAddAlert(then(&FreltaPresets::importPresetAlert),
                                         then(&FreltaPresets::newPresetAlert)),
                        true);
}

void FreltaPresets::newPresetAlert() {
  presentViewController(frelta::newPresetAlert([screen = weakSelf()](const std::string& text) {
                          const auto self = screen.lock();
                          if (!self) return;
                          if (auto name = self->validatePresetName(text))
                            self->savePresetWithName(std::move(name));
                        }),
                        true);
}

void FreltaPresets::importPresetAlert() {
  presentViewController(frelta::importPresetAlert([screen = weakSelf()](const std::string& text,
                                                                        const std::string& data) {
                          const auto self = screen.lock();
                          if (!self) return;
                          if (const auto name = self->validatePresetName(text))
                            self->importPresetWithBase64String(data, *name);
                        }),
                        true);
}

int FreltaPresets::numberOfRowsInSection(UITableView&, int) {
  return static_cast<int>(presetsArray_.size());
}

std::unique_ptr<UITableViewCell> FreltaPresets::cellForRowAtIndexPath(UITableView& table,
                                                                      IndexPath path) {
  auto cell = table.dequeueReusableCellWithIdentifier(kReuseIdentifier);
  if (!cell) {
    cell = std::make_unique<UITableViewCell>(UITableViewCellStyle::Default, kReuseIdentifier);
  }
  const std::string& preset = pathAt(path);
  cell->textLabel()->setText(presetNameAtPath(preset));
  const PropertyListValue* chosen =
      FreltaPreferencesManager::getPrefForKey(selectionKey().value_or(keys::kCurrentPreset));
  const bool isChosen = chosen && chosen->string() && *chosen->string() == preset;
  cell->setAccessoryType(isChosen ? UITableViewCellAccessoryType::Checkmark
                                  : UITableViewCellAccessoryType::None);
  return cell;
}

double FreltaPresets::heightForRowAtIndexPath(UITableView&, IndexPath) {
  return kRowHeight;
}

void FreltaPresets::didSelectRowAtIndexPath(UITableView& table, IndexPath path) {
  table.deselectRowAtIndexPath(path);
  const std::string preset = pathAt(path);
  if (selectionKey()) {
    choose(preset);
  } else {
    confirmApplying(preset);
  }
}

bool FreltaPresets::canEditRowAtIndexPath(UITableView&, IndexPath) {
  return true;
}

UITableViewRowActions FreltaPresets::editActionsForRowAtIndexPath(UITableView&, IndexPath path) {
  using Action = UITableViewRowAction;
  const auto remove = Action::rowActionWithStyle(UITableViewRowActionStyle::Normal, "Delete",
                                                 [screen = weakSelf()](Action&, IndexPath pressed) {
                                                   if (const auto self = screen.lock())
                                                     self->confirmDeleting(self->pathAt(pressed));
                                                 });
  remove->setBackgroundColor(UIColor::systemRedColor());
  const auto share =
      Action::rowActionWithStyle(UITableViewRowActionStyle::Normal, "Share",
                                 [screen = weakSelf(), preset = pathAt(path)](Action&, IndexPath) {
                                   if (const auto self = screen.lock()) self->sharePreset(preset);
                                 });
  share->setBackgroundColor(UIColor::colorWithRed(0.0, 0.48, 1.0, 1.0));
  return {remove, share};
}

void FreltaPresets::choose(const std::string& presetPath) {
  writeSetting(*selectionKey(), presetPath);
  FreltaPreferencesManager::clearCache();
  tableView().reloadData();
  postRefreshNotification();
}

void FreltaPresets::confirmApplying(const std::string& presetPath) {
  presentViewController(applyPresetAlert(presetNameAtPath(presetPath),
                                         [screen = weakSelf(), presetPath] {
                                           const auto self = screen.lock();
                                           if (!self) return;
                                           self->applyPreset(presetPath);
                                           self->loadPresets();
                                         }),
                        true);
}

void FreltaPresets::confirmDeleting(const std::string& presetPath) {
  presentViewController(deletePresetAlert(presetNameAtPath(presetPath),
                                          [screen = weakSelf(), presetPath] {
                                            removePreset(presetPath);
                                            if (const auto self = screen.lock())
                                              self->loadPresets();
                                          }),
                        true);
}

void FreltaPresets::sharePreset(const std::string& presetPath) {
  const auto alert = sharePresetAlert(
      presetNameAtPath(presetPath), base64StringFromDict(dictionaryWithContentsOfFile(presetPath)));
  Platform::current().mainQueue->async([screen = weakSelf(), alert] {
    if (const auto self = screen.lock()) self->presentViewController(alert, true);
  });
}

std::weak_ptr<FreltaPresets> FreltaPresets::weakSelf() {
  return std::static_pointer_cast<FreltaPresets>(shared_from_this());
}

const std::string& FreltaPresets::pathAt(IndexPath path) const {
  return presetsArray_.at(static_cast<std::size_t>(path.row));
}

}  // namespace frelta
