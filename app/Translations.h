#pragma once

namespace frelta {

/// Puts the texts that the application and its window add into the user's language, where there is
/// a translation. The texts of the pages and their alerts are the product's and stay as they are.
void installTranslations();

/// Mirrors the pages where the user's language is read from the right. Qt does so by itself only
/// where its own translations are installed, which nothing here depends on.
void followReadingDirection();

}  // namespace frelta
