#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// One line of Base64 that holds the dictionary as JSON. Throws std::invalid_argument when there is
/// no dictionary, or it holds what JSON cannot: dates, data, numbers that are not finite.
std::string base64StringFromDict(std::optional<Dictionary> dictionary);

/// The value in such a line, of whatever type it is. Nothing when the text is not strict Base64 of
/// JSON.
std::optional<PropertyListValue> base64StringToDict(std::string_view text);

/// Writes the value as the platform's object would write itself, atomically: a dictionary or an
/// array as a property list, a string as its bare text. False when that failed. Throws
/// std::invalid_argument for a number, a boolean or null, which cannot write themselves.
bool writeDecodedPresetToFile(const PropertyListValue& value, std::string_view path);

}  // namespace frelta
