#include <cstdlib>
#include <fstream>

#include "tests/presets/GeneratedPresets.h"
#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

constexpr int kCount = 1000;

using PresetRoundTrip = PresetsTest;

TEST_F(PresetRoundTrip, AThousandSharedPresetsAreImportedWithEqualValuesOfEqualTypes) {
  GeneratedPresets generated(1);
  FreltaPresets& shown = show();

  for (int i = 0; i < kCount; ++i) {
    const Dictionary preset = generated.next();
    putPreset("Shared", preset);
    const std::string text = FreltaPresets::base64StringFromDict(presetFile("Shared"));
    shown.importPresetWithBase64String(text, "Imported");

    ASSERT_EQ(presetFile("Imported"), preset) << i;
    ASSERT_EQ(alert(), nullptr) << i;
  }
}

// Turns each imported preset into a binary one of Python's own making: reading that one tells what
// Python understood, line breaks and all.
constexpr const char* kScript = R"(
import pathlib, plistlib, sys
for path in pathlib.Path(sys.argv[1]).glob("*.plist"):
    with open(path, "rb") as source, open(path.with_suffix(".binary"), "wb") as target:
        plistlib.dump(plistlib.load(source), target, fmt=plistlib.FMT_BINARY, sort_keys=False)
)";

TEST_F(PresetRoundTrip, PythonReadsEveryImportedFileAndGetsTheSame) {
  if (!std::filesystem::exists("/usr/bin/python3"))
    GTEST_SKIP() << "NOT TESTED: there is no /usr/bin/python3";
  GeneratedPresets generated(2);
  FreltaPresets& shown = show();
  std::vector<Dictionary> presets;
  for (int i = 0; i < kCount; ++i) {
    presets.push_back(generated.next());
    shown.importPresetWithBase64String(FreltaPresets::base64StringFromDict(presets.back()),
                                       std::to_string(i));
  }
  std::ofstream(platform.hostPath("/convert.py")) << kScript;

  const std::string command = "/usr/bin/python3 -I '" + platform.hostPath("/convert.py").string() +
                              "' '" + platform.hostPath(kFolder).string() + "'";
  const int status = std::system(command.c_str());

  ASSERT_EQ(status, 0);
  for (int i = 0; i < kCount; ++i) {
    ASSERT_EQ(contentsOf(kFolder + std::to_string(i) + ".binary"),
              presets[static_cast<std::size_t>(i)])
        << i;
  }
}

TEST_F(PresetRoundTrip, GeneratedPresetsHoldEveryType) {
  GeneratedPresets generated(1);
  std::string all;

  for (int i = 0; i < kCount; ++i)
    all += *Platform::current().propertyLists->dataWithPropertyList(generated.next());

  for (const char* tag : {"<true/>", "<false/>", "<integer>-", "<integer>1", "<real>-0<",
                          "<string>", "<array>", "<dict>", "<key></key>", "😀", "&#13;"})
    EXPECT_NE(all.find(tag), std::string::npos) << tag;
}

}  // namespace
}  // namespace frelta
