#include "linux/LinuxDarwinNotificationCenter.h"

#include <poll.h>
#include <systemd/sd-bus.h>

#include <cerrno>

#include "foundation/UTF8.h"

namespace frelta {

namespace {

constexpr const char* kPath = "/com/tarno/DarwinNotificationCenter";
constexpr const char* kInterface = "com.tarno.DarwinNotificationCenter";
constexpr const char* kMember = "Posted";

constexpr std::chrono::milliseconds kPatience{250};
constexpr std::chrono::seconds kRest{2};

int ignoreReply(sd_bus_message*, void*, sd_bus_error*) {
  return 0;
}

bool isCarriedByBus(std::string_view name) {
  for (std::size_t position = 0; position < name.size();) {
    const auto scalar = scalarAt(name, position);
    if (!scalar || scalar->value == 0) return false;
    position += scalar->length;
  }
  return true;
}

}  // namespace

LinuxDarwinNotificationCenter::~LinuxDarwinNotificationCenter() {
  disconnect();
}

void LinuxDarwinNotificationCenter::post(std::string_view name) {
  deliver(name);
  const auto now = Clock::now();
  if (now < leaveAloneUntil_ || !isCarriedByBus(name)) return;
  const std::string text(name);
  const auto deadline = now + kPatience;

  const bool wasConnected = bus_ != nullptr;
  Outcome outcome = send(text, deadline);
  if (outcome == Outcome::Lost && wasConnected) outcome = send(text, deadline);
  if (outcome == Outcome::TimedOut) {
    disconnect();
    leaveAloneUntil_ = Clock::now() + kRest;
  }
}

std::string LinuxDarwinNotificationCenter::senderName() const {
  const char* name = nullptr;
  return bus_ && ::sd_bus_get_unique_name(bus_, &name) >= 0 ? name : std::string();
}

bool LinuxDarwinNotificationCenter::connect() {
  if (::sd_bus_open_user(&bus_) < 0) {
    bus_ = nullptr;
    return false;
  }
  // A name lets people watch us with tools that follow a sender. Whether we get it matters to no
  // one else; another application of the kind may have it, and then we wait for it.
  ::sd_bus_request_name_async(bus_, nullptr, kInterface, SD_BUS_NAME_QUEUE, ignoreReply, nullptr);
  return true;
}

LinuxDarwinNotificationCenter::Outcome LinuxDarwinNotificationCenter::send(
    const std::string& name, Clock::time_point deadline) {
  if (!bus_ && !connect()) return Outcome::Lost;
  // Settling first tells whether the bus is still there, and reads what it has sent meanwhile.
  Outcome outcome = settle(deadline);
  if (outcome == Outcome::Done) {
    const int sent = ::sd_bus_emit_signal(bus_, kPath, kInterface, kMember, "s", name.c_str());
    outcome = sent < 0 ? Outcome::Lost : settle(deadline);
  }
  if (outcome != Outcome::Done) disconnect();
  return outcome;
}

/// Works until the bus has accepted us and the kernel has taken all there is to send.
LinuxDarwinNotificationCenter::Outcome LinuxDarwinNotificationCenter::settle(
    Clock::time_point deadline) {
  for (;;) {
    const int processed = ::sd_bus_process(bus_, nullptr);
    const int events = ::sd_bus_get_events(bus_);
    if (processed < 0 || events < 0 || ::sd_bus_is_open(bus_) <= 0) return Outcome::Lost;
    const auto left = std::chrono::ceil<std::chrono::microseconds>(deadline - Clock::now());
    const bool isSettled = ::sd_bus_is_ready(bus_) > 0 && (events & POLLOUT) == 0;
    if (isSettled && (processed == 0 || left.count() <= 0)) return Outcome::Done;
    if (left.count() <= 0) return Outcome::TimedOut;
    if (processed > 0) continue;
    const int waited = ::sd_bus_wait(bus_, static_cast<std::uint64_t>(left.count()));
    if (waited < 0 && waited != -EINTR) return Outcome::Lost;
  }
}

void LinuxDarwinNotificationCenter::disconnect() {
  // Not flushed: that could wait for ever.
  bus_ = ::sd_bus_close_unref(bus_);
}

}  // namespace frelta
