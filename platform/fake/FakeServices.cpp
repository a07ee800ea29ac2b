#include "fake/FakeServices.h"

#include <algorithm>
#include <cerrno>
#include <exception>
#include <utility>

namespace frelta {

namespace {

/// Added times must not miss each other by a rounding error: ten steps of 0.1 reach 1.0.
constexpr double kSameTime = 1e-9;

}  // namespace

void FakeDarwinNotificationCenter::post(std::string_view name) {
  posted.emplace_back(name);
  if (whenPosted) whenPosted(name);
  deliver(name);
}

void FakeLog::log(std::string_view line) {
  lines.emplace_back(line);
}

bool FakeProcessLauncher::spawn(const std::string& path,
                                const std::vector<std::string>& argumentVector) {
  spawned.push_back({path, argumentVector});
  errno = isMissing ? ENOENT : failsToLaunch ? EACCES : 0;
  return errno == 0;
}

std::string FakeProcessLauncher::standardOutputOf(const std::string& path,
                                                  const std::vector<std::string>& arguments,
                                                  const std::string& workingDirectory) {
  runs.push_back({path, arguments, workingDirectory});
  if (isMissing) throw MissingProgram(path + ": scripted absence");
  if (failsToLaunch) throw LaunchFailure(path + ": scripted failure");
  return standardOutput.size() > kMaximumOutput ? std::string() : standardOutput;
}

void FakeMainQueue::async(Task task) {
  after(0, std::move(task));
}

void FakeMainQueue::after(double seconds, Task task) {
  tasks_.emplace(std::pair(now_ + std::max(0.0, seconds), nextOrder_++), std::move(task));
}

void FakeMainQueue::runPending() {
  advance(0);
}

void FakeMainQueue::advance(double seconds) {
  const double target = now_ + seconds;
  while (!tasks_.empty() && tasks_.begin()->first.first <= target + kSameTime) {
    const auto next = tasks_.extract(tasks_.begin());
    now_ = std::max(now_, next.key().first);
    try {
      next.mapped()();
    } catch (const std::exception& exception) {
      exceptions.emplace_back(exception.what());
    } catch (...) {
      exceptions.emplace_back("unknown exception");
    }
  }
  now_ = std::max(now_, target);
}

std::uint32_t FakeRandomSource::random32() {
  ++drawn;
  if (script.empty()) return 0;
  const std::uint32_t number = script.front();
  script.pop_front();
  return number;
}

void FakeWorkQueue::async(std::weak_ptr<const void> wanted, Work work, Work done) {
  jobs_.push_back({std::move(wanted), std::move(work), std::move(done)});
}

bool FakeWorkQueue::runNext() {
  std::erase_if(jobs_, [](const Job& job) { return job.wanted.expired(); });
  if (jobs_.empty()) return false;
  const Job job = std::move(jobs_.front());
  jobs_.pop_front();
  try {
    job.work();
  } catch (const std::exception& exception) {
    exceptions.emplace_back(exception.what());
  }
  if (!job.wanted.expired()) job.done();
  return true;
}

std::size_t FakeWorkQueue::waiting() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(jobs_, [](const Job& job) { return !job.wanted.expired(); }));
}

}  // namespace frelta
