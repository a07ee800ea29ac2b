#pragma once

#include <QString>

#include "installer/StyleRefusal.h"

namespace frelta {

/// A sentence or two, in the user's language, that say that the file was not installed and why.
QString textOfRefusal(const QString& fileName, const StyleRefusal& refusal);

}  // namespace frelta
