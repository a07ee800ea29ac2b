#pragma once

#include <QPainter>

/// The drawings, each on a square or a rectangle of its own units. Icons fill their square: whoever
/// shows them rounds the corners.
namespace frelta::artwork {

inline constexpr QSizeF kIconSize{60, 60};
inline constexpr QSizeF kKeyboardSize{390, 216};
inline constexpr QSizeF kKeySize{36, 44};

void paintFreltaIcon(QPainter& painter);
/// The same as the desktop shows it: rounded, with the margin that icons there have around them.
void paintApplicationIcon(QPainter& painter);
/// For sizes at which the whole keyboard would be a blur: fewer and larger keys.
void paintSmallApplicationIcon(QPainter& painter);
void paintPlaceholder(QPainter& painter);
void paintImagesThemeIcon(QPainter& painter);
void paintHTMLThemeIcon(QPainter& painter);
void paintWidgetIcon(QPainter& painter);

/// The images theme's keyboard background, and one key.
void paintDunes(QPainter& painter);
void paintKey(QPainter& painter);

}  // namespace frelta::artwork
