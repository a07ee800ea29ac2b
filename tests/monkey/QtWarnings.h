#pragma once

#include <string>
#include <vector>

namespace frelta {

/// From now on lines of Qt's own log that tell of a mistake are gathered.
void gatherQtWarnings();
/// Those gathered so far; forgotten when taken.
std::vector<std::string> takeQtWarnings();

}  // namespace frelta
