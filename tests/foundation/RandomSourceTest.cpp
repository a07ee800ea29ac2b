#include "foundation/RandomSource.h"

#include <gtest/gtest.h>

#include <vector>

namespace frelta {
namespace {

class Scripted : public RandomSource {
 public:
  explicit Scripted(std::vector<std::uint32_t> numbers) : numbers_(std::move(numbers)) {}
  std::uint32_t random32() override { return numbers_.at(drawn++); }
  std::size_t drawn = 0;

 private:
  std::vector<std::uint32_t> numbers_;
};

TEST(RandomSource, AUUIDIsUpperCaseAndHyphenated) {
  Scripted random({0x01234567, 0x89ABCDEF, 0x01234567, 0x89ABCDEF});

  const std::string text = uuidString(random);

  EXPECT_EQ(text, "01234567-89AB-4DEF-8123-456789ABCDEF");
  EXPECT_EQ(random.drawn, 4u);
}

TEST(RandomSource, AUUIDSaysItsVersionAndVariantWhateverTheBits) {
  Scripted zeros({0, 0, 0, 0}), ones({~0u, ~0u, ~0u, ~0u});

  EXPECT_EQ(uuidString(zeros), "00000000-0000-4000-8000-000000000000");
  EXPECT_EQ(uuidString(ones), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
}

}  // namespace
}  // namespace frelta
