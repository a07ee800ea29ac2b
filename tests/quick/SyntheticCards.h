#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "graphics/UIImage.h"
#include "uikit/UIButton.h"
#include "uikit/UIImageView.h"
#include "uikit/UITableView.h"
#include "uikit/UIViewController.h"

namespace frelta {

/// A card of the style selector's shape: a picture, two texts and a button.
class SyntheticCard : public UITableViewCell {
 public:
  static constexpr double kHeight = 130;

  explicit SyntheticCard(double width) : UITableViewCell(UITableViewCellStyle::Default, "card") {
    setSelectionStyle(UITableViewCellSelectionStyle::None);
    setFrame({0, 0, width, kHeight});
    auto* row = addSubview(std::make_unique<UIView>(CGRect(0, 0, width, kHeight)));
    row->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    auto* card = row->addSubview(std::make_unique<UIView>(CGRect(7.5, 7.5, width - 15, 115)));
    card->setBackgroundColor(UIColor::colorWithRed(0.96, 0.96, 0.96, 1));
    card->setCornerRadius(15);
    card->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    icon_ = card->addSubview(std::make_unique<UIImageView>(CGRect(10, 11.5, 92, 92)));
    icon_->setContentMode(UIViewContentMode::ScaleAspectFit);
    title_ = card->addSubview(std::make_unique<UILabel>());
    title_->setFont(UIFont::systemFontOfSize(24));
    title_->setAdjustsFontSizeToFitWidth(true);
    title_->setMinimumScaleFactor(0.2);
    auto* subtitle = card->addSubview(std::make_unique<UILabel>());
    subtitle->setFont(UIFont::systemFontOfSize(18));
    subtitle->setTextColor(UIColor::darkGrayColor());
    subtitle->setText("Images Theme");
    subtitle->setFrame({112, 57.5, 130, 22});
    button_ = card->addSubview(
        std::make_unique<UIButton>(UIButtonType::System, CGRect(width - 101, 42, 76, 31)));
    button_->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
    button_->setBackgroundColor(UIColor::secondarySystemFillColor());
    button_->setCornerRadius(15.5);
    button_->setTitleFont(UIFont::boldSystemFontOfSize(16));
  }

  UIButton& button() { return *button_; }

  void show(const std::string& title, std::shared_ptr<const UIImage> icon) {
    icon_->setImage(std::move(icon));
    title_->setText(title);
    title_->sizeToFit();
    CGRect frame = title_->frame();
    frame.origin = {112, 57.5 - frame.size.height};
    frame.size.width = std::min(frame.size.width, this->frame().size.width - 243);
    title_->setFrame(frame);
    button_->setTitle("Enable");
    setAccessibility(
        {.role = UIAccessibility::Role::Group, .label = title, .value = "Images Theme"});
    button_->setAccessibility({.label = "Enable " + title});
  }

 private:
  UIImageView* icon_;
  UILabel* title_;
  UIButton* button_;
};

/// That many cards, whose pictures are read each time one comes on screen; no files, no pictures.
class SyntheticCards : public UIViewController,
                       public UITableViewDataSource,
                       public UITableViewDelegate {
 public:
  SyntheticCards(int cards, std::vector<std::string> pictures)
      : cards_(cards), pictures_(std::move(pictures)) {}

  UITableView& table() { return static_cast<UITableView&>(view()); }
  int cellsMade = 0;

  int numberOfRowsInSection(UITableView&, int) override { return cards_; }
  double heightForRowAtIndexPath(UITableView&, IndexPath) override {
    return SyntheticCard::kHeight;
  }
  std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                         IndexPath path) override {
    std::unique_ptr<UITableViewCell> cell = table.dequeueReusableCellWithIdentifier("card");
    if (!cell) {
      ++cellsMade;
      cell = std::make_unique<SyntheticCard>(table.frame().size.width);
    }
    const auto row = static_cast<std::size_t>(path.row);
    static_cast<SyntheticCard&>(*cell).show(
        "Style number " + std::to_string(path.row),
        pictures_.empty() ? nullptr
                          : UIImage::imageWithContentsOfFile(pictures_[row % pictures_.size()]));
    return cell;
  }

 protected:
  std::unique_ptr<UIView> loadView() override {
    auto table = std::make_unique<UITableView>(CGRect(), UITableViewStyle::Plain);
    table->setDataSource(this);
    table->setDelegate(this);
    table->setSeparatorColor(UIColor::clearColor());
    return table;
  }

 private:
  int cards_;
  std::vector<std::string> pictures_;
};

}  // namespace frelta
