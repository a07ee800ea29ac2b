#include "foundation/StringPaths.h"

#include <gtest/gtest.h>

namespace frelta {
namespace {

TEST(StringPaths, Utf16LengthCountsTwoUnitsAboveTheBasicPlane) {
  EXPECT_EQ(utf16Length(""), 0u);
  EXPECT_EQ(utf16Length("abc"), 3u);
  EXPECT_EQ(utf16Length("é€"), 2u);
  EXPECT_EQ(utf16Length("😀"), 2u);
  EXPECT_EQ(utf16Length("👨‍👩‍👧"), 8u);
}

TEST(StringPaths, Utf16LengthCountsAByteThatIsNotUTF8AsOneUnit) {
  EXPECT_EQ(utf16Length("\xFF\xFE"), 2u);
  EXPECT_EQ(utf16Length("a\xC3"), 2u);
  EXPECT_EQ(utf16Length("\xED\xA0\x80"), 3u);
  EXPECT_EQ(utf16Length(std::string_view("\0x", 2)), 2u);
}

TEST(StringPaths, LastPathComponentIgnoresTrailingSlashes) {
  EXPECT_EQ(lastPathComponent("/Library/Frelta/Presets/Night.plist"), "Night.plist");
  EXPECT_EQ(lastPathComponent("/Library/Frelta//"), "Frelta");
  EXPECT_EQ(lastPathComponent("Night"), "Night");
  EXPECT_EQ(lastPathComponent("/"), "/");
  EXPECT_EQ(lastPathComponent("///"), "/");
  EXPECT_EQ(lastPathComponent(""), "");
}

TEST(StringPaths, DeletingTheExtensionTakesTheLastOneOnly) {
  EXPECT_EQ(stringByDeletingPathExtension("/a/Night.plist"), "/a/Night");
  EXPECT_EQ(stringByDeletingPathExtension("Night.plist"), "Night");
  EXPECT_EQ(stringByDeletingPathExtension("a.tar.gz"), "a.tar");
  EXPECT_EQ(stringByDeletingPathExtension("a..plist"), "a.");
  EXPECT_EQ(stringByDeletingPathExtension("a.bundle/"), "a");
}

TEST(StringPaths, DeletingTheExtensionLeavesAPathWithoutOne) {
  EXPECT_EQ(stringByDeletingPathExtension(".plist"), ".plist");
  EXPECT_EQ(stringByDeletingPathExtension("/a/.plist"), "/a/.plist");
  EXPECT_EQ(stringByDeletingPathExtension("/a.b/c"), "/a.b/c");
  EXPECT_EQ(stringByDeletingPathExtension("/a/b/"), "/a/b");
  EXPECT_EQ(stringByDeletingPathExtension("/"), "/");
  EXPECT_EQ(stringByDeletingPathExtension(""), "");
}

TEST(StringPaths, AppendingAComponentPutsOneSlashBetween) {
  EXPECT_EQ(stringByAppendingPathComponent("/a", "b"), "/a/b");
  EXPECT_EQ(stringByAppendingPathComponent("/a/", "b"), "/a/b");
  EXPECT_EQ(stringByAppendingPathComponent("/a//", "/b"), "/a/b");
  EXPECT_EQ(stringByAppendingPathComponent("/a", "b/c/"), "/a/b/c");
  EXPECT_EQ(stringByAppendingPathComponent("/", "b"), "/b");
}

TEST(StringPaths, AppendingToOrByNothingAddsNoSlash) {
  EXPECT_EQ(stringByAppendingPathComponent("", "b"), "b");
  EXPECT_EQ(stringByAppendingPathComponent("/a/", ""), "/a");
  EXPECT_EQ(stringByAppendingPathComponent("", ""), "");
}

}  // namespace
}  // namespace frelta
