#include "quick/ControlNodes.h"

#include "quick/EventGuard.h"
#include "quick/Fonts.h"
#include "quick/ShownText.h"
#include "quick/ViewMirror.h"

namespace frelta {

void ButtonNode::syncContents() {
  const UIButton& button = *viewAs<UIButton>(*this);
  title_ = shownText(button.title().value_or(""));
  font_ = qtFont(button.titleFont());
  color_ = mirror().theme().resolve(button.titleColor());
  back_ = button.buttonType() == UIButtonType::Back;
  add_ = button.buttonType() == UIButtonType::Add;
  mirrored_ = mirror().isRightToLeft();
  enabled_ = button.isEnabled();
}

void ButtonNode::press() {
  if (!view()) return;
  guardEvent([this] {
    viewAs<UIButton>(*this)->sendActionsForControlEvents(UIControlEventTouchUpInside);
  });
}

void SwitchNode::syncContents() {
  const UISwitch& view = *viewAs<UISwitch>(*this);
  on_ = view.isOn();
  animated_ = view.isChangeAnimated();
  enabled_ = view.isEnabled();
  mirrored_ = mirror().isRightToLeft();
}

void SwitchNode::toggle() {
  if (!view()) return;
  guardEvent([this] { viewAs<UISwitch>(*this)->toggle(); });
}

void SegmentedNode::syncContents() {
  const UISegmentedControl& view = *viewAs<UISegmentedControl>(*this);
  titles_.clear();
  for (const std::string& title : view.titles()) titles_.append(QString::fromStdString(title));
  selected_ = view.selectedSegmentIndex();
  fontFamily_ = qtFont(UIFont()).family();
  enabled_ = view.isEnabled();
  mirrored_ = mirror().isRightToLeft();
}

void SegmentedNode::select(int index) {
  if (!view()) return;
  guardEvent([this, index] { viewAs<UISegmentedControl>(*this)->selectSegment(index); });
}

void SliderNode::syncContents() {
  const UISlider& view = *viewAs<UISlider>(*this);
  value_ = view.value();
  minimum_ = view.minimumValue();
  maximum_ = view.maximumValue();
  keyStep_ = view.keyStep();
  const UIAccessibility accessibility = view.accessibility();
  label_ = QString::fromStdString(accessibility.label);
  valueText_ = QString::fromStdString(accessibility.value);
  trackColors_.clear();
  for (const UIColor& color : view.trackColors()) {
    trackColors_.append(mirror().theme().resolve(color));
  }
  enabled_ = view.isEnabled();
  mirrored_ = mirror().isRightToLeft();
}

void SliderNode::drag(double value) {
  if (!view()) return;
  guardEvent([this, value] { viewAs<UISlider>(*this)->dragToValue(value); });
}

void SliderNode::commit() {
  if (!view()) return;
  guardEvent([this] { viewAs<UISlider>(*this)->commitValue(); });
}

NavigationBarNode::NavigationBarNode(UINavigationBar& view, ViewMirror& mirror)
    : ViewNode(view, mirror) {
  connect(&mirror, &ViewMirror::sideMarginChanged, this, &NavigationBarNode::sideMarginChanged);
}

double NavigationBarNode::sideMargin() const {
  return mirror().sideMargin();
}

}  // namespace frelta
