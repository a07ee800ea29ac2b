#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "graphics/TextMeasurer.h"

namespace frelta {

/// Opens addresses in whatever the system has for them.
class AddressOpener {
 public:
  virtual ~AddressOpener() = default;
  /// False when nothing took the address.
  virtual bool openURL(std::string_view address) = 0;
};

/// The text that applications hand each other.
class PasteboardService {
 public:
  virtual ~PasteboardService() = default;
  /// The text there, UTF-8; nothing when something else is there, or nothing.
  virtual std::optional<std::string> string() const = 0;
  /// Replaces whatever is there with the text.
  virtual void setString(std::string_view text) = 0;
};

class PicturePickerService;

/// What the kit needs of a back end beside Platform. Same rules: fill, install, keep alive.
struct UIKitServices {
  TextMeasurer* text = nullptr;
  AddressOpener* addresses = nullptr;
  PasteboardService* pasteboard = nullptr;
  PicturePickerService* pictures = nullptr;

  static const UIKitServices& current();
  static void install(const UIKitServices& services);
};

}  // namespace frelta
