#pragma once

namespace frelta {

/// Whether assistive technology reads the screen now. Views then keep more of themselves in the
/// view tree than can be seen, for it only finds what is there.
bool UIAccessibilityIsVoiceOverRunning();
/// For the back end. Views learn of a change at their next layout.
void UIAccessibilitySetVoiceOverRunning(bool running);

}  // namespace frelta
