#include "presets/PresetName.h"

#include "device/Paths.h"
#include "foundation/StringPaths.h"
#include "foundation/UTF8.h"

namespace frelta {

namespace {

constexpr std::string_view kForbidden = "/\\?%*|\"<>";
constexpr std::string_view kExtension = ".plist";
constexpr std::size_t kLongest = 32;

std::string withoutEvery(std::string_view part, std::string_view text) {
  std::string kept;
  std::size_t start = 0;
  for (std::size_t found; (found = text.find(part, start)) != std::string_view::npos;) {
    kept.append(text, start, found - start);
    start = found + part.size();
  }
  return kept.append(text, start);
}

/// The platform's white space without line breaks: Unicode's space separators and the tab.
bool isBlank(char32_t value) {
  return value == ' ' || value == '\t' || value == 0xA0 || value == 0x1680 ||
         (value >= 0x2000 && value <= 0x200A) || value == 0x202F || value == 0x205F ||
         value == 0x3000;
}

bool holdsOnlyBlanks(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    const auto scalar = scalarAt(text, position);
    if (!scalar || !isBlank(scalar->value)) return false;
    position += scalar->length;
  }
  return true;
}

}  // namespace

PresetName presetNameFromText(std::string_view text) {
  std::string name(text);
  std::erase_if(name, [](char c) { return kForbidden.find(c) != std::string_view::npos; });
  name = withoutEvery(kExtension, name);
  if (holdsOnlyBlanks(name)) return {std::nullopt, "Invalid preset name"};
  if (utf16Length(name) > kLongest) return {std::nullopt, "Preset name is too long"};
  return {std::move(name)};
}

std::string presetPathForName(std::string_view name) {
  return std::string(kPresetsFolder).append("/").append(name).append(kExtension);
}

std::string presetNameAtPath(std::string_view path) {
  return std::string(stringByDeletingPathExtension(lastPathComponent(path)));
}

}  // namespace frelta
