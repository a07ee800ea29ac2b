#include "app/TerminalText.h"

#include "linux/LogLine.h"

namespace frelta {

namespace {

constexpr std::size_t kMaximumBytes = 8192;

}  // namespace

QByteArray terminalText(const QString& text) {
  return QString::fromStdString(harmlessLine(text.toStdString(), kMaximumBytes)).toLocal8Bit();
}

}  // namespace frelta
