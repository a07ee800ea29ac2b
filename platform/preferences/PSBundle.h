#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/PropertyListValue.h"
#include "preferences/PSClassRegistry.h"

namespace frelta {

/// What a bundle's "Info.plist" says.
struct PSBundleInfo {
  /// Name of the class of the bundle's first page.
  std::string principalClass;
  /// File name of the shared object inside the bundle.
  std::string executable;
};

/// Nothing unless "NSPrincipalClass" and "CFBundleExecutable" are there and usable.
std::optional<PSBundleInfo> bundleInfoWithValue(const PropertyListValue& value);

/// A folder with page descriptions, pictures, and the classes that they refer to.
/// Its shared object exports
///     extern "C" void PSBundleRegisterClasses(frelta::PSClassRegistry&);
class PSBundle {
 public:
  virtual ~PSBundle() = default;

  virtual const PSBundleInfo& info() const = 0;
  virtual const PSClassRegistry& classes() const = 0;
  /// The bytes of a file that lies directly in the bundle. Nothing when it is missing, unreadable,
  /// or the name is none for isResourceName().
  virtual std::optional<std::string> contentsOfResource(std::string_view fileName) const = 0;

  /// Whether the name stays inside the bundle: not empty, "." or "..", no "/" and no NUL byte.
  static bool isResourceName(std::string_view fileName);
};

}  // namespace frelta
