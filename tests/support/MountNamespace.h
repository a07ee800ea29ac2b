#pragma once

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace frelta {

/// From now on this process's mounts are its own and may be made by anyone. False where the system
/// does not allow that.
inline bool enterOwnMountNamespace() {
  const bool isSuperuser = ::geteuid() == 0;
  const std::string user = "0 " + std::to_string(::geteuid()) + " 1";
  const std::string group = "0 " + std::to_string(::getegid()) + " 1";
  if (::unshare(isSuperuser ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  if (!isSuperuser) {
    // Without these the files on a new file system would belong to nobody, and none could be made.
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << user;
    std::ofstream("/proc/self/gid_map") << group;
  }
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

}  // namespace frelta
