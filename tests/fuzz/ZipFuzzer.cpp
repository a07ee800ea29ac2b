#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>

#include "CheckedPlan.h"
#include "installer/ZipDirectory.h"
#include "installer/ZipStyleSource.h"
#include "linux/FileDescriptor.h"

/// Whatever a zip file holds, its list is within the limits, its plan is safe to make, and no entry
/// gives more bytes than it says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  static const FileDescriptor kFile(::memfd_create("zip", MFD_CLOEXEC));
  require(::ftruncate(kFile.get(), 0) == 0);
  require(::pwrite(kFile.get(), bytes, size, 0) == static_cast<ssize_t>(size));
  const StyleLimits limits{.entries = 40, .bytes = 1 << 20, .depth = 6, .listBytes = 2000};

  const auto found = findZipDirectory(kFile.get(), limits);
  const auto* directory = std::get_if<ZipDirectory>(&found);
  if (!directory) return 0;
  require(directory->entries <= limits.entries && directory->list.size() <= limits.listBytes);
  require(directory->offset + directory->list.size() <= size);
  const auto opened = ZipStyleSource::open(kFile.get(), "a", limits);
  if (!std::holds_alternative<std::unique_ptr<StyleSource>>(opened)) return 0;
  StyleSource& source = *std::get<std::unique_ptr<StyleSource>>(opened);
  require(source.entries().size() == directory->entries);
  const auto planned = planForStyle(source, limits);
  const auto* plan = std::get_if<StylePlan>(&planned);
  if (!plan) return 0;
  requireSafe(*plan, source, limits);
  for (const auto& file : plan->files) {
    std::uint64_t given = 0;
    const auto refusal = source.read(file.entry, [&](std::string_view piece) {
      given += piece.size();
      return true;
    });
    require(given <= source.entries()[file.entry].size);
    require(refusal || given == source.entries()[file.entry].size);
  }
  return 0;
}
