#pragma once

#include "uikit/UIView.h"

namespace frelta {

/// The handle at the trailing edge of a row that can be moved while its table is being edited.
class UITableViewCellReorderControl : public UIView {
 public:
  using UIView::UIView;
};

}  // namespace frelta
