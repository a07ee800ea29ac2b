#pragma once

#include <sys/types.h>

#include <string>

#include "linux/FileDescriptor.h"

namespace frelta {

/// Opens what is at the path below the folder, "a/b/c", without following a link anywhere on the
/// way: the path's components are names, not "..". Flags as open(2) takes them, with the
/// permissions where they create. No descriptor, and the reason in errno, when that fails.
FileDescriptor openBeneath(const FileDescriptor& folder, const std::string& path, int flags,
                           mode_t permissions = 0);

/// Whether the error says that this kernel does not know openat2(), or that a sandbox that does not
/// know it forbids it.
bool kernelCannotOpenBeneath(int error);

}  // namespace frelta
