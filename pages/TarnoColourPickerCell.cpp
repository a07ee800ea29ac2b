#include "pages/TarnoColourPickerCell.h"

#include <utility>

#include "pages/TarnoColourPickerCellProtocol.h"
#include "pages/TarnoColourPickerView.h"
#include "pages/TarnoColourString.h"
#include "pages/TarnoColourSwatch.h"
#include "preferences/PSListController.h"
#include "uikit/UIAlertController.h"

namespace frelta {

namespace {

constexpr CGSize kSwatchSize{44, 26};
/// What the dialogue starts from where there is no colour: the platform's blue.
constexpr UIColor::Components kFirstColour{0, 122 / 255.0, 1, 1};

std::string textOf(const std::optional<UIColor::Components>& colour) {
  return colour ? stringWithColour(*colour) : "Not set";
}

std::unique_ptr<UIView> swatchView(const UIColor::Components& colour) {
  auto view = std::make_unique<UIImageView>(CGRect{{}, kSwatchSize});
  view->setImage(swatchOfColour(colour, kSwatchSize));
  return view;
}

}  // namespace

TarnoColourPickerCell::TarnoColourPickerCell(UITableViewCellStyle style,
                                             std::string reuseIdentifier,
                                             std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier)) {}

std::optional<UIColor::Components> TarnoColourPickerCell::colour() const {
  const std::string* key = specifier()->stringForKey("key");
  auto* page = dynamic_cast<TarnoColourPickerCellProtocol*>(specifier()->target());
  const auto text = key && page ? page->colourStringForKey(*this, *key) : std::nullopt;
  return text ? colourWithString(*text) : std::nullopt;
}

void TarnoColourPickerCell::refreshCellContents() {
  PSTableCell::refreshCellContents();
  const auto shown = colour();
  detailTextLabel()->setText(textOf(shown));
  setAccessoryView(shown ? swatchView(*shown) : nullptr);
}

void TarnoColourPickerCell::openColourPicker() {
  PSListController* page = specifier()->target();
  if (!page) return;
  auto contents = std::make_unique<TarnoColourPickerView>(colour().value_or(kFirstColour));
  TarnoColourPickerView* picker = contents.get();
  const auto dialogue = UIAlertController::alertControllerWithTitle(specifier()->name(), "");
  dialogue->setContentView(std::move(contents));
  dialogue->addAction(
      UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel, nullptr));
  // The dialogue outlives the row, which the page may load anew meanwhile.
  const auto keeper = std::static_pointer_cast<PSListController>(page->shared_from_this());
  const auto pick = [picker, keeper, row = specifier(), before = textOf(colour())](UIAlertAction&) {
    const std::string text = stringWithColour(picker->colour());
    if (text == before) return;
    keeper->setPreferenceValue(text, row.get());
    if (PSTableCell* shown = keeper->cachedCellForSpecifierID(row->identifier())) {
      shown->refreshCellContents();
    } else {
      keeper->reloadSpecifierID(row->identifier());
    }
  };
  dialogue->addAction(UIAlertAction::actionWithTitle("Done", UIAlertActionStyle::Default, pick));
  page->presentViewController(dialogue, true);
}

}  // namespace frelta
