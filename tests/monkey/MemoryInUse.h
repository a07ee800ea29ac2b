#pragma once

#include <malloc.h>

#include <cstddef>

#ifdef __SANITIZE_ADDRESS__
// The compiler comes without the header that declares it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace frelta {

/// Bytes that are allocated now.
inline double memoryInUse() {
#ifdef __SANITIZE_ADDRESS__
  return static_cast<double>(__sanitizer_get_current_allocated_bytes());
#else
  const auto now = mallinfo2();
  return static_cast<double>(now.uordblks + now.hblkhd);
#endif
}

}  // namespace frelta
