#include "selector/FreltaStyleCell.h"

#include <utility>

#include "device/StyleKinds.h"
#include "foundation/Platform.h"
#include "selector/FreltaStyleSubCell.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "selector/GroundColors.h"
#include "styles/FreltaSortedStyle.h"

namespace frelta {

namespace {

constexpr double kHeaderHeight = 80;

using Group = std::shared_ptr<FreltaSortedItem>;

const FreltaSortedStyle* styleOf(const Group& group) {
  return dynamic_cast<const FreltaSortedStyle*>(group.get());
}

std::optional<std::string> titleOf(const Group& group) {
  if (!group) return std::nullopt;
  if (const auto* style = styleOf(group)) return style->displayName();
  const auto& items = group->items();
  if (!items) return std::nullopt;
  return items->size() < 2 ? items->at(0)->title() : group->title();
}

std::string subtitleOf(const Group& group) {
  const auto* style = styleOf(group);
  return std::string(styleKind(style ? style->styleMode() : FreltaStyleModeImages).subtitle);
}

}  // namespace

void FreltaStyleCell::setSortedStyleItem(Group group) {
  setSelectionStyle(UITableViewCellSelectionStyle::None);
  if (group) group->updateEnabledState();
  sortedStyleItem_ = std::move(group);
  if (!headerView_) addHeaderView();
  fillHeader();
  setClipsToBounds(true);

  const bool isExpanded = sortedStyleItem_ && sortedStyleItem_->isExpanded();
  setSubCellsHidden(!isExpanded, false);
  headerView_->iconImageView()->setHidden(isExpanded);
  if (isExpanded) selectInTable();
  headerView_->setIsDraggableCell(sortedStyleItem_ && !styleOf(sortedStyleItem_) &&
                                  sortedStyleItem_->enabledState() != FreltaEnabledStateNone);
  headerView_->fitLabels();
  fittedWidth_ = frame().size.width;
  // One more at each call; those before stay, none has an effect.
  addGestureRecognizer(std::make_unique<UILongPressGestureRecognizer>(
      [this](UIGestureRecognizer& recognizer) { handleLongPress(recognizer); }));
}

void FreltaStyleCell::addHeaderView() {
  headerView_ = addSubview(std::make_unique<FreltaStyleCellHeaderCell>(
      CGRect(0, 0, contentView()->frame().size.width, kHeaderHeight)));
}

void FreltaStyleCell::fillHeader() {
  const Group& group = sortedStyleItem_;
  headerView_->setStyleGroup(group);
  headerView_->setTitleText(titleOf(group));
  headerView_->setSubtitleText(subtitleOf(group));
  loadHeaderIcon();
  headerView_->updateButtonState(group ? group->enabledState() : FreltaEnabledStateNone);
  didChange();
}

void FreltaStyleCell::loadHeaderIcon() {
  if (!sortedStyleItem_) {
    headerView_->setIconImage(nullptr);
    return;
  }
  const auto* style = styleOf(sortedStyleItem_);
  const std::string path = style ? style->fullPath().value_or("") : "";
  const auto selector = FreltaThemeSelectorViewController::current();
  headerView_->loadIconImage(
      [&](std::weak_ptr<const void> wanted, const IconHandler& done) {
        sortedStyleItem_->loadIcon(
            std::move(wanted),
            [path, done, shownBy = std::weak_ptr(selector)](std::shared_ptr<const UIImage> icon) {
              if (const auto shown = shownBy.lock()) shown->iconStandIns().keep(path, icon);
              done(std::move(icon));
            });
      },
      selector ? selector->iconStandIns().standIn(path) : nullptr);
}

void FreltaStyleCell::setPlaceholder(const std::shared_ptr<const UIImage>& placeholder) {
  if (headerView_) headerView_->setStandIn(placeholder);
  if (!subCellsView_) return;
  for (const auto& row : subCellsView_->subviews())
    static_cast<FreltaStyleSubCell&>(*row).contentView()->setStandIn(placeholder);
}

void FreltaStyleCell::selectInTable() const {
  const auto selector = FreltaThemeSelectorViewController::current();
  UITableView* table = selector ? selector->tableView() : nullptr;
  if (!table) return;
  const auto path = selector->indexPathForSortedStyle(sortedStyleItem_);
  table->beginUpdates();
  if (path) selector->didSelectRowAtIndexPath(*table, *path);
  table->selectRowAtIndexPath(path, true, UITableViewScrollPosition::None);
  table->endUpdates();
}

void FreltaStyleCell::updateSubCells() {
  if (!subCellsView_) return;
  for (const auto& row : subCellsView_->subviews())
    static_cast<FreltaStyleSubCell&>(*row).updateButtonState();
}

void FreltaStyleCell::updateHeaderCell() {
  if (headerView_) headerView_->updateButtonState();
}

void FreltaStyleCell::prepareForReuse() {
  UITableViewCell::prepareForReuse();
  setSortedStyleItem(nullptr);
  if (subCellsView_) std::exchange(subCellsView_, nullptr)->removeFromSuperview();
  headerView_->prepareForReuse();
}

void FreltaStyleCell::layoutSubviews() {
  UITableViewCell::layoutSubviews();
  applyBackgroundColor();
  fitWidth();
}

void FreltaStyleCell::applyBackgroundColor() {
  const auto ground = backgroundColor();
  if (!ground || isWhiteGround(*ground)) return;
  const UIColor card = cardColorOnGround(*ground);
  FreltaStyleContentsCell::setCustomBackgroundColor(card);
  if (headerView_) headerView_->contentView()->setBackgroundColor(card);
  FreltaToggleButton::setDisabledColor(disabledColorOnGround(*ground));
  // What was made before the class had its colours takes them too: one appearance, one grey.
  if (headerView_) headerView_->enableButton()->updateDisabledColor();
  if (!subCellsView_) return;
  // Item rows overlap one another and the header: what is seen through would be seen twice there.
  UIColor joined = card;
  for (const UIView* behind = this; behind; behind = behind->superview()) {
    if (behind->backgroundColor()) joined = colorOver(joined, *behind->backgroundColor());
  }
  for (const auto& row : subCellsView_->subviews()) {
    const FreltaStyleContentsCell& view = *static_cast<FreltaStyleSubCell&>(*row).contentView();
    view.contentView()->setBackgroundColor(joined);
    view.enableButton()->updateDisabledColor();
  }
}

// Labels that were cut or fitted in another width, and masks, do not follow by themselves.
void FreltaStyleCell::fitWidth() {
  if (!headerView_ || fittedWidth_ == frame().size.width) return;
  fittedWidth_ = frame().size.width;
  setSubCellsHidden(subCellsHidden_, false);
  headerView_->fitLabels();
  if (!subCellsView_) return;
  roundLastSubCell();
  for (const auto& row : subCellsView_->subviews())
    static_cast<FreltaStyleSubCell&>(*row).contentView()->fitLabels();
}

UIAccessibility FreltaStyleCell::accessibility() const {
  UIAccessibility accessibility = UITableViewCell::accessibility();
  if (!headerView_) return accessibility;
  // Its button speaks for itself.
  accessibility.isElement = false;
  accessibility.role = UIAccessibility::Role::Group;
  accessibility.label = headerView_->headerLabel()->text();
  accessibility.value = headerView_->subtitleLabel()->text();
  return accessibility;
}

void FreltaStyleCell::handleLongPress(UIGestureRecognizer&) {
  Platform::current().mainQueue->async([] {});
}

std::optional<std::string> FreltaStyleCell::validateSaveName(
    const std::optional<std::string>&) const {
  return std::nullopt;
}

}  // namespace frelta
