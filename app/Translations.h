#pragma once

namespace frelta {

/// Puts the application's own texts into the user's language, where there is a translation. The
/// texts of the pages and their alerts are the product's and stay as they are.
void installTranslations();

}  // namespace frelta
