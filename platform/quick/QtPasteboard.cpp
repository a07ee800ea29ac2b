#include "quick/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace frelta {

std::optional<std::string> QtPasteboard::string() const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (!data || !data->hasText()) return std::nullopt;
  return data->text().toStdString();
}

void QtPasteboard::setString(std::string_view text) {
  QGuiApplication::clipboard()->setText(
      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace frelta
