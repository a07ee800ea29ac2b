#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "linux/BinaryPropertyListReader.h"
#include "linux/XMLPropertyListReader.h"
#include "linux/XMLPropertyListWriter.h"

/// Whatever is read and can be written as XML is written the same from then on. (The first writing
/// drops the fractions of dates and NaN's payloads.)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const auto value = readBinaryPropertyList({reinterpret_cast<const char*>(bytes), size});
  if (!value) return 0;
  // A small file that shares a lot writes too much to do so every time.
  const auto document = writeXMLPropertyList(*value);
  if (!document || document->size() > 1 << 20) return 0;
  const auto again = readXMLPropertyList(*document);
  require(again && writeXMLPropertyList(*again) == document);
  return 0;
}
