#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>

namespace frelta {

/// From now on, for the rest of this process's life, the system call ends as the seccomp action
/// says, before it has done anything.
inline void filterSystemCall(long number, std::uint32_t action) {
  sock_filter filter[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(number), 0, 1),
      BPF_STMT(BPF_RET | BPF_K, action),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog program{static_cast<unsigned short>(std::size(filter)), filter};
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
      ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
    throw std::runtime_error("no system-call filter");
}

/// The call fails with the error.
inline void failSystemCall(long number, int error) {
  filterSystemCall(number,
                   SECCOMP_RET_ERRNO | (static_cast<std::uint32_t>(error) & SECCOMP_RET_DATA));
}

/// The call kills the process.
inline void dieAtSystemCall(long number) {
  filterSystemCall(number, SECCOMP_RET_KILL_PROCESS);
}

}  // namespace frelta
