#include <cstddef>
#include <cstdint>

#include "Require.h"
#include "linux/XMLPropertyListReader.h"
#include "linux/XMLPropertyListWriter.h"

/// Whatever is read can be written and reads the same again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const auto value = readXMLPropertyList({reinterpret_cast<const char*>(bytes), size});
  if (!value) return 0;
  const auto document = writeXMLPropertyList(*value);
  require(document && readXMLPropertyList(*document) == value);
  return 0;
}
