#include "tests/monkey/QtWarnings.h"

#include <QString>
#include <array>
#include <cstdio>
#include <utility>

namespace frelta {

namespace {

std::vector<std::string>& warnings() {
  static std::vector<std::string> gathered;
  return gathered;
}

bool isExpected(const QString& text) {
  static const std::array kExpected{
      // Of the platform that the tests run on.
      QStringLiteral("This plugin does not support"),
      // Qt's own handlers, of a second finger that goes before the first.
      QStringLiteral("is missing from current event")};
  for (const QString& part : kExpected)
    if (text.contains(part)) return true;
  return false;
}

void gather(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (isExpected(text)) return;
  std::fprintf(stderr, "%s\n", qPrintable(text));
  if (type != QtDebugMsg && type != QtInfoMsg) warnings().push_back(text.toStdString());
}

}  // namespace

void gatherQtWarnings() {
  qInstallMessageHandler(gather);
}

std::vector<std::string> takeQtWarnings() {
  return std::exchange(warnings(), {});
}

}  // namespace frelta
