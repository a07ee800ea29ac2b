#include "graphics/UIColor.h"

#include <algorithm>

#include "foundation/Platform.h"

namespace frelta {

namespace {

constexpr UIColor::Components rgb(int red, int green, int blue, double alpha = 1) {
  return {red / 255.0, green / 255.0, blue / 255.0, alpha};
}

}  // namespace

UIColor UIColor::colorWithRed(double red, double green, double blue, double alpha) {
  const Components components{red, green, blue, alpha};
  return {components, components};
}

UIColor UIColor::colorWithLightAndDark(Components light, Components dark) {
  return {light, dark};
}

UIColor UIColor::colorBetween(const UIColor& from, const UIColor& to, double fraction) {
  const auto mix = [fraction](const Components& a, const Components& b) {
    const auto part = [fraction](double x, double y) { return x + (y - x) * fraction; };
    return Components{part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue),
                      part(a.alpha, b.alpha)};
  };
  return {mix(from.light_, to.light_), mix(from.dark_, to.dark_)};
}

UIColor UIColor::colorWithAlphaComponent(double alpha) const {
  UIColor color = *this;
  color.light_.alpha = color.dark_.alpha = alpha;
  return color;
}

std::optional<UIColor::Components> UIColor::getRed() const {
  if (const SystemInformation* system = Platform::current().system) {
    const auto windows = system->windows();
    const auto key = std::ranges::find_if(windows, &SystemInformation::Window::isKeyWindow);
    if (key != windows.end()) return componentsForStyle(key->userInterfaceStyle);
    // No window has the keyboard while another program's has it.
    if (!windows.empty()) return componentsForStyle(windows.front().userInterfaceStyle);
  }
  return light_;
}

UIColor UIColor::clearColor() {
  return colorWithRed(0, 0, 0, 0);
}
UIColor UIColor::whiteColor() {
  return colorWithRed(1, 1, 1, 1);
}
UIColor UIColor::darkGrayColor() {
  constexpr double kDark = 1.0 / 3;
  constexpr double kLight = 2.0 / 3;
  return {{kDark, kDark, kDark, 1}, {kLight, kLight, kLight, 1}};
}
UIColor UIColor::grayColor() {
  return colorWithRed(0.5, 0.5, 0.5, 1);
}

UIColor UIColor::labelColor() {
  return {rgb(0, 0, 0), rgb(255, 255, 255)};
}
UIColor UIColor::secondaryLabelColor() {
  return {rgb(60, 60, 67, 0.6), rgb(235, 235, 245, 0.6)};
}
UIColor UIColor::tertiaryLabelColor() {
  return {rgb(60, 60, 67, 0.3), rgb(235, 235, 245, 0.3)};
}
UIColor UIColor::placeholderTextColor() {
  return tertiaryLabelColor();
}
UIColor UIColor::separatorColor() {
  return {rgb(60, 60, 67, 0.29), rgb(84, 84, 88, 0.6)};
}
UIColor UIColor::systemBackgroundColor() {
  return {rgb(255, 255, 255), rgb(0, 0, 0)};
}
UIColor UIColor::systemGroupedBackgroundColor() {
  return {rgb(242, 242, 247), rgb(0, 0, 0)};
}
UIColor UIColor::secondarySystemGroupedBackgroundColor() {
  return {rgb(255, 255, 255), rgb(28, 28, 30)};
}
UIColor UIColor::systemBlueColor() {
  return {rgb(0, 122, 255), rgb(10, 132, 255)};
}
UIColor UIColor::systemGreenColor() {
  return {rgb(52, 199, 89), rgb(48, 209, 88)};
}
UIColor UIColor::systemRedColor() {
  return {rgb(255, 59, 48), rgb(255, 69, 58)};
}
UIColor UIColor::systemGray3Color() {
  return {rgb(199, 199, 204), rgb(72, 72, 74)};
}
UIColor UIColor::systemGray4Color() {
  return {rgb(209, 209, 214), rgb(58, 58, 60)};
}
UIColor UIColor::secondarySystemFillColor() {
  return {rgb(120, 120, 128, 0.16), rgb(120, 120, 128, 0.32)};
}

}  // namespace frelta
