#pragma once

#include <string_view>

namespace frelta {

/// Where things lie on the device, as absolute device paths: what the file manager takes and what
/// the settings store.

inline constexpr std::string_view kPreferencesFolder = "/var/mobile/Library/Preferences";
inline constexpr std::string_view kSettingsBaseName = "com.tarno.freltaprefs";
inline constexpr std::string_view kSettingsPath =
    "/var/mobile/Library/Preferences/com.tarno.freltaprefs.plist";

/// What holds presets, styles and the user's picture.
inline constexpr std::string_view kFreltaFolder = "/Library/Frelta";
inline constexpr std::string_view kPresetsFolder = "/Library/Frelta/Presets";
/// With the slash that the styles' own paths are formed with.
inline constexpr std::string_view kThemesFolder = "/Library/Frelta/Themes/";
inline constexpr std::string_view kExampleImagesTheme =
    "/Library/Frelta/Themes/Example Images.theme";
inline constexpr std::string_view kExampleHTMLTheme = "/Library/Frelta/Themes/Example HTML.theme";
inline constexpr std::string_view kExampleWidget = "/Library/Frelta/Themes/Example Widget.bundle";
inline constexpr std::string_view kUserImagesFolder = "/Library/Frelta/UserImages";
inline constexpr std::string_view kBackgroundImagePath =
    "/Library/Frelta/UserImages/background.png";

/// Where a device has the bundle; the application's own lies elsewhere.
inline constexpr std::string_view kBundleFolder = "/Library/PreferenceBundles/freltaprefs.bundle";
/// Stands in for a style's missing logo.
inline constexpr std::string_view kPlaceholderPath =
    "/Library/PreferenceBundles/freltaprefs.bundle/placeholder.png";
inline constexpr std::string_view kBannerIconPath =
    "/Library/PreferenceBundles/freltaprefs.bundle/iconlarge.png";

/// The add-on to the package manager.
inline constexpr std::string_view kPackageIdentifier = "com.tarno.frelta";

}  // namespace frelta
