#include "pages/freltaprefsRootListController.h"

#include <memory>
#include <utility>

#include "device/SettingsKeys.h"
#include "pages/RootPageFilter.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "settings/FreltaPreferencesManager.h"
#include "settings/RefreshNotification.h"
#include "settings/Respring.h"
#include "settings/SettingsFile.h"
#include "uikit/UIApplication.h"
#include "uikit/UINavigationController.h"

namespace frelta {

namespace {

constexpr std::string_view kProfileAddress = "https://tarno.example/frelta";
constexpr std::string_view kSupportAddress = "https://tarno.example/frelta/support";

std::shared_ptr<freltaprefsRootListController>& currentPage() {
  static std::shared_ptr<freltaprefsRootListController> page;
  return page;
}

}  // namespace

std::shared_ptr<freltaprefsRootListController> freltaprefsRootListController::currentRootPage() {
  return currentPage();
}

const PSSpecifierList& freltaprefsRootListController::specifiers() {
  if (!specifiers_) {
    PSSpecifierList list = loadSpecifiersFromPlistName(name_, *this);
    removeHiddenRows(list);
    specifiers_ = std::move(list);
  }
  return *specifiers_;
}

std::optional<PropertyListValue> freltaprefsRootListController::readPreferenceValue(
    PSSpecifier& specifier) {
  const std::string* key = specifier.stringForKey("key");
  std::optional<PropertyListValue> value;
  if (key) {
    if (const auto* stored = FreltaPreferencesManager::getPrefForKey(*key)) value = *stored;
  }
  if (!value) value = PSListController::readPreferenceValue(specifier);
  if (key && (*key == "device" || *key == "iosVersion")) reloadSpecifierID("User-Agent");
  return value;
}

void freltaprefsRootListController::setPreferenceValue(std::optional<PropertyListValue> value,
                                                       PSSpecifier* specifier) {
  if (!value || !specifier || !specifier->stringForKey("key")) return;
  // A copy: loading the rows anew may take the specifier away.
  const std::string key = *specifier->stringForKey("key");
  writeSetting(key, *std::move(value));
  FreltaPreferencesManager::clearCache();
  if (const std::string* name = specifier->stringForKey("PostNotification")) {
    postNotification(*name);
  }
  if (key == keys::kEnabled || key == "enabled" || key == keys::kBackgroundMode ||
      key == keys::kSwitchPresetsWithDarkMode) {
    reloadSpecifiers();
  }
  postRefreshNotification();
}

void freltaprefsRootListController::viewDidLoad() {
  PSListController::viewDidLoad();
  auto tap =
      std::make_unique<UITapGestureRecognizer>([this](UIGestureRecognizer&) { handleSingleTap(); });
  tap->setCancelsTouchesInView(false);
  view().addGestureRecognizer(std::move(tap));
}

void freltaprefsRootListController::viewWillAppear(bool animated) {
  currentPage() = std::static_pointer_cast<freltaprefsRootListController>(shared_from_this());
  PSListController::viewWillAppear(animated);
  reloadSpecifiers();
}

void freltaprefsRootListController::viewWillDisappear(bool animated) {
  const auto page = std::exchange(currentPage(), nullptr);
  PSListController::viewWillDisappear(animated);
}

void freltaprefsRootListController::handleSingleTap() {
  view().endEditing(true);
}

void freltaprefsRootListController::selectTheme() {
  push(FreltaThemeSelectorViewController::init());
}

void freltaprefsRootListController::selectHTML() {
  push(FreltaThemeSelectorViewController::initForHTML());
}

void freltaprefsRootListController::selectWidget() {
  push(FreltaThemeSelectorViewController::initForWidget());
}

void freltaprefsRootListController::push(std::shared_ptr<UIViewController> screen) {
  if (UINavigationController* stack = navigationController())
    stack->pushViewController(std::move(screen), true);
  navigationItem().setHidesBackButton(false);
}

void freltaprefsRootListController::respring() {
  frelta::respring();
}

void freltaprefsRootListController::twitterlink() {
  UIApplication::sharedApplication().openURL(kProfileAddress);
}

void freltaprefsRootListController::supportlink() {
  UIApplication::sharedApplication().openURL(kSupportAddress);
}

std::optional<std::string> freltaprefsRootListController::colourStringForKey(const PSTableCell&,
                                                                             std::string_view key) {
  const PropertyListValue* value = FreltaPreferencesManager::getPrefForKey(key);
  return value && value->string() ? std::optional(*value->string()) : std::nullopt;
}

}  // namespace frelta
