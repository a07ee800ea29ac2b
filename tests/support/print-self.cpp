// Usage: print-self FILE|- ...: writes what a child can tell of itself, a line each: the working
// folder, the arguments, the environment, the open descriptors.

#include <unistd.h>
#include <cerrno>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  // The file is moved into place when it is whole, for whoever waits for it.
  const std::string path = argv[1];
  const std::string unfinished = path + ".unfinished";
  // Looked at before a file of our own is open.
  std::string descriptors;
  for (int descriptor = 0; descriptor < 256; ++descriptor)
    if (::lseek(descriptor, 0, SEEK_CUR) >= 0 || errno != EBADF)
      descriptors += " " + std::to_string(descriptor);

  std::FILE* out = path == "-" ? stdout : std::fopen(unfinished.c_str(), "w");
  if (!out) return 1;
  std::fprintf(out, "folder=%s\n", std::filesystem::current_path().c_str());
  for (int i = 0; i < argc; ++i) std::fprintf(out, "argument=%s\n", argv[i]);
  for (char** entry = environ; entry && *entry; ++entry)
    std::fprintf(out, "environment=%s\n", *entry);
  std::fprintf(out, "descriptors=%s\n", descriptors.c_str());
  if (std::fclose(out) != 0) return 1;
  if (path != "-") std::filesystem::rename(unfinished, path);
  return 0;
}
