#include "selector/GroundColors.h"

#include <algorithm>

#include "foundation/Platform.h"

namespace frelta {

namespace {

using Components = UIColor::Components;

constexpr double kDisabledColorStep = 0.2;

bool isOpaqueWhite(const Components& color) {
  return color == Components{1.0, 1.0, 1.0, 1.0};
}

template <typename Change>
UIColor unlessWhite(const UIColor& ground, const UIColor& onWhite, Change change) {
  const auto in = [&](UserInterfaceStyle style) {
    const Components components = ground.componentsForStyle(style);
    return isOpaqueWhite(components) ? onWhite.componentsForStyle(style) : change(components);
  };
  return UIColor::colorWithLightAndDark(in(UserInterfaceStyle::Light),
                                        in(UserInterfaceStyle::Dark));
}

}  // namespace

UIColor cardColorOnGround(const UIColor& ground) {
  return unlessWhite(ground, defaultCardColor(), [](const Components& color) { return color; });
}

UIColor disabledColorOnGround(const UIColor& ground) {
  const auto raised = [](double part) { return std::min(part + kDisabledColorStep, 1.0); };
  return unlessWhite(ground, defaultDisabledColor(), [&](const Components& color) {
    return Components{raised(color.red), raised(color.green), raised(color.blue), color.alpha};
  });
}

UIColor colorOver(const UIColor& color, const UIColor& behind) {
  const auto in = [&](UserInterfaceStyle style) {
    const Components front = color.componentsForStyle(style);
    const Components back = behind.componentsForStyle(style);
    const double share = back.alpha * (1 - front.alpha);
    const double alpha = front.alpha + share;
    if (alpha == 0) return front;
    const auto part = [&](double over, double under) {
      return (over * front.alpha + under * share) / alpha;
    };
    return Components{part(front.red, back.red), part(front.green, back.green),
                      part(front.blue, back.blue), alpha};
  };
  return UIColor::colorWithLightAndDark(in(UserInterfaceStyle::Light),
                                        in(UserInterfaceStyle::Dark));
}

bool isWhiteGround(const UIColor& ground) {
  const auto components = ground.getRed();
  return !components || isOpaqueWhite(*components);
}

UIColor defaultCardColor() {
  return UIColor::colorWithRed(0.96, 0.96, 0.96, 1.0);
}

UIColor defaultDisabledColor() {
  return Platform::current().system->systemVersion() >= SystemVersion{13, 0, 0}
             ? UIColor::secondarySystemFillColor()
             : UIColor::whiteColor();
}

}  // namespace frelta
