#include "foundation/PropertyListValue.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>

namespace frelta {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view withoutLeadingSpace(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  return text;
}

/// Takes an optional sign off the text; true when it was a minus.
bool takeSign(std::string_view& text) {
  if (!text.starts_with('-') && !text.starts_with('+')) return false;
  const bool negative = text.front() == '-';
  text.remove_prefix(1);
  return negative;
}

bool truthOfText(std::string_view text) {
  text = withoutLeadingSpace(text);
  takeSign(text);
  const std::size_t first = text.find_first_not_of('0');
  return first != std::string_view::npos &&
         std::string_view("YyTt123456789").find(text[first]) != std::string_view::npos;
}

template <class Integer>
Integer leadingInteger(std::string_view text) {
  using Limits = std::numeric_limits<Integer>;
  text = withoutLeadingSpace(text);
  const bool negative = takeSign(text);
  std::uint64_t magnitude = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude);
  const std::uint64_t largest = static_cast<std::uint64_t>(Limits::max()) + (negative ? 1 : 0);
  if (error == std::errc::invalid_argument) return 0;
  if (error == std::errc::result_out_of_range || magnitude > largest)
    return negative ? Limits::min() : Limits::max();
  return static_cast<Integer>(negative ? 0 - magnitude : magnitude);
}

double leadingDouble(std::string_view text) {
  text = withoutLeadingSpace(text);
  const bool negative = takeSign(text);
  // from_chars would also take a second minus and the words for infinity and NaN.
  const std::string_view digits = text.starts_with('.') ? text.substr(1) : text;
  if (digits.empty() || !isDigit(digits.front())) return 0;
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return negative ? -number : number;
}

std::int64_t clampedToInt64(double number) {
  constexpr double kTwoTo63 = 9223372036854775808.0;
  if (number != number) return 0;
  if (number >= kTwoTo63) return std::numeric_limits<std::int64_t>::max();
  if (number < -kTwoTo63) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(number);
}

}  // namespace

PropertyListValue::PropertyListValue(std::uint64_t value) {
  if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
    storage_ = value;
  else
    storage_ = static_cast<std::int64_t>(value);
}

PropertyListValue::~PropertyListValue() = default;
PropertyListValue::PropertyListValue(const PropertyListValue& other) = default;
PropertyListValue::PropertyListValue(PropertyListValue&& other) noexcept = default;
PropertyListValue& PropertyListValue::operator=(const PropertyListValue& other) = default;
PropertyListValue& PropertyListValue::operator=(PropertyListValue&& other) noexcept = default;

bool PropertyListValue::isInteger() const {
  return std::holds_alternative<std::int64_t>(storage_) ||
         std::holds_alternative<std::uint64_t>(storage_);
}

bool PropertyListValue::isNumber() const {
  return isBoolean() || isInteger() || std::holds_alternative<double>(storage_);
}

bool PropertyListValue::boolValue() const {
  return std::visit(
      Overloaded{[](bool value) { return value; }, [](std::int64_t value) { return value != 0; },
                 [](std::uint64_t value) { return value != 0; },
                 [](double value) { return value != 0; },
                 [](const std::string& text) { return truthOfText(text); },
                 [](const auto&) { return false; }},
      storage_);
}

std::int32_t PropertyListValue::intValue() const {
  if (const std::string* text = string()) return leadingInteger<std::int32_t>(*text);
  return static_cast<std::int32_t>(longLongValue());
}

std::int64_t PropertyListValue::longLongValue() const {
  return std::visit(
      Overloaded{[](bool value) { return std::int64_t{value}; },
                 [](std::int64_t value) { return value; },
                 [](std::uint64_t value) { return static_cast<std::int64_t>(value); },
                 [](double value) { return clampedToInt64(value); },
                 [](const std::string& text) { return leadingInteger<std::int64_t>(text); },
                 [](const auto&) { return std::int64_t{0}; }},
      storage_);
}

double PropertyListValue::doubleValue() const {
  return std::visit(Overloaded{[](bool value) { return value ? 1.0 : 0.0; },
                               [](std::int64_t value) { return static_cast<double>(value); },
                               [](std::uint64_t value) { return static_cast<double>(value); },
                               [](double value) { return value; },
                               [](const std::string& text) { return leadingDouble(text); },
                               [](const auto&) { return 0.0; }},
                    storage_);
}

bool PropertyListValue::operator==(const PropertyListValue& other) const {
  const double* number = std::get_if<double>(&storage_);
  const double* otherNumber = std::get_if<double>(&other.storage_);
  if (number && otherNumber)
    return std::bit_cast<std::uint64_t>(*number) == std::bit_cast<std::uint64_t>(*otherNumber);
  return storage_ == other.storage_;
}

const PropertyListValue* valueForKey(const Dictionary& dictionary, std::string_view key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : &found->second;
}

}  // namespace frelta
