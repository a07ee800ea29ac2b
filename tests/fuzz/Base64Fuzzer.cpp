#include <cstddef>
#include <cstdint>

#include "Require.h"
#include "foundation/Base64.h"

/// All bytes come back from their text, and whatever is accepted is the one text of its bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  require(dataFromBase64String(base64EncodedString(input)) == input);
  const auto decoded = dataFromBase64String(input);
  if (decoded) require(base64EncodedString(*decoded) == input);
  return 0;
}
