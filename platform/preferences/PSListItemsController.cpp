#include "preferences/PSListItemsController.h"

#include "preferences/PSValidValues.h"

namespace frelta {

const PSSpecifierList& PSListItemsController::specifiers() {
  if (specifiers_) return *specifiers_;
  PSSpecifierList& list = specifiers_.emplace();
  const std::shared_ptr<PSSpecifier> row = specifier();
  if (!row) return list;
  const std::shared_ptr<PSListController> keeper = keeperOfValue();
  const std::vector<PSValidValue> values = validValues(*row);
  const auto checked =
      indexOfValidValue(values, keeper ? keeper->readPreferenceValue(*row) : std::nullopt);
  for (std::size_t i = 0; i < values.size(); ++i) {
    list.push_back(std::make_shared<PSSpecifier>(
        PSCellType::PSListItemCell, "ITEM-" + std::to_string(i),
        Dictionary{{"label", values[i].title}, {"checked", checked == i}}));
    list.back()->setButtonAction([this, i] { choose(i); });
  }
  return list;
}

std::shared_ptr<PSListController> PSListItemsController::keeperOfValue() const {
  return std::dynamic_pointer_cast<PSListController>(parentController());
}

void PSListItemsController::choose(std::size_t index) {
  const std::shared_ptr<PSSpecifier> row = specifier();
  for (std::size_t i = 0; i < specifiers_->size(); ++i) {
    PSSpecifier& item = *(*specifiers_)[i];
    const bool wasChecked = item.propertyForKey("checked")->boolValue();
    if (wasChecked == (i == index)) continue;
    item.setProperty(i == index, "checked");
    reloadSpecifier(item);
  }
  const std::shared_ptr<PSListController> keeper = keeperOfValue();
  if (!keeper) return;
  keeper->setPreferenceValue(validValues(*row).at(index).value, row.get());
  keeper->reloadSpecifierID(row->identifier());
}

}  // namespace frelta
