#include <sys/stat.h>
#include <fstream>

#include "tests/app/PresetsWindow.h"
#include "tests/support/FullDisk.h"
#include "tests/support/MountNamespace.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

/// No right keeps the superuser from writing, only a mount does; the device root looks mounts up
/// where it was opened, so this comes before it.
struct SuperusersOwnMounts {
  bool entered = ::geteuid() == 0 && enterOwnMountNamespace();
};

class PresetsFaultsWindow : private SuperusersOwnMounts, public PresetsWindow {
 protected:
  std::string hostFolder() { return window.platform.hostPath(kFolder).parent_path(); }
  /// False where the system does not allow that.
  bool makeFolderReadOnly() {
    if (::geteuid() != 0) return ::chmod(hostFolder().c_str(), S_IRUSR | S_IXUSR) == 0;
    readOnly_ = entered &&
                ::mount(hostFolder().c_str(), hostFolder().c_str(), nullptr, MS_BIND, nullptr) == 0;
    return readOnly_ && ::mount(nullptr, hostFolder().c_str(), nullptr,
                                MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
  }
  void TearDown() override {
    if (readOnly_)
      ::umount2(hostFolder().c_str(), MNT_DETACH);
    else
      ::chmod(hostFolder().c_str(), S_IRWXU);
  }
  void typeNewPreset(const QString& name) {
    ASSERT_TRUE(driver().tapRightButton());
    type(0, name);
  }
  void typeImport(const QString& name) {
    window.pasteboard.text = "text";
    ASSERT_TRUE(driver().tapRightButton());
    press("Import Existing Preset...");
    type(0, name);
    type(1, QStringLiteral("e30="));
  }
  void expectImportError() {
    EXPECT_EQ(alertTitle(), "Error");
    ASSERT_FALSE(window.platform.log.lines.empty());
    EXPECT_THAT(window.platform.log.lines.back(),
                EndsWith("importPresetWithBase64String writeToFile FAILED"));
    press("OK");
  }

 private:
  bool readOnly_ = false;
};

TEST_F(PresetsFaultsWindow, OnAFullDiskSavingLeavesNothingBehindAndChangesNoSetting) {
  putPreset("A", {});
  window.putSettings({{"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(openScreen());
  ASSERT_NO_FATAL_FAILURE(typeNewPreset(QStringLiteral("New")));

  {
    const FullDisk disk;
    press("Save");
  }

  EXPECT_EQ(alertTitle(), "no alert");
  EXPECT_THAT(folder(), ElementsAre("A.plist"));
  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_FALSE(hasBackup());
  EXPECT_THAT(broadcasts(), IsEmpty());
  EXPECT_NE(itemOfRow("A"), nullptr);
}

TEST_F(PresetsFaultsWindow, OnAFullDiskAnImportSaysThatItFailed) {
  ASSERT_NO_FATAL_FAILURE(openScreen());
  ASSERT_NO_FATAL_FAILURE(typeImport(QStringLiteral("New")));

  {
    const FullDisk disk;
    press("Import");
  }

  ASSERT_NO_FATAL_FAILURE(expectImportError());
  EXPECT_THAT(folder(), IsEmpty());
  EXPECT_THAT(broadcasts(), IsEmpty());
}

TEST_F(PresetsFaultsWindow, AReadOnlyFolderKeepsItsPresetsWhichCanStillBeApplied) {
  putPreset("A", {{"HideKeyCaps", 1}});
  window.putSettings({{"HideKeyCaps", 0}});
  if (!makeFolderReadOnly()) GTEST_SKIP() << "NOT TESTED: no mounts here";
  ASSERT_NO_FATAL_FAILURE(openScreen());

  swipeAndTap("A", QStringLiteral("Delete"));
  press("Confirm");
  ASSERT_NO_FATAL_FAILURE(typeNewPreset(QStringLiteral("New")));
  press("Save");
  ASSERT_NO_FATAL_FAILURE(typeImport(QStringLiteral("A")));
  press("Import");
  ASSERT_NO_FATAL_FAILURE(expectImportError());

  EXPECT_THAT(folder(), ElementsAre("A.plist"));
  EXPECT_EQ(preset("A"), (Dictionary{{"HideKeyCaps", 1}}));
  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_THAT(broadcasts(), IsEmpty());
  EXPECT_TRUE(driver().tapRowWithText("A"));
  press("Confirm");
  EXPECT_EQ(window.settings(), (Dictionary{{"CurrentPreset", pathOf("A")}}));
  EXPECT_THAT(broadcasts(), ElementsAre(kRefresh));
}

TEST_F(PresetsFaultsWindow, AFileInPlaceOfTheFolderStaysAsItIs) {
  std::filesystem::create_directories(window.platform.hostPath("/Library/Frelta"));
  std::ofstream(hostFolder()) << "a file";
  window.putSettings({{"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  ASSERT_NO_FATAL_FAILURE(typeNewPreset(QStringLiteral("New")));
  press("Save");
  EXPECT_EQ(alertTitle(), "no alert");
  ASSERT_NO_FATAL_FAILURE(typeImport(QStringLiteral("New")));
  press("Import");
  ASSERT_NO_FATAL_FAILURE(expectImportError());

  EXPECT_EQ(window.platform.get("/Library/Frelta/Presets"), "a file");
  EXPECT_EQ(window.settings(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_FALSE(hasBackup());
  EXPECT_THAT(broadcasts(), IsEmpty());
}

TEST_F(PresetsFaultsWindow, FilesThatAreNoPresetsAreListedAndAppliedAsEmptyOnes) {
  std::filesystem::create_directories(window.platform.hostPath(kFolder) / "Folder.plist");
  window.platform.put(pathOf("Foreign"), "\xff\xfe no property list");
  window.putSettings({{"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(openScreen());

  for (const std::string name : {"Folder", "Foreign"}) {
    swipeAndTap(name, QStringLiteral("Share"));
    EXPECT_EQ(alertTitle(), "no alert");
    EXPECT_TRUE(driver().tapRowWithText(name));
    press("Confirm");
    EXPECT_EQ(window.settings(), (Dictionary{{"CurrentPreset", pathOf(name)}}));
    EXPECT_TRUE(isTicked(name));
  }

  EXPECT_THAT(window.platform.log.lines,
              testing::Each("[Frelta] Uncaught exception: base64StringFromDict: there is no "
                            "dictionary"));
  EXPECT_THAT(broadcasts(), ElementsAre(kRefresh, kRefresh));
}

}  // namespace
}  // namespace frelta
