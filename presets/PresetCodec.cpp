#include "presets/PresetCodec.h"

#include <stdexcept>
#include <utility>

#include "foundation/Base64.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"

namespace frelta {

std::string base64StringFromDict(std::optional<Dictionary> dictionary) {
  if (!dictionary) throw std::invalid_argument("base64StringFromDict: there is no dictionary");
  return base64EncodedString(
      Platform::current().json->prettyPrintedDataWithObject(*std::move(dictionary)));
}

std::optional<PropertyListValue> base64StringToDict(std::string_view text) {
  const std::optional<std::string> json = dataFromBase64String(text);
  return json ? Platform::current().json->objectWithData(*json) : std::nullopt;
}

bool writeDecodedPresetToFile(const PropertyListValue& value, std::string_view path) {
  if (value.dictionary() || value.array()) return writePropertyListToFile(value, path);
  if (const std::string* text = value.string())
    return Platform::current().fileManager->writeAtomically(path, *text);
  throw std::invalid_argument(value.isNull()      ? "null cannot be written to a file"
                              : value.isBoolean() ? "a boolean cannot be written to a file"
                                                  : "a number cannot be written to a file");
}

}  // namespace frelta
