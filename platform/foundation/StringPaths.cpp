#include "foundation/StringPaths.h"

#include "foundation/UTF8.h"

namespace frelta {
namespace {

std::string_view withoutTrailingSlashes(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return path;
}

}  // namespace

std::size_t utf16Length(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t position = 0; position < text.size();) {
    const Scalar scalar = scalarAt(text, position).value_or(Scalar{0, 1});
    units += scalar.value > 0xFFFF ? 2 : 1;
    position += scalar.length;
  }
  return units;
}

std::string_view lastPathComponent(std::string_view path) {
  path = withoutTrailingSlashes(path);
  if (path == "/") return path;
  return path.substr(path.rfind('/') + 1);  // npos + 1 is the start
}

std::string_view stringByDeletingPathExtension(std::string_view path) {
  path = withoutTrailingSlashes(path);
  const std::string_view name = lastPathComponent(path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return path;
  return path.substr(0, path.size() - name.size() + dot);
}

std::string stringByAppendingPathComponent(std::string_view path, std::string_view component) {
  while (component.starts_with('/')) component.remove_prefix(1);
  component = withoutTrailingSlashes(component);
  path = withoutTrailingSlashes(path);
  std::string result(path);
  if (!path.empty() && path != "/" && !component.empty()) result += '/';
  return result += component;
}

}  // namespace frelta
