#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>

#include "tests/monkey/Monkey.h"
#include "tests/monkey/MonkeyOptions.h"

namespace frelta {
namespace {

constexpr int kStepsBetweenInspections = 100;
// Enough to have been on every page.
constexpr int kStepsForAllPages = 1000;
// Of growth between two quarters of a run. A page, a card or a picture that is not given back costs
// more than this.
constexpr double kBytesToSpare = 2 << 20;

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values.empty() ? 0 : values[values.size() / 2];
}

class MonkeyTest : public testing::TestWithParam<std::uint64_t> {};

TEST_P(MonkeyTest, LeavesTheApplicationWholeWhateverItDoes) {
  const MonkeyOptions& options = monkeyOptions();
  Monkey monkey(GetParam(), options.tracing);

  for (int step = 1; step <= options.steps && monkey.faults().empty(); ++step) {
    monkey.step();
    if (step % kStepsBetweenInspections == 0) monkey.inspect();
  }

  // By the first half every page has been seen and every cache is full.
  const auto& memory = monkey.memory();
  const auto quarter = static_cast<std::ptrdiff_t>(memory.size() / 4);
  const double before = median({memory.end() - 2 * quarter, memory.end() - quarter});
  const double after = median({memory.end() - quarter, memory.end()});
  std::printf(
      "Replay: test_monkey --seed=%llu --steps=%d --trace\nKilobytes: %.0f, then %.0f\nSteps:",
      static_cast<unsigned long long>(GetParam()), options.steps, before / 1024, after / 1024);
  for (const auto& [title, steps] : monkey.pages()) std::printf(" %s %d", title.c_str(), steps);
  std::printf("\n");
  EXPECT_THAT(monkey.faults(), testing::IsEmpty());
  if (options.steps >= kStepsForAllPages) {
    EXPECT_THAT(monkey.pages(),
                testing::UnorderedElementsAre(
                    testing::Key("Frelta"), testing::Key("Advanced"), testing::Key("Photo size"),
                    testing::Key("HTML Themes"), testing::Key("Image Themes"),
                    testing::Key("Widgets"), testing::Key("Presets")));
  }
  EXPECT_LT(after - before, kBytesToSpare);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::ValuesIn(monkeyOptions().seeds),
                         testing::PrintToStringParamName());

TEST(Monkey, DoesTheSameForTheSameSeed) {
  constexpr int kSteps = 100;
  const auto stepsOf = [](std::uint64_t seed) {
    Monkey monkey(seed);
    std::vector<std::string> steps;
    for (int i = 0; i < kSteps; ++i) steps.push_back(monkey.step());
    return steps;
  };

  const auto first = stepsOf(1);
  const auto again = stepsOf(1);
  const auto other = stepsOf(2);

  const auto [here, there] = std::ranges::mismatch(again, first);
  EXPECT_TRUE(here == again.end()) << *here << " instead of " << *there;
  EXPECT_NE(other, first);
}

}  // namespace
}  // namespace frelta
