#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "Require.h"
#include "foundation/Base64.h"
#include "foundation/Platform.h"
#include "linux/LinuxJSONSerialization.h"
#include "linux/LinuxPropertyListSerialization.h"
#include "presets/PresetCodec.h"

namespace {

using namespace frelta;

void import(std::string_view text) {
  const Platform& platform = Platform::current();
  const auto preset = base64StringToDict(text);
  if (!preset) return;
  const auto file = platform.propertyLists->dataWithPropertyList(*preset);
  if (file) require(platform.propertyLists->propertyListWithData(*file) == preset);
  const Dictionary* settings = preset->dictionary();
  if (settings) require(base64StringToDict(base64StringFromDict(*settings)) == preset);
}

}  // namespace

/// Whatever text is pasted: a preset that comes of it is written so that it reads back the same,
/// and shared so that it comes back the same. The bytes are taken for the text, and for what it
/// holds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static LinuxJSONSerialization json;
  static LinuxPropertyListSerialization propertyLists;
  Platform platform;
  platform.json = &json;
  platform.propertyLists = &propertyLists;
  Platform::install(platform);
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  import(input);
  import(base64EncodedString(input));
  return 0;
}
