#include "installer/StylePlan.h"

#include <algorithm>
#include <climits>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "device/StyleKinds.h"
#include "foundation/UTF8.h"

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

/// What is at each path, folders that are only part of other paths included. Sorted, so that a
/// folder comes before what it holds.
using Tree = std::map<std::string, std::optional<std::size_t>>;  // the entry; none for a folder

std::vector<std::string_view> componentsOf(std::string_view path) {
  std::vector<std::string_view> components;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    components.push_back(path.substr(start, end - start));
    start = end + 1;
  }
  return components;
}

constexpr char32_t kLineSeparator = 0x2028;
constexpr char32_t kParagraphSeparator = 0x2029;

bool isPlainText(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto scalar = scalarAt(text, i);
    if (!scalar || scalar->value < 0x20 || (scalar->value >= 0x7f && scalar->value < 0xa0) ||
        scalar->value == U'\\' || scalar->value == kLineSeparator ||
        scalar->value == kParagraphSeparator)
      return false;
    i += scalar->length;
  }
  return true;
}

/// The entry's path without the slash that archives put behind a folder's.
std::string_view pathOf(const StyleEntry& entry) {
  std::string_view path = entry.path;
  if (entry.kind == StyleEntry::Kind::Folder && path.ends_with('/')) path.remove_suffix(1);
  return path;
}

std::optional<StyleRefusal> refusalOf(const StyleEntry& entry, const StyleLimits& limits) {
  if (!isPlainText(entry.path)) return StyleRefusal{Reason::NameNotText, {}};
  const auto refuse = [&](Reason reason) { return StyleRefusal{reason, entry.path}; };
  if (entry.kind == StyleEntry::Kind::Link) return refuse(Reason::Link);
  if (entry.kind == StyleEntry::Kind::Device) return refuse(Reason::Device);
  const auto components = componentsOf(pathOf(entry));
  for (const std::string_view component : components) {
    if (component.empty() || component == "." || component == "..")
      return refuse(Reason::LeavesFolder);
    if (component.size() > NAME_MAX) return refuse(Reason::NameTooLong);
  }
  if (components.size() > limits.depth) return refuse(Reason::TooDeep);
  return std::nullopt;
}

bool isLitter(std::string_view path) {
  return path == "__MACOSX" || path.starts_with("__MACOSX/") || path == ".DS_Store" ||
         path.ends_with("/.DS_Store");
}

/// False when the path is taken, or a file stands where it needs a folder.
bool add(Tree& tree, std::set<std::string, std::less<>>& told, const StyleEntry& entry,
         std::size_t index) {
  const std::string path(pathOf(entry));
  if (!told.insert(path).second) return false;
  for (std::size_t slash = path.find('/'); slash != std::string::npos;
       slash = path.find('/', slash + 1)) {
    if (tree.try_emplace(path.substr(0, slash), std::nullopt).first->second) return false;
  }
  if (entry.kind == StyleEntry::Kind::Folder)
    return !tree.try_emplace(path, std::nullopt).first->second;
  return tree.try_emplace(path, index).second;
}

/// As the scan of the styles folder sees them.
bool isNamedAsStyle(std::string_view name) {
  return std::ranges::any_of(styleKinds(), [&](const StyleKind& kind) {
    return kind.folder.empty() && isNamedAsKind(name, kind);
  });
}

bool holdsStyleFolder(const Tree& tree, const std::string& prefix) {
  return std::ranges::any_of(styleKinds(), [&](const StyleKind& kind) {
    return !kind.folder.empty() && tree.contains(prefix + std::string(kind.folder));
  });
}

std::vector<std::string> stylesAtTop(const Tree& tree) {
  std::vector<std::string> styles;
  for (const auto& [path, entry] : tree) {
    const bool atTop = path.find('/') == std::string::npos;
    if (atTop && !entry && (isNamedAsStyle(path) || holdsStyleFolder(tree, path + '/')))
      styles.push_back(path);
  }
  return styles;
}

struct Found {
  std::string name;
  /// What its paths begin with in the source.
  std::string prefix;
};

std::variant<Found, StyleRefusal> findStyle(const Tree& tree, const std::string& sourceName) {
  if (holdsStyleFolder(tree, {})) return Found{sourceName, {}};
  const std::vector<std::string> styles = stylesAtTop(tree);
  if (styles.size() > 1) {
    if (isNamedAsStyle(sourceName)) return Found{sourceName, {}};
    return StyleRefusal{Reason::SeveralStyles, styles[0] + ", " + styles[1]};
  }
  if (styles.size() == 1) return Found{styles[0], styles[0] + '/'};
  if (isNamedAsStyle(sourceName) && !tree.empty()) return Found{sourceName, {}};
  return StyleRefusal{Reason::NotAStyle, {}};
}

bool canBeStyleName(std::string_view name) {
  return !name.empty() && !name.starts_with('.') && name.size() <= NAME_MAX &&
         name.find('/') == name.npos && isPlainText(name);
}

}  // namespace

std::variant<StylePlan, StyleRefusal> planForStyle(const StyleSource& source,
                                                   const StyleLimits& limits) {
  const std::vector<StyleEntry>& entries = source.entries();
  if (entries.size() > limits.entries) return StyleRefusal{Reason::TooManyEntries, {}};
  Tree tree;
  std::set<std::string, std::less<>> told;
  std::uint64_t bytes = 0;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (auto refusal = refusalOf(entries[i], limits)) return *refusal;
    if (isLitter(pathOf(entries[i]))) continue;
    if (!add(tree, told, entries[i], i)) return StyleRefusal{Reason::Duplicate, entries[i].path};
    // A few long paths make many folders, each of which takes room on the disk.
    if (tree.size() > limits.entries) return StyleRefusal{Reason::TooManyEntries, {}};
    if (entries[i].kind != StyleEntry::Kind::File) continue;
    if (entries[i].size > limits.bytes - bytes) return StyleRefusal{Reason::TooLarge, {}};
    bytes += entries[i].size;
  }
  auto found = findStyle(tree, source.name());
  if (auto* refusal = std::get_if<StyleRefusal>(&found)) return *refusal;
  auto& style = std::get<Found>(found);
  if (!canBeStyleName(style.name)) return StyleRefusal{Reason::BadStyleName, style.name};

  StylePlan plan;
  plan.name = std::move(style.name);
  for (const auto& [path, entry] : tree) {
    if (!path.starts_with(style.prefix)) continue;
    std::string rest = path.substr(style.prefix.size());
    if (!entry) {
      plan.folders.push_back(std::move(rest));
      continue;
    }
    plan.bytes += entries[*entry].size;
    plan.files.push_back({*entry, std::move(rest)});
  }
  return plan;
}

}  // namespace frelta
