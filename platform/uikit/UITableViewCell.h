#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "uikit/UIImageView.h"
#include "uikit/UILabel.h"
#include "uikit/UITableViewCellReorderControl.h"
#include "uikit/UITableViewRowAction.h"
#include "uikit/UIView.h"

namespace frelta {

/// The platform's cell styles, with its values.
enum class UITableViewCellStyle {
  Default = 0,   // text
  Value1 = 1,    // text, and the detail at the trailing edge
  Value2 = 2,    // small text, and the detail beside it
  Subtitle = 3,  // text, and the detail below it
};

enum class UITableViewCellAccessoryType { None, DisclosureIndicator, Checkmark };
enum class UITableViewCellSelectionStyle { None, Default };
enum class UITableViewCellEditingStyle { None = 0, Delete = 1, Insert = 2 };

/// How a cell stands in a table that is being edited.
struct UITableViewCellEditing {
  UITableViewCellEditingStyle style = UITableViewCellEditingStyle::None;
  /// Whether the contents make room at the leading edge.
  bool indents = false;
  bool showsReorderControl = false;
  bool operator==(const UITableViewCellEditing&) const = default;
};

/// Where a cell stands in the card that an inset grouped table draws behind a section's rows.
enum class UITableViewCellGroupPosition { Plain, Single, First, Middle, Last };

/// One row of a table. The table owns it, in its pool of cells to reuse too.
class UITableViewCell : public UIView {
 public:
  UITableViewCell(UITableViewCellStyle style, std::string reuseIdentifier);

  UITableViewCellStyle style() const { return style_; }
  const std::string& reuseIdentifier() const { return reuseIdentifier_; }

  // Owned by the cell.
  UIView* contentView() const { return contentView_; }
  UILabel* textLabel() const { return textLabel_; }
  UILabel* detailTextLabel() const { return detailTextLabel_; }

  /// A picture before the text, made on first use; it takes no room while it has no image. It is as
  /// large as fits the row.
  UIImageView* imageView();

  UITableViewCellAccessoryType accessoryType() const { return accessoryType_; }
  void setAccessoryType(UITableViewCellAccessoryType type);
  /// A view at the trailing edge in place of the accessory type's; null for none. Owned by the
  /// cell.
  UIView* accessoryView() const { return accessoryView_; }
  void setAccessoryView(std::unique_ptr<UIView> view);
  UITableViewCellSelectionStyle selectionStyle() const { return selectionStyle_; }
  void setSelectionStyle(UITableViewCellSelectionStyle style);

  bool isSelected() const { return selected_; }
  void setSelected(bool selected);

  /// Whether a swipe may bring out actions, and those that are out now. Set by the table.
  bool isEditable() const { return editable_; }
  void setEditable(bool editable);
  const UITableViewRowActions& rowActions() const { return rowActions_; }
  void setRowActions(UITableViewRowActions actions);

  /// Nothing while the table is not being edited. Set by the table.
  const std::optional<UITableViewCellEditing>& editing() const { return editing_; }
  bool isEditing() const { return editing_.has_value(); }
  void setEditing(std::optional<UITableViewCellEditing> editing);

  UITableViewCellGroupPosition groupPosition() const { return groupPosition_; }
  /// Where the separator below the cell starts, points from the leading edge.
  double separatorInset() const;
  /// A clear colour is none. Set by the table.
  const UIColor& separatorColor() const { return separatorColor_; }
  void setSeparatorColor(const UIColor& color);
  /// For the table.
  void setGroupPosition(UITableViewCellGroupPosition position);

  /// What its row shows. For the table.
  const std::weak_ptr<const void>& item() const { return item_; }
  void setItem(std::weak_ptr<const void> item) { item_ = std::move(item); }

  /// Before the cell is used for another row.
  virtual void prepareForReuse() {}
  void layoutSubviews() override;
  /// The given width, and the height that the texts need in it with the platform's margins.
  CGSize sizeThatFits(CGSize size) const override;
  /// One element with the texts of its labels. A cell that is given the role of a group is none:
  /// controls in it speak for themselves, and its label stands for the texts in it.
  UIAccessibility accessibility() const override;
  /// What a press by keyboard or assistive technology does. True when the cell took it; otherwise
  /// the row is selected.
  virtual bool accessibilityActivate() { return false; }

 private:
  struct TextSizes {
    CGSize text;
    CGSize detail;
  };
  TextSizes textSizes(double width) const;
  double leadingEdge() const;
  /// The picture's size in a row of that height.
  CGSize imageSize(double rowHeight) const;
  /// Points between the contents' edge and the text.
  double textInset(double rowHeight) const;
  double trailingEdge(double width) const;
  void layoutTexts(const CGRect& area);

  std::weak_ptr<const void> item_;
  UITableViewCellStyle style_;
  std::string reuseIdentifier_;
  UITableViewCellAccessoryType accessoryType_ = UITableViewCellAccessoryType::None;
  UITableViewCellSelectionStyle selectionStyle_ = UITableViewCellSelectionStyle::Default;
  UITableViewCellGroupPosition groupPosition_ = UITableViewCellGroupPosition::Plain;
  bool selected_ = false;
  bool editable_ = false;
  UITableViewRowActions rowActions_;
  std::optional<UITableViewCellEditing> editing_;
  UIColor separatorColor_ = UIColor::separatorColor();
  UIView* contentView_ = nullptr;
  UILabel* textLabel_ = nullptr;
  UILabel* detailTextLabel_ = nullptr;
  UIImageView* imageView_ = nullptr;
  UIView* accessoryView_ = nullptr;
  UITableViewCellReorderControl* reorderControl_ = nullptr;
};

}  // namespace frelta
