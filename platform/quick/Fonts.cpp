#include "quick/Fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace frelta {

namespace {

QString systemFontFamily() {
  // Closest in proportions to the font that the pages are laid out for.
  static const QString preferred = QStringLiteral("Inter");
  static const bool installed = QFontDatabase::hasFamily(preferred);
  return installed ? preferred : QGuiApplication::font().family();
}

}  // namespace

QFont qtFont(const UIFont& font) {
  QFont result(systemFontFamily());
  result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pointSize))));
  switch (font.weight) {
    case UIFont::Weight::Regular:
      break;
    case UIFont::Weight::Semibold:
      result.setWeight(QFont::DemiBold);
      break;
    case UIFont::Weight::Bold:
      result.setWeight(QFont::Bold);
      break;
  }
  return result;
}

}  // namespace frelta
