#pragma once

namespace frelta {

/// Chooses how windows are painted; to be called before the first one, after QGuiApplication is
/// made. A real GPU is used where there is one; otherwise, and wherever OpenGL is missing or
/// emulated by the processor, the software renderer, which starts faster and takes less memory than
/// emulation. A choice that the user made with QT_QUICK_BACKEND stands.
void chooseRenderBackend();

}  // namespace frelta
