#include "uikit/UIPasteboard.h"

#include "uikit/UIKitServices.h"

namespace frelta {

UIPasteboard& UIPasteboard::generalPasteboard() {
  static UIPasteboard pasteboard;
  return pasteboard;
}

std::optional<std::string> UIPasteboard::string() const {
  const PasteboardService* service = UIKitServices::current().pasteboard;
  return service ? service->string() : std::nullopt;
}

void UIPasteboard::setString(std::string_view text) {
  if (PasteboardService* service = UIKitServices::current().pasteboard) service->setString(text);
}

}  // namespace frelta
