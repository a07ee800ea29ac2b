#pragma once

#include <optional>
#include <string>
#include <vector>

#include "linux/FileDescriptor.h"

namespace frelta {

/// Names in the folder, opened for reading, without "." and "..", in the system's order. Nothing
/// when it cannot be read to its end.
std::optional<std::vector<std::string>> namesInFolder(const FileDescriptor& folder);

/// Removes what has the name in the folder, with all it holds; links are removed, not followed.
/// Goes on past what it cannot remove; true when nothing is left. However deep the tree, few
/// descriptors are open at a time.
bool removeTree(const FileDescriptor& folder, const std::string& name);

}  // namespace frelta
