#pragma once

#include <fstream>
#include <iterator>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "fake/FakePicturePicker.h"
#include "graphics/GraphicsServices.h"
#include "pages/PagesRegistration.h"
#include "pages/freltaAdvancedprefsRootListController.h"
#include "pages/freltaprefsRootListController.h"
#include "painting/QtImageServices.h"
#include "presets/PresetsRegistration.h"
#include "settings/FreltaPreferencesManager.h"
#include "settings/RefreshNotification.h"
#include "styles/CurrentSelector.h"
#include "tests/preferences/ListPageTest.h"

namespace frelta {

inline std::string resourceNamed(const std::string& fileName) {
  std::ifstream file(std::string(FRELTA_RESOURCES_DIR) + "/" + fileName, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Lets a test look around at each post, as a process that listens would.
class LookingCenter : public DarwinNotificationCenter {
 public:
  void post(std::string_view name) override { atPost(name); }
  std::function<void(std::string_view name)> atPost;
};

/// The product's pages over the settings file of an empty device.
class PagesTest : public ListPageTest {
 protected:
  using Operation = FailingFiles::Operation;

  PagesTest() {
    GraphicsServices::install({&images_});
    UIKitServices services = UIKitServices::current();
    services.pictures = &pictures;
    UIKitServices::install(services);
    registerPages(bundle.registry);
    registerPresets(bundle.registry);
    bundle.resources["Root.plist"] = resourceNamed("Root.plist");
    bundle.resources["Advanced.plist"] = resourceNamed("Advanced.plist");
    FreltaPreferencesManager::clearCache();
    FreltaPreferencesManager::sharedInstance().setCurrentPresetPath(std::nullopt);
  }
  ~PagesTest() override {
    if (const auto page = freltaprefsRootListController::currentRootPage()) {
      page->viewWillDisappear(false);
    }
    setCurrentSelector(nullptr);
    GraphicsServices::install({});
  }

  void describeRoot(Array items) {
    bundle.describe("Root", Dictionary{{"items", std::move(items)}});
  }
  std::shared_ptr<freltaprefsRootListController> showRoot() {
    auto page = std::make_shared<freltaprefsRootListController>();
    show(page);
    return page;
  }

  void putSettings(const Dictionary& contents) {
    platform.put(kSettingsPath,
                 Platform::current().propertyLists->dataWithPropertyList(contents).value());
    FreltaPreferencesManager::clearCache();
  }
  Dictionary settingsFile() const {
    const auto list =
        Platform::current().propertyLists->propertyListWithData(platform.get(kSettingsPath));
    return list && list->dictionary() ? *list->dictionary() : Dictionary{};
  }

  /// Posts go there from now on, and nowhere else.
  void lookAtPosts(std::function<void(std::string_view name)> look) {
    center_.atPost = std::move(look);
    Platform services = Platform::current();
    services.darwinNotificationCenter = &center_;
    Platform::install(services);
  }

  static std::vector<std::string> identifiers(PSListController& page) {
    std::vector<std::string> result;
    for (const auto& row : page.specifiers()) result.push_back(row->identifier());
    return result;
  }
  static std::vector<std::string> rowIdentifiers(PSListController& page) {
    std::vector<std::string> result;
    for (const auto& row : page.specifiers()) {
      if (!row->isGroup()) result.push_back(row->identifier());
    }
    return result;
  }

  FakePicturePicker pictures;

 private:
  QtImageServices images_;
  LookingCenter center_;
};

}  // namespace frelta
