#pragma once

#include <QByteArray>
#include <QString>

namespace frelta {

/// The text as one line in the terminal's encoding, at most 8 KiB of it: whatever names of files
/// are in it, it moves no cursor, breaks no line and reads from left to right.
QByteArray terminalText(const QString& text);

}  // namespace frelta
