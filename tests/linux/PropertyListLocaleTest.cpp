#include <gtest/gtest.h>
#include <locale.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "linux/LinuxJSONSerialization.h"
#include "linux/LinuxPropertyListSerialization.h"

namespace frelta {
namespace {

/// Numbers as in Pashto, whose decimal point is a character of two bytes.
class PropertyListLocale : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder_);
    const std::string command =
        "localedef -i ps_AF -f UTF-8 '" + (folder_ / "ps_AF.UTF-8").string() + "' 2>/dev/null";
    const int status = std::system(command.c_str());
    setenv("LOCPATH", folder_.c_str(), 1);
    const bool there = status == 0 && setlocale(LC_NUMERIC, "ps_AF.UTF-8") != nullptr;
    if (!there || localeconv()->decimal_point != std::string("٫"))
      GTEST_SKIP() << "NOT TESTED: the Pashto locale cannot be made here (package locales)";
  }

  void TearDown() override {
    setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
    std::filesystem::remove_all(folder_);
  }

 private:
  const std::filesystem::path folder_ =
      testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(PropertyListLocale, NumbersAreReadAndWrittenWithADotAndTheLocaleStays) {
  const LinuxPropertyListSerialization propertyLists;
  const LinuxJSONSerialization json;
  const PropertyListValue number(1.5), text("1.5");

  const std::string document = propertyLists.dataWithPropertyList(number).value();
  const std::string jsonDocument = json.prettyPrintedDataWithObject(number);

  EXPECT_NE(document.find("<real>1.5</real>"), std::string::npos);
  EXPECT_EQ(jsonDocument, "1.5");
  EXPECT_EQ(propertyLists.propertyListWithData(document), number);
  EXPECT_EQ(json.objectWithData(jsonDocument), number);
  EXPECT_EQ(text.doubleValue(), 1.5);
  EXPECT_EQ(localeconv()->decimal_point, std::string("٫"));
}

}  // namespace
}  // namespace frelta
