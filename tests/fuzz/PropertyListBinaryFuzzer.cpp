#include <cstddef>
#include <cstdint>
#include <string>

#include "Require.h"
#include "linux/BinaryPropertyListReader.h"
#include "linux/BinaryPropertyListWriter.h"
#include "linux/XMLPropertyListReader.h"
#include "linux/XMLPropertyListWriter.h"

/// Whatever is read can be written and reads the same again; where XML can carry it, there too.
/// (XML drops a NaN's payload, so what it reads as is held against itself.)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const auto value = readBinaryPropertyList({reinterpret_cast<const char*>(bytes), size});
  if (!value) return 0;
  // A small file that shares a lot writes too much to do so every time.
  const auto binary = writeBinaryPropertyList(*value);
  if (binary && binary->size() > 1 << 20) return 0;
  require(binary && readBinaryPropertyList(*binary) == value);
  const auto document = writeXMLPropertyList(*value);
  if (!document) return 0;
  const auto again = readXMLPropertyList(*document);
  require(again && writeXMLPropertyList(*again) == document);
  return 0;
}
