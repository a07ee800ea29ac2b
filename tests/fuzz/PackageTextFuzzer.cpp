#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Require.h"
#include "settings/TarnoPackage.h"

/// Whatever the package manager prints, its fields are parts of its lines, and the last line of a
/// name is the one that counts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  const auto fields = fieldsOfPackageText(text);
  for (const auto& [name, value] : fields) {
    require(name.find('\n') == name.npos && value.find('\n') == value.npos);
    require(name.find(": ") == name.npos);
    const std::string line = name + ": " + value;
    std::size_t at = text.rfind(line);
    // Lines of another name may end alike.
    while (at != text.npos && !((at == 0 || text[at - 1] == '\n') &&
                                (at + line.size() == size || text[at + line.size()] == '\n'))) {
      at = at == 0 ? text.npos : text.rfind(line, at - 1);
    }
    require(at != text.npos);
    require(text.find('\n' + name + ": ", at + line.size()) == text.npos);
  }
  return 0;
}
