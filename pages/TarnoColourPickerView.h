#pragma once

#include <array>

#include "pages/TarnoHueColour.h"
#include "uikit/UIImageView.h"
#include "uikit/UISlider.h"
#include "uikit/UITextField.h"

namespace frelta {

/// The contents of the colour dialogue: the colour as it stands, a slider for each of its
/// components, and its string to type. Whatever changes one changes the others.
class TarnoColourPickerView : public UIView {
 public:
  explicit TarnoColourPickerView(const UIColor::Components& colour);

  UIColor::Components colour() const { return componentsWithHueColour(colour_); }

  // Owned as subviews. A hue goes up to 360, the others up to 100.
  UISlider* hueSlider() const { return sliders_[0]; }
  UISlider* saturationSlider() const { return sliders_[1]; }
  UISlider* brightnessSlider() const { return sliders_[2]; }
  UISlider* opacitySlider() const { return sliders_[3]; }
  UITextField* hexField() const { return hexField_; }

  /// As high as is comfortable, but not higher than the given size as far as it can be pressed
  /// together.
  CGSize sizeThatFits(CGSize size) const override;
  void layoutSubviews() override;

 private:
  UILabel* addLabel(const char* text);
  void sliderMoved();
  void hexEdited();
  /// Everything but what the user is just typing.
  void showColour();
  void showTracks();
  void showSwatch();

  TarnoHueColour colour_;
  UIImageView* swatch_;
  std::array<UILabel*, 4> labels_{};
  std::array<UISlider*, 4> sliders_{};
  UILabel* hexLabel_;
  UIView* hexFrame_;
  UITextField* hexField_;
};

}  // namespace frelta
