#include "settings/TarnoPackage.h"

#include "foundation/Platform.h"
#include "foundation/UTF8.h"

namespace frelta {

namespace {

constexpr std::string_view kSeparator = ": ";

std::string answerAbout(const std::string& identifier) {
  try {
    return Platform::current().processes->standardOutputOf("/usr/bin/dpkg-query",
                                                           {"-s", identifier}, "/");
  } catch (const MissingProgram&) {
    return {};
  }
}

}  // namespace

std::map<std::string, std::string, std::less<>> fieldsOfPackageText(std::string_view text) {
  std::map<std::string, std::string, std::less<>> fields;
  if (!isUTF8(text)) return fields;
  for (std::size_t start = 0; start < text.size();) {
    const std::string_view line = text.substr(start, text.find('\n', start) - start);
    start += line.size() + 1;
    const std::size_t separator = line.find(kSeparator);
    if (separator == std::string_view::npos) continue;
    fields.insert_or_assign(std::string(line.substr(0, separator)),
                            line.substr(separator + kSeparator.size()));
  }
  return fields;
}

std::unique_ptr<TarnoPackage> TarnoPackage::packageWithIdentifier(const std::string& identifier) {
  auto package = std::make_unique<TarnoPackage>();
  auto fields = fieldsOfPackageText(answerAbout(identifier));
  if (const auto version = fields.find("Version"); version != fields.end()) {
    package->setVersion(std::move(version->second));
  }
  return package;
}

}  // namespace frelta
