#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fake/FakePlatform.h"
#include "fake/FakeServices.h"
#include "linux/LinuxDarwinNotificationCenter.h"
#include "tests/support/DarwinListener.h"
#include "tests/support/PrivateBus.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The real one, heard by another process.
class OnTheBus {
 public:
  DarwinNotificationCenter& center() { return center_; }
  std::vector<std::string> heard(std::size_t count) { return listener_.heard(count); }

 private:
  PrivateBus bus_;
  DarwinListener listener_;
  LinuxDarwinNotificationCenter center_;
};

class Recorded {
 public:
  DarwinNotificationCenter& center() { return center_; }
  std::vector<std::string> heard(std::size_t) { return center_.posted; }

 private:
  FakeDarwinNotificationCenter center_;
};

template <typename Driver>
class DarwinNotificationCenterContract : public testing::Test {
 protected:
  Driver driver;
  DarwinNotificationCenter& center = driver.center();
};

using Drivers = testing::Types<OnTheBus, Recorded>;
TYPED_TEST_SUITE(DarwinNotificationCenterContract, Drivers);

TYPED_TEST(DarwinNotificationCenterContract, APostIsHeardOnce) {
  this->center.post("com.tarno.frelta.refresh");
  this->center.post("end");

  EXPECT_THAT(this->driver.heard(2), ElementsAre("com.tarno.frelta.refresh", "end"));
}

TYPED_TEST(DarwinNotificationCenterContract, TheSameNameTwiceIsHeardTwice) {
  this->center.post("row");
  this->center.post("row");
  this->center.post("end");

  EXPECT_THAT(this->driver.heard(3), ElementsAre("row", "row", "end"));
}

TYPED_TEST(DarwinNotificationCenterContract, ManyPostsAreHeardInTheirOrder) {
  constexpr int kCount = 2000;
  std::vector<std::string> names;
  for (int i = 0; i < kCount; ++i) names.push_back("name" + std::to_string(i));

  for (const auto& name : names) this->center.post(name);

  EXPECT_EQ(this->driver.heard(kCount), names);
}

TYPED_TEST(DarwinNotificationCenterContract, NamesAreHeardAsTheyAre) {
  const std::string large(1 << 20, 'n');

  this->center.post("");
  this->center.post("größe 鍵盤 \n\t'\"");
  this->center.post(large);

  EXPECT_THAT(this->driver.heard(3), ElementsAre("", "größe 鍵盤 \n\t'\"", large));
}

TYPED_TEST(DarwinNotificationCenterContract, OwnObserversHearTheirNameOnTheQueuesNextTurn) {
  FakePlatform platform;
  std::vector<std::string> heard;
  this->center.addObserver("row", [&] { heard.emplace_back("first"); });
  this->center.addObserver("row", [&] { heard.emplace_back("second"); });
  this->center.addObserver("rows", [&] { heard.emplace_back("another name"); });

  this->center.post("row");
  const auto atOnce = heard;
  platform.mainQueue.runPending();

  EXPECT_THAT(atOnce, IsEmpty());
  EXPECT_THAT(heard, ElementsAre("first", "second"));
}

}  // namespace
}  // namespace frelta
