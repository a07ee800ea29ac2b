#include "linux/LinuxDarwinNotificationCenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <set>
#include <thread>
#include <vector>

#include "fake/FakePlatform.h"
#include "tests/support/DarwinListener.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/PrivateBus.h"

namespace frelta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

std::chrono::milliseconds durationOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                               start);
}

/// This process's sockets.
std::set<int> sockets() {
  std::set<int> found;
  for (int descriptor = 0; descriptor < 1024; ++descriptor) {
    struct stat status;
    if (::fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode)) found.insert(descriptor);
  }
  return found;
}

// A bus that is waited for at each of a hundred posts, or for as long as a D-Bus call waits, takes
// longer than this; a busy machine does not.
constexpr auto kHang = 20s;

/// The socket by which the centre is connected, after its first post of that name.
int socketAfterPosting(LinuxDarwinNotificationCenter& center, std::string_view name) {
  const auto before = sockets();
  center.post(name);
  std::vector<int> own;
  std::ranges::set_difference(sockets(), before, std::back_inserter(own));
  return own.size() == 1 ? own.front() : -1;
}

TEST(LinuxDarwinNotificationCenter, WithoutABusPostingCostsNothing) {
  PrivateBus bus;
  bus.stop();
  LinuxDarwinNotificationCenter center;

  const auto duration = durationOf([&] {
    for (int i = 0; i < 1000; ++i) center.post("name");
  });

  EXPECT_LT(duration, kHang);
}

TEST(LinuxDarwinNotificationCenter, WithoutABusOwnObserversHearAllTheSame) {
  FakePlatform platform;
  PrivateBus bus;
  bus.stop();
  LinuxDarwinNotificationCenter center;
  int heard = 0;
  center.addObserver("row", [&] { ++heard; });

  center.post("row");
  platform.mainQueue.runPending();

  EXPECT_EQ(heard, 1);
}

TEST(LinuxDarwinNotificationCenter, WithoutAnAddressPostingCostsNothing) {
  const int status = exitStatusOfChild([] {
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("XDG_RUNTIME_DIR");
    LinuxDarwinNotificationCenter center;
    return durationOf([&] {
             for (int i = 0; i < 1000; ++i) center.post("name");
           }) < 1s
               ? 0
               : 1;
  });

  EXPECT_EQ(status, 0);
}

TEST(LinuxDarwinNotificationCenter, FindsABusThatComesLater) {
  PrivateBus bus;
  bus.stop();
  LinuxDarwinNotificationCenter center;
  center.post("lost");

  bus.start();
  DarwinListener listener;
  center.post("heard");
  center.post("end");

  EXPECT_THAT(listener.heard(2), ElementsAre("heard", "end"));
}

TEST(LinuxDarwinNotificationCenter, TheNextPostReachesABusThatWasKilledAndStartedAgain) {
  PrivateBus bus;
  LinuxDarwinNotificationCenter center;
  center.post("before");

  bus.stop();
  bus.start();
  DarwinListener listener;
  center.post("after");
  center.post("end");

  EXPECT_THAT(listener.heard(2), ElementsAre("after", "end"));
}

TEST(LinuxDarwinNotificationCenter, PostingToABusThatWasKilledIsHarmless) {
  PrivateBus bus;
  LinuxDarwinNotificationCenter center;
  center.post("before");
  bus.stop();

  const auto duration = durationOf([&] {
    for (int i = 0; i < 100; ++i) center.post("name");
  });

  EXPECT_LT(duration, kHang);
}

TEST(LinuxDarwinNotificationCenter, ThePostIsHeardThoughThePosterDiesAtOnce) {
  PrivateBus bus;
  DarwinListener listener;

  for (int i = 0; i < 20; ++i)
    exitStatusOfChild([&] {
      // Not destroyed: the process ends without tidying up.
      (new LinuxDarwinNotificationCenter)->post("name" + std::to_string(i));
      return 0;
    });

  EXPECT_THAT(listener.heard(20), testing::SizeIs(20));
}

TEST(LinuxDarwinNotificationCenter, APostThatGoesInPiecesIsWholeWhenItReturns) {
  PrivateBus bus;
  DarwinListener listener;
  const std::string large(200'000, 'n');

  const int status = exitStatusOfChild([&] {
    auto* center = new LinuxDarwinNotificationCenter;
    const int socket = socketAfterPosting(*center, "first");
    const int tiny = 4096;
    if (::setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &tiny, sizeof tiny) != 0) return 1;
    center->post(large);
    return 0;
  });

  EXPECT_EQ(status, 0);
  EXPECT_THAT(listener.heard(2), ElementsAre("first", large));
}

TEST(LinuxDarwinNotificationCenter, NamesThatTheBusCannotCarryAreDropped) {
  PrivateBus bus;
  DarwinListener listener;
  LinuxDarwinNotificationCenter center;

  center.post("\xff");
  center.post("cut \xe4\xb8");
  center.post("\xed\xa0\x80");
  center.post("\xc0\xaf");
  center.post(std::string_view("nul\0", 4));
  center.post("end");

  EXPECT_THAT(listener.heard(1), ElementsAre("end"));
}

TEST(LinuxDarwinNotificationCenter, ABusThatDoesNotAnswerCostsAQuarterSecondOnce) {
  PrivateBus bus;
  bus.freeze();
  LinuxDarwinNotificationCenter center;

  const auto first = durationOf([&] { center.post("lost"); });
  const auto others = durationOf([&] {
    for (int i = 0; i < 100; ++i) center.post("lost");
  });

  EXPECT_GE(first, 200ms);
  EXPECT_LT(first, kHang);
  EXPECT_LT(others, kHang);
}

TEST(LinuxDarwinNotificationCenter, ABusThatAnswersAgainIsFoundAgain) {
  PrivateBus bus;
  DarwinListener listener;
  bus.freeze();
  LinuxDarwinNotificationCenter center;
  center.post("lost");

  bus.resume();
  std::this_thread::sleep_for(2100ms);
  center.post("end");

  EXPECT_THAT(listener.heard(1), ElementsAre("end"));
}

TEST(LinuxDarwinNotificationCenter, ABusThatIsFullCostsAQuarterSecondOnce) {
  PrivateBus bus;
  LinuxDarwinNotificationCenter center;
  center.post("connected");
  bus.freeze();
  const std::string large(1 << 20, 'n');

  std::chrono::milliseconds longest{};
  for (int i = 0; i < 200 && longest < 200ms; ++i)
    longest = std::max(longest, durationOf([&] { center.post(large); }));
  const auto others = durationOf([&] {
    for (int i = 0; i < 100; ++i) center.post(large);
  });

  EXPECT_GE(longest, 200ms);
  EXPECT_LT(longest, kHang);
  EXPECT_LT(others, kHang);
}

/// Sends that many signals to every connection on the bus, and returns when the bus has them.
void flood(int count) {
  sd_bus* bus = nullptr;
  ASSERT_GE(::sd_bus_open_user(&bus), 0);
  char** names = nullptr;
  ASSERT_GE(::sd_bus_list_names(bus, &names, nullptr), 0);
  for (int i = 0; i < count; ++i)
    for (char** name = names; *name; ++name) {
      sd_bus_message* message = nullptr;
      ASSERT_GE(::sd_bus_message_new_signal(bus, &message, "/flood", "test.Flood", "Drop"), 0);
      ::sd_bus_message_set_destination(message, *name);
      ::sd_bus_send(bus, message, nullptr);
      ::sd_bus_message_unref(message);
    }
  ::sd_bus_flush(bus);
  for (char** name = names; *name; ++name) std::free(*name);
  std::free(names);
  sd_bus_message* reply = nullptr;
  ::sd_bus_call_method(bus, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId", nullptr,
                       &reply, "");
  ::sd_bus_message_unref(reply);
  ::sd_bus_close_unref(bus);
}

TEST(LinuxDarwinNotificationCenter, ASecondSenderDoesWithoutTheNameAndIsHeardAllTheSame) {
  PrivateBus bus;
  DarwinListener listener;
  LinuxDarwinNotificationCenter first;
  LinuxDarwinNotificationCenter second;

  first.post("first");
  second.post("second");
  first.post("end");

  EXPECT_THAT(listener.heard(3), ElementsAre("first", "second", "end"));
}

TEST(LinuxDarwinNotificationCenter, HasANameToBeWatchedByFromItsFirstPostOn) {
  PrivateBus bus;
  DarwinListener listener;
  LinuxDarwinNotificationCenter center;
  sd_bus* other = nullptr;
  ASSERT_GE(::sd_bus_open_user(&other), 0);
  const auto hasOwner = [&] {
    return ::sd_bus_get_name_creds(other, "com.tarno.DarwinNotificationCenter", 0, nullptr) >= 0;
  };
  const bool before = hasOwner();

  center.post("first");
  listener.heard(1);

  EXPECT_FALSE(before);
  EXPECT_TRUE(hasOwner());
  ::sd_bus_close_unref(other);
}

TEST(LinuxDarwinNotificationCenter, ReadsAndForgetsWhatTheBusSendsIt) {
  PrivateBus bus;
  DarwinListener listener;
  LinuxDarwinNotificationCenter center;
  const int socket = socketAfterPosting(center, "first");
  ASSERT_GE(socket, 0);
  flood(500);
  const auto unread = [&] {
    int bytes = 0;
    ::ioctl(socket, FIONREAD, &bytes);
    return bytes;
  };
  const int unreadBefore = unread();

  center.post("second");
  center.post("end");

  EXPECT_GT(unreadBefore, 10'000);
  EXPECT_EQ(unread(), 0);
  EXPECT_THAT(listener.heard(3), ElementsAre("first", "second", "end"));
}

}  // namespace
}  // namespace frelta
