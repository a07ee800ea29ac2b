#pragma once

#include <QtGlobal>

namespace frelta {

/// Has this process and its children find the tests' own fonts and no others, unless a test program
/// was given other ones. Before the application object is made.
inline void useTestFonts() {
  if (qEnvironmentVariableIsEmpty("FONTCONFIG_FILE"))
    qputenv("FONTCONFIG_FILE", FRELTA_TEST_FONTS "/fonts.conf");
}

}  // namespace frelta
