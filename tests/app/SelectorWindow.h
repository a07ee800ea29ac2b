#pragma once

#include <string>
#include <vector>

#include "app/BundledFiles.h"
#include "device/Paths.h"
#include "tests/app/OpenWindow.h"
#include "tests/support/Pictures.h"

namespace frelta {

/// A kind of style, and the way to its selector.
struct SelectorKind {
  std::string name;
  /// The background mode that shows the row, and the row of the first page.
  int mode;
  std::string row;
  std::string title;
  std::string key;
  std::string subtitle;
  /// What the example's folder is called before and after the dot.
  std::string example;
  std::string extension;
  /// What tells the kind in a folder; a widget's name does.
  std::string marker;

  friend void PrintTo(const SelectorKind& kind, std::ostream* out) { *out << kind.name; }
};

inline const SelectorKind kImagesKind{"Images",
                                      3,
                                      "FreltaThemesCell",
                                      "Image Themes",
                                      "EnabledThemePath",
                                      "Images Theme",
                                      "Example Images",
                                      "theme",
                                      "Images"};
inline const SelectorKind kHTMLKind{"HTML",
                                    1,
                                    "FreltaHTMLCell",
                                    "HTML Themes",
                                    "EnabledHTMLThemesPath",
                                    "HTML Theme",
                                    "Example HTML",
                                    "theme",
                                    "HTML"};
inline const SelectorKind kWidgetKind{
    "Widget", 4, "FreltaWidgetCell", "Widgets", "EnabledWidgetPath", "Widget", "Example Widget",
    "bundle", ""};

/// The application's window over the example styles, with the way to the selectors.
class SelectorWindow : public OpenWindow {
 public:
  explicit SelectorWindow(UserInterfaceStyle style = UserInterfaceStyle::Light)
      : OpenWindow(style) {
    platform.system.openWindows = {{true, style}};
  }

  void installExamples() {
    const Log* before = Platform::current().log;
    ASSERT_NE(before, nullptr);
    installBundledFiles(QStringLiteral(FRELTA_BUNDLE));
  }
  static std::string pathOf(const SelectorKind& kind, const std::string& name) {
    return std::string(kThemesFolder) + name + "." + kind.extension;
  }
  /// Makes a style with a plain icon of that colour.
  void installStyle(const SelectorKind& kind, const std::string& name, Pixel color) {
    const std::string folder = pathOf(kind, name);
    std::filesystem::create_directories(platform.hostPath(folder + "/" + kind.marker));
    platform.put(folder + "/Icon.png",
                 QtImageServices().pngRepresentation(*picture(60, 60, color)).value());
  }
  /// Opens the window and the kind's selector from the first page.
  void openSelector(const SelectorKind& kind, QSize size = {390, 844}) {
    Dictionary stored = settings();
    stored["BackgroundMode"] = kind.mode;
    ASSERT_NO_FATAL_FAILURE(putSettings(stored));
    ASSERT_NO_FATAL_FAILURE(open(QStringLiteral(FRELTA_BUNDLE), size));
    ASSERT_TRUE(driver->tapRow(kind.row));
    settle();
    ASSERT_EQ(page().title(), kind.title);
  }
  UIViewController& page() { return *application->navigationController()->topViewController(); }
  UITableView& table() { return *findView<UITableView>(page().view()); }
};

}  // namespace frelta
