#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The texts of numbers and dates in XML property lists, independent of the locale. Reading gives
/// nothing for a text of another form or a number out of range.

/// Decimal, or hexadecimal after "0x", with an optional sign and white space around.
std::optional<PropertyListValue> integerFromText(std::string_view text);
/// Decimal with an optional sign, fraction and exponent and white space around; or, in either case
/// of letters, "inf", "infinity" or "nan".
std::optional<PropertyListValue> realFromText(std::string_view text);
/// "YYYY-MM-DDTHH:MM:SSZ", a date of the calendar in the years 1 to 9999.
std::optional<PropertyListValue> dateFromText(std::string_view text);

/// The shortest text that reads back as the same number.
std::string textFromReal(double number);
/// The date must be in range and in whole seconds, which is all the form can hold.
std::string textFromDate(Date date);

/// Whether the date lies in the years 1 to 9999.
bool isInRange(Date date);

}  // namespace frelta
