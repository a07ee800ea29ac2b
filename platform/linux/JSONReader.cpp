#include "linux/JSONReader.h"

#include <locale.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "foundation/JSONSerialization.h"
#include "linux/PropertyListBuilder.h"

namespace frelta {
namespace {

/// The thread's numbers are those of the "C" locale as long as this lives: the parser reads them
/// with strtod, and a locale's decimal point may even be longer than a character.
class CLocale {
 public:
  CLocale() : previous_(uselocale(theCLocale())) {}
  ~CLocale() { uselocale(previous_); }
  CLocale(const CLocale&) = delete;
  CLocale& operator=(const CLocale&) = delete;

 private:
  static locale_t theCLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }

  locale_t previous_;
};

/// The parser's events; each returns whether to go on.
class Handler : public nlohmann::json_sax<nlohmann::json> {
 public:
  bool null() override { return builder_.add(Null()); }
  bool boolean(bool value) override { return builder_.add(value); }
  bool number_integer(number_integer_t value) override { return builder_.add(value); }
  bool number_unsigned(number_unsigned_t value) override { return builder_.add(value); }
  bool number_float(number_float_t value, const string_t&) override { return builder_.add(value); }
  bool string(string_t& text) override { return builder_.add(std::move(text)); }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return builder_.openDictionary(); }
  bool key(string_t& name) override { return builder_.setKey(std::move(name)); }
  bool end_object() override { return builder_.close(); }
  bool start_array(std::size_t) override { return builder_.openArray(); }
  bool end_array() override { return builder_.close(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override {
    return false;
  }

  std::optional<PropertyListValue> takeValue() { return builder_.takeValue(); }

 private:
  PropertyListBuilder builder_{JSONSerialization::kMaximumDepth, JSONSerialization::kMaximumNodes};
};

}  // namespace

std::optional<PropertyListValue> readJSON(std::string_view bytes) {
  // The parser takes a NUL byte for the end of the document.
  if (bytes.find('\0') != std::string_view::npos) return std::nullopt;
  const CLocale numbers;
  Handler handler;
  if (!nlohmann::json::sax_parse(bytes, &handler)) return std::nullopt;
  return handler.takeValue();
}

}  // namespace frelta
