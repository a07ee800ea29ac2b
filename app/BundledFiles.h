#pragma once

#include <QString>

namespace frelta {

/// Puts what an installed Frelta brings along into the device root, from the bundle's folder on the
/// host: the bundle's pictures, as far as they are missing, and the example styles, when there is
/// no styles folder yet or an earlier start did not get them all in. Nothing that is there is
/// replaced.
void installBundledFiles(const QString& bundleFolder);

}  // namespace frelta
