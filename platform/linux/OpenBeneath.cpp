#include "linux/OpenBeneath.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace frelta {

namespace {

constexpr int kFolderOnTheWay = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

FileDescriptor openByHand(const FileDescriptor& folder, const std::string& path, int flags,
                          mode_t permissions) {
  FileDescriptor passed;
  int here = folder.get();
  std::size_t start = 0;
  for (std::size_t slash = path.find('/'); slash != std::string::npos;
       slash = path.find('/', start)) {
    passed =
        FileDescriptor(::openat(here, path.substr(start, slash - start).c_str(), kFolderOnTheWay));
    if (!passed) return {};
    here = passed.get();
    start = slash + 1;
  }
  return FileDescriptor(::openat(here, path.c_str() + start, flags, permissions));
}

}  // namespace

FileDescriptor openBeneath(const FileDescriptor& folder, const std::string& path, int flags,
                           mode_t permissions) {
  flags |= O_NOFOLLOW | O_CLOEXEC;
  open_how how{};
  how.flags = static_cast<unsigned>(flags);
  how.mode = flags & O_CREAT ? permissions : 0;
  how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
  FileDescriptor opened(
      static_cast<int>(::syscall(SYS_openat2, folder.get(), path.c_str(), &how, sizeof how)));
  if (opened || !kernelCannotOpenBeneath(errno)) return opened;
  return openByHand(folder, path, flags, permissions);
}

bool kernelCannotOpenBeneath(int error) {
  return error == ENOSYS || error == EPERM || error == EINVAL;
}

}  // namespace frelta
