#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace frelta {

class PropertyListValue;

/// JSON's null. No property list can hold it: a value that contains one does not serialise.
struct Null {
  bool operator==(const Null&) const = default;
};

/// A point in time, in seconds since 2001-01-01 00:00:00 UTC, the platform's reference date.
struct Date {
  double secondsSinceReferenceDate = 0;
  bool operator==(const Date&) const = default;
};

/// Bytes that are not text.
struct Data {
  std::string bytes;
  bool operator==(const Data&) const = default;
};

using Array = std::vector<PropertyListValue>;
/// Keys are UTF-8 and ordered bytewise, so that the same dictionary always serialises the same way.
using Dictionary = std::map<std::string, PropertyListValue, std::less<>>;

/// A value of a property list or of a JSON document. Values own their contents and copy deeply.
///
/// Integers cover all of int64 and uint64: a uint64_t is held as such only above INT64_MAX, so that
/// equal numbers compare equal. An integer and a double are different values, as are 1 and true.
///
/// The reading operations convert as the platform's number and string objects do and never fail: a
/// value of an unfitting type reads as 0, off or absent.
class PropertyListValue {
 public:
  using Storage = std::variant<Null, bool, std::int64_t, std::uint64_t, double, std::string, Date,
                               Data, Array, Dictionary>;

  PropertyListValue() = default;  // Null
  PropertyListValue(Null) {}
  PropertyListValue(bool value) : storage_(value) {}
  PropertyListValue(int value) : storage_(static_cast<std::int64_t>(value)) {}
  PropertyListValue(std::int64_t value) : storage_(value) {}
  PropertyListValue(std::uint64_t value);
  PropertyListValue(double value) : storage_(value) {}
  PropertyListValue(const char* text) : storage_(std::string(text)) {}
  PropertyListValue(std::string_view text) : storage_(std::string(text)) {}
  PropertyListValue(std::string text) : storage_(std::move(text)) {}
  PropertyListValue(Date date) : storage_(date) {}
  PropertyListValue(Data data) : storage_(std::move(data)) {}
  PropertyListValue(Array array) : storage_(std::move(array)) {}
  PropertyListValue(Dictionary dictionary) : storage_(std::move(dictionary)) {}
  /// No other pointer is taken, not even for a boolean.
  template <typename T>
  PropertyListValue(const T* pointer) = delete;

  // Not inline: g++ 12 warns of uninitialised memory wherever it inlines a variant's destructor.
  ~PropertyListValue();
  PropertyListValue(const PropertyListValue& other);
  PropertyListValue(PropertyListValue&& other) noexcept;
  PropertyListValue& operator=(const PropertyListValue& other);
  PropertyListValue& operator=(PropertyListValue&& other) noexcept;

  bool isNull() const { return std::holds_alternative<Null>(storage_); }
  bool isBoolean() const { return std::holds_alternative<bool>(storage_); }
  bool isInteger() const;
  /// A boolean, an integer or a double.
  bool isNumber() const;
  bool isString() const { return std::holds_alternative<std::string>(storage_); }

  /// The typed contents, or null when the value is of another type. Owned by this value.
  const std::string* string() const { return std::get_if<std::string>(&storage_); }
  const Date* date() const { return std::get_if<Date>(&storage_); }
  const Data* data() const { return std::get_if<Data>(&storage_); }
  const Array* array() const { return std::get_if<Array>(&storage_); }
  Array* array() { return std::get_if<Array>(&storage_); }
  const Dictionary* dictionary() const { return std::get_if<Dictionary>(&storage_); }
  Dictionary* dictionary() { return std::get_if<Dictionary>(&storage_); }

  /// A number's truth (any non-zero is true, NaN too); a string's, after the platform's rule for
  /// strings: leading white space, an optional sign and zeros are skipped, then Y, y, T, t or 1-9
  /// is true. Anything else is false.
  bool boolValue() const;
  /// A number cut to 32 bits; a double is truncated towards zero first and clamped to int64, NaN is
  /// 0. A string's leading decimal number, clamped to 32 bits. Anything else is 0.
  std::int32_t intValue() const;
  /// A number as int64, by the same rules.
  std::int64_t longLongValue() const;
  /// A number or a string's leading decimal number as a double, whatever the locale; else 0, also
  /// for a string's number that no double is near to.
  double doubleValue() const;

  const Storage& storage() const { return storage_; }
  /// Same type and same contents; doubles compare by their bits, so that NaN equals itself and
  /// -0.0 differs from 0.0.
  bool operator==(const PropertyListValue& other) const;

 private:
  Storage storage_;
};

/// The value under a key, or null. Owned by the dictionary.
const PropertyListValue* valueForKey(const Dictionary& dictionary, std::string_view key);

}  // namespace frelta
