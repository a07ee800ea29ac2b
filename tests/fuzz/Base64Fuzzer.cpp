#include <cstddef>
#include <cstdint>

#include "Require.h"
#include "foundation/Base64.h"

/// All bytes come back from their text, and whatever is accepted is as long as the one text of its
/// bytes, which says the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  require(dataFromBase64String(base64EncodedString(input)) == input);
  const auto decoded = dataFromBase64String(input);
  if (decoded) {
    const std::string text = base64EncodedString(*decoded);
    require(text.size() == input.size() && dataFromBase64String(text) == decoded);
  }
  return 0;
}
