#pragma once

#include <QString>

namespace frelta {

/// Puts the texts that the application and its window add into the user's language, where there is
/// a translation. The texts of the pages and their alerts are the product's and stay as they are.
void installTranslations();

/// A text of the application in the user's language, where there is no application object yet; in
/// English where there is no translation. Both arguments are those of QT_TRANSLATE_NOOP.
QString earlyText(const char* context, const char* text);

/// Mirrors the pages where the user's language is read from the right. Qt does so by itself only
/// where its own translations are installed, which nothing here depends on.
void followReadingDirection();

}  // namespace frelta
