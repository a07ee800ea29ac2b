#include "preferences/PSTableCellFactory.h"

#include <exception>

#include "foundation/Log.h"
#include "preferences/PSButtonTableCell.h"
#include "preferences/PSEditableTableCell.h"
#include "preferences/PSListItemTableCell.h"
#include "preferences/PSSegmentTableCell.h"
#include "preferences/PSSliderTableCell.h"
#include "preferences/PSStaticTextTableCell.h"
#include "preferences/PSSwitchTableCell.h"
#include "preferences/PSTitleValueTableCell.h"

namespace frelta {

namespace {

UITableViewCellStyle styleOf(PSCellType type) {
  using enum PSCellType;
  const bool showsDetail = type == PSLinkCell || type == PSLinkListCell || type == PSTitleValueCell;
  return showsDetail ? UITableViewCellStyle::Value1 : UITableViewCellStyle::Default;
}

/// Null when there is none, or its class fails to make it: that must cost no more than one row.
std::unique_ptr<PSTableCell> cellOfClass(const std::string& name, UITableViewCellStyle style,
                                         const std::string& key,
                                         const std::shared_ptr<PSSpecifier>& specifier,
                                         const PSClassRegistry& classes) {
  const auto* factory = classes.cell(name);
  if (!factory) return nullptr;
  try {
    return (*factory)(style, key, specifier);
  } catch (const std::exception& exception) {
    freltaLog("Uncaught exception from " + name + ": " + exception.what());
    return nullptr;
  }
}

}  // namespace

std::string rowKeyOf(const PSSpecifier& specifier) {
  // Only a class has a name; the framework's own are told apart by their kind.
  return specifier.cellClass().value_or(std::to_string(static_cast<int>(specifier.cellType()))) +
         "/" + specifier.identifier();
}

std::unique_ptr<PSTableCell> tableCellForSpecifier(const std::shared_ptr<PSSpecifier>& specifier,
                                                   const PSClassRegistry& classes) {
  const std::string key = rowKeyOf(*specifier);
  const UITableViewCellStyle style = styleOf(specifier->cellType());
  if (specifier->cellClass()) {
    if (auto cell = cellOfClass(*specifier->cellClass(), style, key, specifier, classes))
      return cell;
  }
  switch (specifier->cellType()) {
    using enum PSCellType;
    case PSSwitchCell:
      return std::make_unique<PSSwitchTableCell>(key, specifier);
    case PSSegmentCell:
      return std::make_unique<PSSegmentTableCell>(key, specifier);
    case PSSliderCell:
      return std::make_unique<PSSliderTableCell>(key, specifier);
    case PSEditTextCell:
      return std::make_unique<PSEditableTableCell>(key, specifier);
    case PSTitleValueCell:
    case PSLinkListCell:
      return std::make_unique<PSTitleValueTableCell>(key, specifier);
    case PSButtonCell:
      return std::make_unique<PSButtonTableCell>(key, specifier);
    case PSListItemCell:
      return std::make_unique<PSListItemTableCell>(key, specifier);
    case PSStaticTextCell:
      return std::make_unique<PSStaticTextTableCell>(key, specifier);
    case PSGroupCell:
    case PSLinkCell:
    case Plain:
      break;
  }
  return std::make_unique<PSTableCell>(style, key, specifier);
}

}  // namespace frelta
