#include <cstddef>
#include <cstdint>

#include "Require.h"
#include "linux/JSONReader.h"
#include "linux/JSONWriter.h"

/// Whatever is read can be written and reads the same again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const auto value = readJSON({reinterpret_cast<const char*>(bytes), size});
  if (value) require(readJSON(writeJSON(*value)) == value);
  return 0;
}
