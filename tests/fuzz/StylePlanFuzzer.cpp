#include <cstddef>
#include <cstdint>

#include "CheckedPlan.h"

namespace frelta {
namespace {

/// The first line is its name, every other an entry: a character for its kind, one for its size,
/// and the path.
class ToldEntries : public StyleSource {
 public:
  explicit ToldEntries(std::string_view text) : name_(takeLine(text)) {
    while (!text.empty()) {
      const std::string line = takeLine(text);
      if (line.size() < 2) continue;
      entries_.push_back({line.substr(2), static_cast<StyleEntry::Kind>(line[0] & 3),
                          std::uint64_t{1} << (line[1] & 63)});
    }
  }

  const std::string& name() const override { return name_; }
  const std::vector<StyleEntry>& entries() const override { return entries_; }
  std::optional<StyleRefusal> read(std::size_t,
                                   const std::function<bool(std::string_view)>&) override {
    return std::nullopt;
  }

 private:
  static std::string takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
  }

  std::string name_;
  std::vector<StyleEntry> entries_;
};

}  // namespace
}  // namespace frelta

/// Whatever a source tells of, a plan is safe to make or there is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  const ToldEntries source({reinterpret_cast<const char*>(bytes), size});
  const StyleLimits limits{.entries = 40, .bytes = 1 << 20, .depth = 6};
  const auto planned = planForStyle(source, limits);
  if (const auto* plan = std::get_if<StylePlan>(&planned)) requireSafe(*plan, source, limits);
  return 0;
}
