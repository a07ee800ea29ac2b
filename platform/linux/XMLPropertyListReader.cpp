#include "linux/XMLPropertyListReader.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "foundation/Base64.h"
#include "foundation/PropertyListSerialization.h"
#include "linux/PropertyListBuilder.h"
#include "linux/PropertyListScalars.h"

namespace frelta {
namespace {

bool isSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

enum class Element {
  Plist,
  Dictionary,
  Array,
  Key,
  String,
  Integer,
  Real,
  True,
  False,
  Date,
  Data
};

std::optional<Element> elementNamed(std::string_view name) {
  static constexpr std::pair<std::string_view, Element> kElements[] = {
      {"key", Element::Key},         {"string", Element::String}, {"integer", Element::Integer},
      {"true", Element::True},       {"false", Element::False},   {"real", Element::Real},
      {"dict", Element::Dictionary}, {"array", Element::Array},   {"data", Element::Data},
      {"date", Element::Date},       {"plist", Element::Plist}};
  for (const auto& [known, element] : kElements)
    if (name == known) return element;
  return std::nullopt;
}

std::optional<PropertyListValue> dataFromText(std::string& text) {
  std::erase_if(text, isSpace);
  std::optional<std::string> bytes = dataFromBase64String(text);
  if (!bytes) return std::nullopt;
  return Data{std::move(*bytes)};
}

class Reader {
 public:
  Reader() : parser_(XML_ParserCreate(nullptr), &XML_ParserFree) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(
        parser_.get(),
        [](void* self, const char* name, const char** attributes) {
          reader(self).startElement(name, attributes);
        },
        [](void* self, const char*) { reader(self).endElement(); });
    XML_SetCharacterDataHandler(parser_.get(), [](void* self, const char* text, int length) {
      reader(self).characters({text, static_cast<std::size_t>(length)});
    });
    XML_SetStartDoctypeDeclHandler(parser_.get(), [](void* self, const char*, const char*,
                                                     const char*, int hasInternalSubset) {
      if (hasInternalSubset) reader(self).refuse();
    });
    // With an external DTD that is not read, expat passes over entities that it does not know.
    XML_SetSkippedEntityHandler(parser_.get(),
                                [](void* self, const char*, int) { reader(self).refuse(); });
  }

  std::optional<PropertyListValue> read(std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());  // the byte limit keeps it within int
    if (XML_Parse(parser_.get(), bytes.data(), size, XML_TRUE) != XML_STATUS_OK)
      return std::nullopt;
    return builder_.takeValue();
  }

 private:
  static Reader& reader(void* self) { return *static_cast<Reader*>(self); }

  void refuse() { XML_StopParser(parser_.get(), XML_FALSE); }
  void require(bool condition) {
    if (!condition) refuse();
  }

  /// Pairs of names and values; the root may have its version.
  static bool areKnown(const char* const* attributes, Element element) {
    if (!attributes[0]) return true;
    return element == Element::Plist && attributes[0] == std::string_view("version") &&
           !attributes[2];
  }

  void startElement(std::string_view name, const char* const* attributes) {
    const std::optional<Element> element = elementNamed(name);
    if (element && !areKnown(attributes, *element)) return refuse();
    if (!element || leaf_ || (*element == Element::Plist) == insidePlist_) return refuse();
    switch (*element) {
      case Element::Plist:
        insidePlist_ = true;
        break;
      case Element::Dictionary:
        require(builder_.openDictionary());
        break;
      case Element::Array:
        require(builder_.openArray());
        break;
      default:
        leaf_ = element;
        text_.clear();
    }
  }

  void endElement() {
    if (leaf_)
      require(finishLeaf(*std::exchange(leaf_, std::nullopt)));
    else if (builder_.insideContainer())
      require(builder_.close());
  }

  void characters(std::string_view text) {
    if (leaf_)
      text_ += text;
    else
      require(std::ranges::all_of(text, isSpace));
  }

  bool finishLeaf(Element element) {
    switch (element) {
      case Element::Key:
        return builder_.setKey(std::move(text_));
      case Element::String:
        return builder_.add(std::move(text_));
      case Element::Integer:
        return add(integerFromText(text_));
      case Element::Real:
        return add(realFromText(text_));
      case Element::True:
        return text_.empty() && builder_.add(true);
      case Element::False:
        return text_.empty() && builder_.add(false);
      case Element::Date:
        return add(dateFromText(text_));
      case Element::Data:
        return add(dataFromText(text_));
      default:
        return false;
    }
  }

  bool add(std::optional<PropertyListValue> value) {
    return value && builder_.add(std::move(*value));
  }

  std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser_;
  PropertyListBuilder builder_{PropertyListSerialization::kMaximumDepth,
                               PropertyListSerialization::kMaximumNodes};
  bool insidePlist_ = false;
  std::optional<Element> leaf_;  // the element whose text is being collected
  std::string text_;
};

/// A document's characters below 128; any other reads as 0.
class Characters {
 public:
  explicit Characters(std::string_view bytes) : bytes_(bytes) {
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with(std::string_view("\0<", 2)))
      width_ = 2;
    else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with(std::string_view("<\0", 2)))
      width_ = 2, low_ = 0;
  }

  std::size_t size() const { return bytes_.size() / width_; }
  char at(std::size_t place) const {
    if (place >= size()) return 0;
    if (width_ == 1) return bytes_[place];
    return bytes_[2 * place + 1 - low_] == 0 ? bytes_[2 * place + low_] : char{0};
  }
  bool has(std::string_view text, std::size_t place) const {
    for (std::size_t i = 0; i < text.size(); ++i)
      if (at(place + i) != text[i]) return false;
    return true;
  }
  /// The place after the text, or the end.
  std::size_t after(std::string_view text, std::size_t place) const {
    while (place < size() && !has(text, place)) ++place;
    return std::min(size(), place + text.size());
  }

 private:
  std::string_view bytes_;
  std::size_t width_ = 1;
  std::size_t low_ = 1;  // which of a character's two bytes is the lower
};

/// The place after the tag or declaration that begins there, as expat finds it: a ">" in quotes
/// ends none. Nothing where it is too long, or holds declarations of its own.
std::optional<std::size_t> afterTag(const Characters& document, std::size_t begin,
                                    std::size_t longest) {
  char quote = 0;
  for (std::size_t at = begin; at < begin + longest && at < document.size(); ++at) {
    const char c = document.at(at);
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '>') {
      return at + 1;
    } else if (c == '[') {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

/// Expat reads all attributes of a tag, millions too, before it tells of one.
bool areTagsShort(std::string_view bytes) {
  constexpr std::size_t kLongestTag = 256;
  constexpr std::size_t kLongestType = 64 << 10;
  const Characters document(bytes);
  for (std::size_t at = 0; at < document.size();) {
    if (document.at(at) != '<') {
      ++at;
    } else if (document.has("<!--", at)) {
      at = document.after("-->", at + 4);
    } else if (document.has("<![CDATA[", at)) {
      at = document.after("]]>", at);
    } else if (document.has("<?", at)) {
      at = document.after("?>", at);
    } else {
      const auto end = afterTag(document, at, document.has("<!", at) ? kLongestType : kLongestTag);
      if (!end) return false;
      at = *end;
    }
  }
  return true;
}

/// Line breaks and references, each of which is told of alone. In UTF-16 others may be counted too.
constexpr std::ptrdiff_t kMostPieces = std::ptrdiff_t{1} << 20;

std::ptrdiff_t piecesIn(std::string_view bytes) {
  return std::ranges::count_if(
      bytes, [](char byte) { return byte == '\n' || byte == '\r' || byte == '&'; });
}

}  // namespace

bool isWithinXMLLimits(std::string_view bytes) {
  return bytes.size() <= PropertyListSerialization::kMaximumBytes && piecesIn(bytes) <= kMostPieces;
}

std::optional<PropertyListValue> readXMLPropertyList(std::string_view bytes) {
  if (!isWithinXMLLimits(bytes) || !areTagsShort(bytes)) return std::nullopt;
  return Reader().read(bytes);
}

}  // namespace frelta
