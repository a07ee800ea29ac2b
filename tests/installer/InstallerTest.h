#pragma once

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "installer/StyleInstallation.h"
#include "tests/installer/GeneratedZip.h"
#include "tests/support/SystemCallFilter.h"
#include "tests/support/TemporaryFolder.h"

namespace frelta {

/// A device root with a styles folder, a place for sources beside it, and everything in view that
/// an installation could have changed.
class InstallerTest : public testing::Test {
 protected:
  InstallerTest() {
    std::filesystem::create_directories(themes());
    std::filesystem::create_directories(sources());
    write(sources() / "mine.txt", "mine");
  }

  std::filesystem::path root() const { return folder_.path() / "root"; }
  std::filesystem::path themes() const { return root() / "Library/Frelta/Themes"; }
  std::filesystem::path library() const { return root() / "Library/Frelta"; }
  std::filesystem::path sources() const { return folder_.path() / "sources"; }

  static void write(const std::filesystem::path& path, std::string_view bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string read(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }

  std::string put(const std::string& name, const GeneratedZip& zip) {
    write(sources() / name, zip.bytes());
    return sources() / name;
  }

  /// Every path below the test's folder but the sources' own bytes, files with what they hold.
  std::map<std::string, std::string> everything() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
      const bool file = entry.is_regular_file() && entry.path().extension() != ".zip";
      all[entry.path()] = file ? read(entry.path()) : "";
    }
    return all;
  }

  std::variant<InstalledStyle, StyleRefusal> install(const std::string& source) {
    installation.source = source;
    installation.root = root();
    return installStyle(installation);
  }

  /// Why it was refused, with nothing changed anywhere.
  StyleRefusal refusal(const std::string& source) {
    const auto before = everything();
    const auto result = install(source);
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(std::holds_alternative<StyleRefusal>(result));
    const auto* refusal = std::get_if<StyleRefusal>(&result);
    return refusal ? *refusal : StyleRefusal{};
  }

  /// The installed style's name; "refused" when it was not.
  std::string installedName(const std::string& source) {
    const auto result = install(source);
    const auto* style = std::get_if<InstalledStyle>(&result);
    if (const auto* refusal = std::get_if<StyleRefusal>(&result))
      ADD_FAILURE() << "reason " << static_cast<int>(refusal->reason) << ' ' << refusal->detail;
    return style ? style->name : "refused";
  }

  /// A style's folder among the sources.
  std::string folder(const std::string& name) const {
    write(sources() / name / "Images/Key.png", "key");
    return sources() / name;
  }

  /// For a child: whether it installs. The disk is not waited for, which takes longer than all
  /// else.
  int statusOfInstalling() const {
    failSystemCall(SYS_syncfs, 0);
    return std::holds_alternative<InstalledStyle>(installStyle(installation)) ? 0 : 1;
  }

  /// What unfinished installations have in the device root.
  std::vector<std::filesystem::path> unfinished() const {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(library()))
      if (entry.path().filename().string().starts_with(".installing-style"))
        found.push_back(entry.path());
    return found;
  }

  StyleInstallation installation;

 private:
  TemporaryFolder folder_;
};

inline testing::Matcher<const StyleRefusal&> refusedFor(StyleRefusalReason reason,
                                                        const std::string& detail = {}) {
  return testing::AllOf(testing::Field(&StyleRefusal::reason, reason),
                        testing::Field(&StyleRefusal::detail, detail));
}

}  // namespace frelta
