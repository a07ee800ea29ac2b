#include <gtest/gtest.h>

#include <set>

#include "fake/FakeServices.h"
#include "linux/LinuxRandomSource.h"

namespace frelta {
namespace {

TEST(LinuxRandomSource, DrawsAllBitsAndHardlyEverTheSameNumber) {
  LinuxRandomSource random;
  std::set<std::uint32_t> numbers;
  std::uint32_t everSet = 0, everClear = 0;

  for (int i = 0; i < 1000; ++i) {
    const std::uint32_t number = random.random32();
    numbers.insert(number);
    everSet |= number;
    everClear |= ~number;
  }

  EXPECT_GT(numbers.size(), 990u);
  EXPECT_EQ(everSet, 0xffff'ffffu);
  EXPECT_EQ(everClear, 0xffff'ffffu);
}

TEST(FakeRandomSource, HandsOutTheScriptThenZeros) {
  FakeRandomSource random;
  random.script = {7, 0xffff'ffff};

  EXPECT_EQ(random.random32(), 7u);
  EXPECT_EQ(random.random32(), 0xffff'ffffu);
  EXPECT_EQ(random.random32(), 0u);
  EXPECT_EQ(random.drawn, 3u);
}

}  // namespace
}  // namespace frelta
