#pragma once

#include "graphics/ImageServices.h"

namespace frelta {

/// Pictures drawn, read and written by Qt; no application object is needed.
class QtImageServices : public ImageServices {
 public:
  QtImageServices();

  std::unique_ptr<UIGraphicsImageContext> beginImageContext(CGSize size,
                                                            double scale) const override;
  std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const override;
  std::optional<std::string> pngRepresentation(const UIImage& image) const override;
};

}  // namespace frelta
