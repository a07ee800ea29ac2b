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
        [](void* self, const char* name, const char**) { reader(self).startElement(name); },
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

  void startElement(std::string_view name) {
    const std::optional<Element> element = elementNamed(name);
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
        return builder_.setKey(text_);
      case Element::String:
        return builder_.add(text_);
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

}  // namespace

std::optional<PropertyListValue> readXMLPropertyList(std::string_view bytes) {
  if (bytes.size() > PropertyListSerialization::kMaximumBytes) return std::nullopt;
  return Reader().read(bytes);
}

}  // namespace frelta
