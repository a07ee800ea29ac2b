#include "preferences/PSBundle.h"

#include <gtest/gtest.h>

namespace frelta {
namespace {

TEST(PSBundle, InfoNamesThePrincipalClassAndTheExecutable) {
  const auto info = bundleInfoWithValue(
      Dictionary{{"NSPrincipalClass", "FirstPage"}, {"CFBundleExecutable", "bundle"}});

  ASSERT_TRUE(info);
  EXPECT_EQ(info->principalClass, "FirstPage");
  EXPECT_EQ(info->executable, "bundle");
}

TEST(PSBundle, InfoThatLacksEitherOrLeadsOutOfTheBundleIsRefused) {
  const auto info = [](PropertyListValue principalClass, PropertyListValue executable) {
    return bundleInfoWithValue(Dictionary{{"NSPrincipalClass", std::move(principalClass)},
                                          {"CFBundleExecutable", std::move(executable)}});
  };

  EXPECT_FALSE(bundleInfoWithValue("text"));
  EXPECT_FALSE(bundleInfoWithValue(Dictionary{{"NSPrincipalClass", "FirstPage"}}));
  EXPECT_FALSE(bundleInfoWithValue(Dictionary{{"CFBundleExecutable", "bundle"}}));
  EXPECT_FALSE(info("", "bundle"));
  EXPECT_FALSE(info(1, "bundle"));
  EXPECT_FALSE(info("FirstPage", "../bundle"));
  EXPECT_FALSE(info("FirstPage", ""));
}

TEST(PSBundle, ResourceNamesStayInsideTheBundle) {
  EXPECT_TRUE(PSBundle::isResourceName("Root.plist"));
  EXPECT_TRUE(PSBundle::isResourceName("..plist"));
  EXPECT_FALSE(PSBundle::isResourceName(""));
  EXPECT_FALSE(PSBundle::isResourceName("."));
  EXPECT_FALSE(PSBundle::isResourceName(".."));
  EXPECT_FALSE(PSBundle::isResourceName("../Root.plist"));
  EXPECT_FALSE(PSBundle::isResourceName("a/b"));
  EXPECT_FALSE(PSBundle::isResourceName(std::string_view("a\0b", 3)));
}

}  // namespace
}  // namespace frelta
