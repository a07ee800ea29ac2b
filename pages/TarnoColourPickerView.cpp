#include "pages/TarnoColourPickerView.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "pages/TarnoColourString.h"
#include "pages/TarnoColourSwatch.h"

namespace frelta {

namespace {

constexpr double kSwatchHeight = 44;
constexpr double kSmallestSwatchHeight = 20;
constexpr double kGap = 8;
constexpr double kSliderHeight = 36;
constexpr double kSmallestSliderHeight = 28;
constexpr double kFieldHeight = 30;
constexpr double kFieldInset = 8;
constexpr double kLabelWidth = 84;
constexpr double kTextSize = 15;
constexpr double kMaximumHue = 360;
constexpr double kPercent = 100;
constexpr std::size_t kHueSteps = 6;

constexpr const char* kNames[] = {"Hue", "Saturation", "Brightness", "Opacity"};

UIColor fieldColor() {
  return UIColor::colorWithLightAndDark({1, 1, 1, 1}, {0.11, 0.11, 0.12, 1});
}

UIColor opaque(double hue, double saturation, double brightness) {
  const auto [red, green, blue, alpha] =
      componentsWithHueColour({.hue = hue, .saturation = saturation, .brightness = brightness});
  return UIColor::colorWithRed(red, green, blue, alpha);
}

/// What the user may have typed or pasted for the string.
std::optional<UIColor::Components> typedColour(std::string text) {
  std::erase(text, ' ');
  return colourWithString(text.starts_with('#') ? text : '#' + text);
}

}  // namespace

TarnoColourPickerView::TarnoColourPickerView(const UIColor::Components& colour)
    : colour_(hueColourWithComponents(colour)) {
  swatch_ = addSubview(std::make_unique<UIImageView>());
  for (std::size_t i = 0; i < sliders_.size(); ++i) {
    labels_[i] = addLabel(kNames[i]);
    UISlider* slider = sliders_[i] = addSubview(std::make_unique<UISlider>());
    slider->setRange(0, i == 0 ? kMaximumHue : kPercent);
    slider->setKeyStep(1);
    slider->setContinuous(true);
    slider->addTarget(
        this, "sliderMoved", [this](UIControl&) { sliderMoved(); }, UIControlEventValueChanged);
  }
  hexLabel_ = addLabel("Hex");
  hexFrame_ = addSubview(std::make_unique<UIView>());
  hexFrame_->setBackgroundColor(fieldColor());
  hexFrame_->setCornerRadius(kFieldInset);
  hexField_ = hexFrame_->addSubview(std::make_unique<UITextField>());
  hexField_->setFont(UIFont::systemFontOfSize(kTextSize));
  hexField_->setAccessibility({.isElement = true, .label = "Hex"});
  hexField_->addTarget(
      this, "hexEdited", [this](UIControl&) { hexEdited(); }, UIControlEventEditingChanged);
  // What is no colour does not stay.
  hexField_->addTarget(
      this, "showColour", [this](UIControl&) { showColour(); }, UIControlEventEditingDidEnd);
  showColour();
}

UILabel* TarnoColourPickerView::addLabel(const char* text) {
  UILabel* label = addSubview(std::make_unique<UILabel>());
  label->setText(text);
  label->setFont(UIFont::systemFontOfSize(kTextSize));
  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.8);
  return label;
}

void TarnoColourPickerView::sliderMoved() {
  colour_ = {hueSlider()->value() / kMaximumHue, saturationSlider()->value() / kPercent,
             brightnessSlider()->value() / kPercent, opacitySlider()->value() / kPercent};
  showColour();
}

void TarnoColourPickerView::hexEdited() {
  const auto typed = typedColour(hexField_->text());
  if (!typed) return;
  colour_ = hueColourWithComponents(*typed, colour_);
  showTracks();
}

void TarnoColourPickerView::showColour() {
  hexField_->setText(stringWithColour(colour()));
  showTracks();
}

void TarnoColourPickerView::showTracks() {
  hueSlider()->setValue(colour_.hue * kMaximumHue);
  saturationSlider()->setValue(colour_.saturation * kPercent);
  brightnessSlider()->setValue(colour_.brightness * kPercent);
  opacitySlider()->setValue(colour_.alpha * kPercent);

  for (std::size_t i = 0; i < sliders_.size(); ++i) {
    const std::string number = std::to_string(std::lround(sliders_[i]->value()));
    sliders_[i]->setAccessibility(
        {.isElement = true, .label = kNames[i], .value = number + (i == 0 ? "°" : " %")});
  }

  std::vector<UIColor> hues;
  for (std::size_t i = 0; i <= kHueSteps; ++i) {
    hues.push_back(opaque(static_cast<double>(i) / kHueSteps, 1, 1));
  }
  const auto [hue, saturation, brightness, alpha] = colour_;
  const UIColor full = opaque(hue, saturation, brightness);
  hueSlider()->setTrackColors(std::move(hues));
  saturationSlider()->setTrackColors({opaque(hue, 0, brightness), opaque(hue, 1, brightness)});
  brightnessSlider()->setTrackColors({opaque(hue, saturation, 0), opaque(hue, saturation, 1)});
  opacitySlider()->setTrackColors({full.colorWithAlphaComponent(0), full});
  showSwatch();
}

void TarnoColourPickerView::showSwatch() {
  const CGSize size = swatch_->frame().size;
  swatch_->setImage(size.width > 0 ? swatchOfColour(colour(), size) : nullptr);
}

CGSize TarnoColourPickerView::sizeThatFits(CGSize size) const {
  constexpr double kFixed = 2 * kGap + kFieldHeight;
  constexpr double kSmallest = kFixed + kSmallestSwatchHeight + 4 * kSmallestSliderHeight;
  constexpr double kComfortable = kFixed + kSwatchHeight + 4 * kSliderHeight;
  return {size.width, std::clamp(size.height, kSmallest, kComfortable)};
}

void TarnoColourPickerView::layoutSubviews() {
  const auto [width, height] = frame().size;
  const double shared = height - 2 * kGap - kFieldHeight;
  const double sliderHeight =
      std::clamp((shared - kSwatchHeight) / 4, kSmallestSliderHeight, kSliderHeight);
  const double swatchHeight = std::max(0.0, shared - 4 * sliderHeight);
  const double controlWidth = std::max(0.0, width - kLabelWidth);
  swatch_->setFrame({0, 0, width, swatchHeight});
  showSwatch();
  double top = swatchHeight + kGap;
  for (std::size_t i = 0; i < sliders_.size(); ++i, top += sliderHeight) {
    labels_[i]->setFrame({0, top, kLabelWidth - kGap, sliderHeight});
    sliders_[i]->setFrame({kLabelWidth, top, controlWidth, sliderHeight});
  }
  top += kGap;
  hexLabel_->setFrame({0, top, kLabelWidth - kGap, kFieldHeight});
  hexFrame_->setFrame({kLabelWidth, top, controlWidth, kFieldHeight});
  hexField_->setFrame(
      {kFieldInset, 0, std::max(0.0, controlWidth - 2 * kFieldInset), kFieldHeight});
}

}  // namespace frelta
