#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "foundation/Platform.h"

namespace frelta {

/// Records the names posted, in order; carries them to this process's observers alone.
class FakeDarwinNotificationCenter : public DarwinNotificationCenter {
 public:
  void post(std::string_view name) override;
  std::vector<std::string> posted;
  /// Runs at each post; lets a test look around as a process that listens would.
  std::function<void(std::string_view name)> whenPosted;
};

/// Records the lines, in order.
class FakeLog : public Log {
 public:
  void log(std::string_view line) override;
  std::vector<std::string> lines;
};

/// Records what would have been started and plays back output; starts nothing.
class FakeProcessLauncher : public ProcessLauncher {
 public:
  struct Spawn {
    std::string path;
    std::vector<std::string> argumentVector;
  };
  struct Run {
    std::string path;
    std::vector<std::string> arguments;
    std::string workingDirectory;
  };

  bool spawn(const std::string& path, const std::vector<std::string>& argumentVector) override;
  std::string standardOutputOf(const std::string& path, const std::vector<std::string>& arguments,
                               const std::string& workingDirectory) override;

  std::vector<Spawn> spawned;
  std::vector<Run> runs;
  /// What every run prints.
  std::string standardOutput;
  /// When set, nothing can be started, and a run throws MissingProgram, or else LaunchFailure.
  bool isMissing = false;
  bool failsToLaunch = false;
};

/// Virtual time that moves only when told.
class FakeMainQueue : public MainQueue {
 public:
  double now() const override { return now_; }
  void async(Task task) override;
  void after(double seconds, Task task) override;

  /// Runs what is due now, and what that queues for now, until nothing is left.
  void runPending();
  /// Moves the clock, running each task at its own time, ties in the order queued.
  void advance(double seconds);
  /// Tasks not yet run.
  std::size_t pending() const { return tasks_.size(); }
  /// The line logged for each exception that left a task.
  std::vector<std::string> exceptions;

 private:
  double now_ = 0;
  unsigned long long nextOrder_ = 0;
  std::map<std::pair<double, unsigned long long>, Task> tasks_;
};

/// Hands out the scripted numbers, then zeros.
class FakeRandomSource : public RandomSource {
 public:
  std::uint32_t random32() override;
  std::deque<std::uint32_t> script;
  std::size_t drawn = 0;
};

/// Keeps what is to be done beside the main thread until a test has it done.
class FakeWorkQueue : public WorkQueue {
 public:
  void async(std::weak_ptr<const void> wanted, Work work, Work done) override;

  /// Does the first work that is still wanted, and tells of it; false when none is.
  bool runNext();
  /// How many wait and are still wanted.
  std::size_t waiting() const;
  /// The line logged for each exception that left a work.
  std::vector<std::string> exceptions;

 private:
  struct Job {
    std::weak_ptr<const void> wanted;
    Work work;
    Work done;
  };
  std::deque<Job> jobs_;
};

class FakeSystemInformation : public SystemInformation {
 public:
  SystemVersion systemVersion() const override { return version; }
  std::vector<Window> windows() const override { return openWindows; }
  double screenScale() const override { return scale; }
  SystemVersion version{13, 0, 0};
  std::vector<Window> openWindows{{true, UserInterfaceStyle::Light}};
  double scale = 2;
};

}  // namespace frelta
