#pragma once

#include <exception>
#include <string>

#include "foundation/Log.h"

namespace frelta {

/// Runs what an event asks for. An exception that leaves it is logged and goes no further: it must
/// not pass through the window library, and one failed action must not end the application.
template <typename Work>
void guardEvent(Work&& work) {
  try {
    work();
  } catch (const std::exception& exception) {
    freltaLog(std::string("Uncaught exception: ") + exception.what());
  } catch (...) {
    freltaLog("Uncaught exception");
  }
}

}  // namespace frelta
