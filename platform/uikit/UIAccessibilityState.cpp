#include "uikit/UIAccessibilityState.h"

namespace frelta {

namespace {
bool isRunning = false;
}  // namespace

bool UIAccessibilityIsVoiceOverRunning() {
  return isRunning;
}

void UIAccessibilitySetVoiceOverRunning(bool running) {
  isRunning = running;
}

}  // namespace frelta
