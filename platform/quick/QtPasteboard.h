#pragma once

#include "uikit/UIKitServices.h"

namespace frelta {

/// The desktop's clipboard. What was put there stays after the application has ended where the
/// desktop keeps it: a Wayland compositor or an X clipboard manager that takes it over.
class QtPasteboard : public PasteboardService {
 public:
  std::optional<std::string> string() const override;
  void setString(std::string_view text) override;
};

}  // namespace frelta
