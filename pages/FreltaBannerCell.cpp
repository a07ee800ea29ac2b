#include "pages/FreltaBannerCell.h"

#include <string>
#include <utility>

#include "device/Paths.h"
#include "foundation/MakeBeside.h"
#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"

namespace frelta {

namespace {

constexpr double kRowHeight = 150;
constexpr double kFrameHeight = 195;
constexpr double kIconTop = 15;
constexpr double kIconHeight = 100;
constexpr double kIconRadiusShare = 0.225;  // of the icon's width
constexpr double kGap = 5;
constexpr double kTitleSize = 35;
constexpr double kSubTitleSize = 16;

std::shared_ptr<const UIImage> rounded(const std::shared_ptr<const UIImage>& image, double radius,
                                       double scale) {
  if (!image || radius == 0) return image;
  const CGRect bounds({}, image->size());
  const auto context = GraphicsServices::current().images->beginImageContext(bounds.size, scale);
  context->clipToRoundedRect(bounds, radius);
  context->drawImage(*image, bounds);
  return context->image();
}

}  // namespace

std::unique_ptr<FreltaBannerCell> FreltaBannerCell::initWithSpecifier(
    std::shared_ptr<PSSpecifier> specifier) {
  return std::unique_ptr<FreltaBannerCell>(new FreltaBannerCell(std::move(specifier)));
}

FreltaBannerCell::FreltaBannerCell(std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, "Cell", std::move(specifier)) {
  setBackgroundColor(UIColor::clearColor());
  setSelectionStyle(UITableViewCellSelectionStyle::None);
  const double width = PSTableCell::frame().size.width;

  auto icon = std::make_unique<UIImageView>(CGRect(0, kIconTop, width, kIconHeight));
  icon->setContentMode(UIViewContentMode::ScaleAspectFit);
  icon->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);

  const double titleTop = static_cast<float>(icon->frame().size.height + kIconTop) + float{kGap};
  auto title = makeLabel(titleTop, kTitleSize, "Frelta");
  auto subTitle =
      makeLabel(title->frame().size.height + titleTop + kGap, kSubTitleSize, "by the Tarno team");
  subTitle->setTextColor(UIColor::grayColor());

  mainTitleLabel_ = addSubview(std::move(title));
  subTitleLabel_ = addSubview(std::move(subTitle));
  bannerView_ = addSubview(std::move(icon));
  loadIcon();
}

void FreltaBannerCell::loadIcon() {
  const std::shared_ptr<const void> wanted = std::make_shared<const bool>();
  wanted_ = wanted;
  makeBeside<Icon>(
      Platform::current().workQueue, wanted,
      [scale = Platform::current().system->screenScale()] { return iconAtScale(scale); },
      [this](const Icon& icon) {
        wanted_.reset();
        lastIcon() = icon;
        showIcon(icon);
      });
  if (wanted_ == wanted) showIcon(lastIcon());
}

void FreltaBannerCell::showIcon(const Icon& icon) {
  unmaskedImage_ = icon.unmasked;
  bannerView_->setImage(icon.rounded);
}

FreltaBannerCell::Icon& FreltaBannerCell::lastIcon() {
  static Icon icon;
  return icon;
}

FreltaBannerCell::Icon FreltaBannerCell::iconAtScale(double scale) {
  const auto image = UIImage::imageWithContentsOfFile(kBannerIconPath);
  if (!image) return {};
  return {image, rounded(image, image->size().width * kIconRadiusShare, scale)};
}

std::unique_ptr<UILabel> FreltaBannerCell::makeLabel(double top, double fontSize,
                                                     std::string text) const {
  auto label = std::make_unique<UILabel>();
  label->setNumberOfLines(1);
  label->setFont(UIFont::systemFontOfSize(fontSize));
  label->setText(std::move(text));
  label->setBackgroundColor(UIColor::clearColor());
  label->setTextAlignment(NSTextAlignment::Center);
  label->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  label->setFrame({0, top, PSTableCell::frame().size.width, label->sizeThatFits({}).height});
  return label;
}

std::shared_ptr<const UIImage> FreltaBannerCell::roundedRectImageFromImage(
    const std::shared_ptr<const UIImage>& image, double radius) {
  return rounded(image, radius, Platform::current().system->screenScale());
}

std::optional<double> FreltaBannerCell::preferredHeightForWidth(double) const {
  return kRowHeight;
}

CGRect FreltaBannerCell::frame() const {
  if (!superview()) return PSTableCell::frame();
  return {0, 0, superview()->frame().size.width, kFrameHeight};
}

void FreltaBannerCell::setFrame(const CGRect&) {
  const double width = superview() ? superview()->frame().size.width : 0;
  PSTableCell::setFrame({0, 0, width, kFrameHeight});
}

void FreltaBannerCell::didMoveToSuperview() {
  PSTableCell::didMoveToSuperview();
  layoutIfNeeded();
  setFrame(frame());
  layoutIfNeeded();
}

void FreltaBannerCell::refreshCellContents() {}

UIAccessibility FreltaBannerCell::accessibility() const {
  return {.isElement = true,
          .role = UIAccessibility::Role::Heading,
          .label = mainTitleLabel_->text(),
          .value = subTitleLabel_->text()};
}

}  // namespace frelta
