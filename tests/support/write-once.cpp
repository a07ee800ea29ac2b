// Usage: write-once ROOT PATH COUNT: one atomic write of that many "n", before which it stops for
// whoever traces it. 0 when it succeeded.

#include <signal.h>

#include <cstdlib>
#include <string>

#include "linux/LinuxFileManager.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const std::string bytes(std::strtoull(argv[3], nullptr, 10), 'n');
  frelta::LinuxFileManager files(argv[1]);
  ::raise(SIGSTOP);
  // Ends without a leak check, which cannot work under a tracer.
  std::_Exit(files.writeAtomically(argv[2], bytes) ? 0 : 1);
}
