#include "linux/JSONReader.h"

#include <locale.h>
#include <stdlib.h>

#include <boost/json/basic_parser_impl.hpp>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "foundation/JSONSerialization.h"
#include "linux/PropertyListBuilder.h"

namespace frelta {
namespace {

namespace json = boost::json;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kUnlimited = std::string::npos;

/// The double nearest to the number, also to one that is too small for double, where from_chars has
/// no answer; infinity beyond the largest. The parser's own may be off by a bit.
double nearestDouble(const std::string& number) {
  static const locale_t kPlainNumbers = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(number.c_str(), nullptr, kPlainNumbers);
}

/// The parser's events, under its names; each returns whether to go on.
class Handler {
 public:
  // It wants these; the builder holds our limits.
  static constexpr std::size_t max_object_size = kUnlimited;
  static constexpr std::size_t max_array_size = kUnlimited;
  static constexpr std::size_t max_key_size = kUnlimited;
  static constexpr std::size_t max_string_size = kUnlimited;

  using Error = json::error_code;
  using Text = json::string_view;

  bool on_document_begin(Error&) { return true; }
  bool on_document_end(Error&) { return true; }
  bool on_object_begin(Error& error) { return goOn(builder_.openDictionary(), error); }
  bool on_object_end(std::size_t, Error& error) { return goOn(builder_.close(), error); }
  bool on_array_begin(Error& error) { return goOn(builder_.openArray(), error); }
  bool on_array_end(std::size_t, Error& error) { return goOn(builder_.close(), error); }

  bool on_key_part(Text part, std::size_t, Error&) { return collect(part); }
  bool on_key(Text part, std::size_t, Error& error) {
    return goOn(builder_.setKey(textEndingIn(part)), error);
  }
  bool on_string_part(Text part, std::size_t, Error&) { return collect(part); }
  bool on_string(Text part, std::size_t, Error& error) {
    return goOn(builder_.add(textEndingIn(part)), error);
  }

  bool on_number_part(Text part, Error&) { return collect(part); }
  bool on_int64(std::int64_t value, Text, Error& error) { return addInteger(value, error); }
  bool on_uint64(std::uint64_t value, Text, Error& error) { return addInteger(value, error); }
  bool on_double(double, Text part, Error& error) {
    const double value = nearestDouble(textEndingIn(part));
    return goOn(std::isfinite(value) && builder_.add(value), error);
  }

  bool on_bool(bool value, Error& error) { return goOn(builder_.add(value), error); }
  bool on_null(Error& error) { return goOn(builder_.add(Null()), error); }
  bool on_comment_part(Text, Error& error) { return goOn(false, error); }
  bool on_comment(Text, Error& error) { return goOn(false, error); }

  std::optional<PropertyListValue> takeValue() { return builder_.takeValue(); }

 private:
  /// The parser stops only for an error; which one nobody asks.
  static bool goOn(bool accepted, Error& error) {
    if (!accepted) error = json::error::array_too_large;
    return accepted;
  }

  bool addInteger(PropertyListValue&& value, Error& error) {
    text_.clear();
    return goOn(builder_.add(std::move(value)), error);
  }

  bool collect(Text part) {
    text_.append(part.data(), part.size());
    return true;
  }

  std::string textEndingIn(Text part) {
    collect(part);
    return std::exchange(text_, {});
  }

  std::string text_;  // the parts that came of the text or number not yet ended
  PropertyListBuilder builder_{JSONSerialization::kMaximumDepth, JSONSerialization::kMaximumNodes};
};

}  // namespace

std::optional<PropertyListValue> readJSON(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  json::parse_options options;
  options.max_depth = JSONSerialization::kMaximumDepth;
  json::basic_parser<Handler> parser(options);
  json::error_code error;
  const std::size_t parsed = parser.write_some(false, bytes.data(), bytes.size(), error);
  if (error || parsed != bytes.size()) return std::nullopt;
  return parser.handler().takeValue();
}

}  // namespace frelta
