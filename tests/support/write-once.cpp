// Usage: write-once ROOT PATH COUNT: one atomic write of that many "n". 0 when it succeeded.

#include <cstdlib>
#include <string>

#include "linux/LinuxFileManager.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  frelta::LinuxFileManager files(argv[1]);
  const std::string bytes(std::strtoull(argv[3], nullptr, 10), 'n');
  return files.writeAtomically(argv[2], bytes) ? 0 : 1;
}
