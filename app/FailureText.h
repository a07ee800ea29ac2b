#pragma once

#include <QString>

#include "foundation/FailureListener.h"

namespace frelta {

/// One sentence for the user: what could not be done, and why.
QString textOfFailure(const Failure& failure);

}  // namespace frelta
