#include "linux/PropertyListScalars.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace frelta {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kReferenceDay = year{2001} / 1 / 1;

constexpr seconds sinceReferenceDate(sys_days day) {
  return day - kReferenceDay;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

/// Takes an optional sign off the text; true when it was a minus.
bool takeSign(std::string_view& text) {
  if (!text.starts_with('-') && !text.starts_with('+')) return false;
  const bool negative = text.front() == '-';
  text.remove_prefix(1);
  return negative;
}

/// Reads the whole text; the format or base is as from_chars takes it.
template <class Number, class... Form>
std::optional<Number> wholeNumber(std::string_view text, Form... form) {
  Number number{};
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number, form...);
  if (error != std::errc() || end != last) return std::nullopt;
  return number;
}

}  // namespace

std::optional<PropertyListValue> integerFromText(std::string_view text) {
  text = trimmed(text);
  const bool negative = takeSign(text);
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal) text.remove_prefix(2);
  const auto magnitude = wholeNumber<std::uint64_t>(text, hexadecimal ? 16 : 10);
  if (!magnitude) return std::nullopt;
  if (!negative) return PropertyListValue(*magnitude);
  constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63;
  if (*magnitude > kTwoTo63) return std::nullopt;
  return PropertyListValue(static_cast<std::int64_t>(0 - *magnitude));
}

std::optional<PropertyListValue> realFromText(std::string_view text) {
  text = trimmed(text);
  const bool negative = takeSign(text);
  // from_chars would take a second sign, and a NaN with a payload.
  if (text.find_first_of("+-") == 0 || text.ends_with(')')) return std::nullopt;
  const auto magnitude = wholeNumber<double>(text);
  if (!magnitude) return std::nullopt;
  if (std::isnan(*magnitude)) return PropertyListValue(std::numeric_limits<double>::quiet_NaN());
  return PropertyListValue(negative ? -*magnitude : *magnitude);
}

std::optional<PropertyListValue> dateFromText(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00T00:00:00Z";
  if (text.size() != kForm.size()) return std::nullopt;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '0' ? !digit : text[i] != kForm[i]) return std::nullopt;
  }
  const auto field = [text](std::size_t position, std::size_t length) {
    return *wholeNumber<unsigned>(text.substr(position, length));
  };
  const year_month_day day{year{static_cast<int>(field(0, 4))}, std::chrono::month{field(5, 2)},
                           std::chrono::day{field(8, 2)}};
  const unsigned hour = field(11, 2), minute = field(14, 2), second = field(17, 2);
  if (!day.ok() || day.year() < year{1} || hour > 23 || minute > 59 || second > 59)
    return std::nullopt;
  const seconds time{hour * 3600 + minute * 60 + second};
  return Date{static_cast<double>((sinceReferenceDate(sys_days(day)) + time).count())};
}

std::string textFromReal(double number) {
  if (std::isnan(number)) return "nan";
  if (std::isinf(number)) return number < 0 ? "-infinity" : "+infinity";
  char text[32];
  const auto [end, error] = std::to_chars(std::begin(text), std::end(text), number);
  return std::string(text, end);
}

std::string textFromDate(Date date) {
  const seconds time{static_cast<std::int64_t>(date.secondsSinceReferenceDate)};
  const days wholeDays = std::chrono::floor<days>(time);
  const year_month_day day{kReferenceDay + wholeDays};
  const std::chrono::hh_mm_ss clock{time - wholeDays};
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

bool isInRange(Date date) {
  constexpr seconds kFirst = sinceReferenceDate(year{1} / 1 / 1);
  constexpr seconds kBeyond = sinceReferenceDate(year{10000} / 1 / 1);
  return date.secondsSinceReferenceDate >= static_cast<double>(kFirst.count()) &&
         date.secondsSinceReferenceDate < static_cast<double>(kBeyond.count());
}

}  // namespace frelta
