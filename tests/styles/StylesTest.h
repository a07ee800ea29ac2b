#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "device/Paths.h"
#include "fake/FakePlatform.h"
#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "styles/CurrentSelector.h"
#include "styles/FreltaStyleLibrary.h"
#include "tests/support/Pictures.h"

namespace frelta {

/// A device without styles, and real pictures.
class StylesTest : public testing::Test {
 protected:
  using Operation = FailingFiles::Operation;

  StylesTest() { GraphicsServices::install({&images}); }
  ~StylesTest() override {
    setCurrentSelector(nullptr);
    GraphicsServices::install({});
  }

  static std::string inThemes(std::string_view name) {
    return std::string(kThemesFolder) + std::string(name);
  }
  /// Makes the folder on the host, behind the file manager's back.
  void makeFolder(std::string_view devicePath) const {
    std::filesystem::create_directories(platform.hostPath(devicePath));
  }
  void putPicture(std::string_view devicePath, const UIImage& image) {
    platform.put(devicePath, UIImagePNGRepresentation(image).value());
  }
  void putSettings(const Dictionary& contents) {
    platform.put(kSettingsPath,
                 Platform::current().propertyLists->dataWithPropertyList(contents).value());
  }
  /// What is in the settings file now; nothing when it is no dictionary.
  std::optional<Dictionary> settings() const {
    const auto list =
        Platform::current().propertyLists->propertyListWithData(platform.get(kSettingsPath));
    return list && list->dictionary() ? std::optional(*list->dictionary()) : std::nullopt;
  }

  FakePlatform platform;
  QtImageServices images;
};

/// A selector without a screen.
class TestSelector : public FreltaStyleLibrary, public std::enable_shared_from_this<TestSelector> {
 protected:
  std::shared_ptr<FreltaStyleLibrary> strongReference() override { return shared_from_this(); }
};

/// Records what the library has its table do, and shows the cells that the test names.
class RecordingTable : public FreltaStyleTable {
 public:
  std::vector<VisibleCell> visibleCells() const override { return cells; }
  void updateHeaderCell(IndexPath path) override { note("header", path); }
  void updateSubCells(IndexPath path) override { note("sub cells", path); }
  void reloadData() override { did.emplace_back("reload"); }
  void reloadSection(int section) override {
    did.push_back("reload section " + std::to_string(section));
  }
  void beginUpdates() override { did.emplace_back("begin"); }
  void endUpdates() override { did.emplace_back("end"); }
  void moveRowAtIndexPath(IndexPath from, IndexPath to) override {
    note("move " + text(from) + " to", to);
  }
  void scrollToRowAtIndexPath(IndexPath path) override { note("scroll to", path); }

  std::vector<VisibleCell> cells;
  std::vector<std::string> did;

 private:
  static std::string text(IndexPath path) {
    return std::to_string(path.section) + "." + std::to_string(path.row);
  }
  void note(const std::string& what, IndexPath path) { did.push_back(what + " " + text(path)); }
};

}  // namespace frelta
