#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "GeneratedPropertyLists.h"
#include "linux/BinaryPropertyListReader.h"
#include "linux/BinaryPropertyListWriter.h"
#include "linux/LinuxPropertyListSerialization.h"

namespace frelta {
namespace {

namespace fs = std::filesystem;

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string form = fs::temp_directory_path() / "frelta-test-XXXXXX";
    if (!mkdtemp(form.data())) throw std::runtime_error("no temporary folder");
    path_ = form;
  }
  ~TemporaryFolder() { fs::remove_all(path_); }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

TEST(PropertyListRoundTrip, AThousandGeneratedValuesReadAsTheyWereWritten) {
  const LinuxPropertyListSerialization propertyLists;
  GeneratedPropertyLists generated(1);

  for (int i = 0; i < 1'000; ++i) {
    const PropertyListValue value = generated.next();
    const std::optional<std::string> document = propertyLists.dataWithPropertyList(value);

    ASSERT_TRUE(document) << i;
    ASSERT_EQ(propertyLists.propertyListWithData(*document), value) << *document;
  }
}

TEST(PropertyListRoundTrip, AThousandGeneratedValuesReadTheSameInTheBinaryForm) {
  GeneratedPropertyLists generated(3);

  for (int i = 0; i < 1'000; ++i) {
    const PropertyListValue value = generated.next();
    const std::optional<std::string> document = writeBinaryPropertyList(value);

    ASSERT_TRUE(document) << i;
    ASSERT_EQ(readBinaryPropertyList(*document), value) << i;
  }
}

TEST(PropertyListRoundTrip, GeneratedValuesHoldEveryType) {
  GeneratedPropertyLists generated(1);
  std::string all;

  for (int i = 0; i < 100; ++i)
    all += LinuxPropertyListSerialization().dataWithPropertyList(generated.next()).value();

  for (const char* tag :
       {"<true/>", "<false/>", "<integer>-", "<integer>1", "<real>nan<", "<real>-0<", "<date>",
        "<data>", "<string>", "<array>", "<dict>", "<key></key>", "😀", "&#13;"})
    EXPECT_NE(all.find(tag), std::string::npos) << tag;
}

TEST(PropertyListRoundTrip, PythonReadsBothFormsThatAreWrittenAndItsBinaryFormReadsTheSame) {
  if (!fs::exists("/usr/bin/python3")) GTEST_SKIP() << "NOT TESTED: there is no /usr/bin/python3";
  constexpr int kCount = 300;
  const LinuxPropertyListSerialization propertyLists;
  const TemporaryFolder folder;
  GeneratedPropertyLists generated(2);
  std::vector<PropertyListValue> values;
  for (int i = 0; i < kCount; ++i) {
    values.push_back(generated.next());
    const auto document = i % 2 == 0 ? propertyLists.dataWithPropertyList(values.back())
                                     : writeBinaryPropertyList(values.back());
    std::ofstream(folder.path() / (std::to_string(i) + ".plist"), std::ios::binary)
        << document.value();
  }
  std::ofstream(folder.path() / "convert.py") << R"(
import pathlib, plistlib, sys
for path in pathlib.Path(sys.argv[1]).glob("*.plist"):
    with open(path, "rb") as source, open(path.with_suffix(".binary"), "wb") as target:
        plistlib.dump(plistlib.load(source), target, fmt=plistlib.FMT_BINARY, sort_keys=False)
)";

  const std::string command = "/usr/bin/python3 -I '" + (folder.path() / "convert.py").string() +
                              "' '" + folder.path().string() + "'";
  const int status = std::system(command.c_str());

  ASSERT_EQ(status, 0);
  for (int i = 0; i < kCount; ++i) {
    const std::string binary = contentsOf(folder.path() / (std::to_string(i) + ".binary"));
    ASSERT_EQ(propertyLists.propertyListWithData(binary), values[static_cast<std::size_t>(i)]) << i;
  }
}

}  // namespace
}  // namespace frelta
