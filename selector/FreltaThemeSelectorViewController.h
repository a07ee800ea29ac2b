#pragma once

#include <memory>
#include <optional>

#include "selector/IconStandIns.h"
#include "selector/SelectorTable.h"
#include "styles/FreltaStyleLibrary.h"
#include "uikit/UITableView.h"
#include "uikit/UIViewController.h"

namespace frelta {

/// The installed styles of one kind as cards with enable buttons, in two sections: the enabled one
/// (0) and the library (any other).
class FreltaThemeSelectorViewController : public UIViewController,
                                          public UITableViewDataSource,
                                          public UITableViewDelegate,
                                          public FreltaStyleLibrary {
 public:
  // Each makes a selector for one kind of style; it is the current selector from then on.
  static std::shared_ptr<FreltaThemeSelectorViewController> init();
  static std::shared_ptr<FreltaThemeSelectorViewController> initForHTML();
  static std::shared_ptr<FreltaThemeSelectorViewController> initForWidget();
  /// The one initialised last, which the row views go to; null before the first.
  static std::shared_ptr<FreltaThemeSelectorViewController> current();

  /// Of a closed row, points.
  static double minimisedCellHeight() { return 130.0; }

  /// Owned by the screen's view; null until that is loaded.
  UITableView* tableView() const { return tableView_; }

  /// For cards whose icons are not there yet.
  IconStandIns& iconStandIns() { return iconStandIns_; }

  /// Asks what to create; for HTML themes there is no choice.
  void addButtonTapped();
  // Without function yet.
  void newStyleRegular() {}
  void newStyleKeyFrames() {}
  /// Says, on the main queue's next turn, that there are no styles; "OK" leaves the screen.
  void showNoStylesAlert();

  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;
  void viewDidLayoutSubviews() override;

  int numberOfSectionsInTableView(UITableView&) override { return 2; }
  int numberOfRowsInSection(UITableView&, int section) override;
  std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                         IndexPath path) override;
  std::shared_ptr<const void> itemForRowAtIndexPath(UITableView&, IndexPath path) override {
    return entryAt(path);
  }
  bool canMoveRowAtIndexPath(UITableView&, IndexPath) override { return false; }
  double heightForRowAtIndexPath(UITableView&, IndexPath path) override;
  std::optional<IndexPath> willSelectRowAtIndexPath(UITableView& table, IndexPath path) override;
  void didSelectRowAtIndexPath(UITableView&, IndexPath) override {}
  void didDeselectRowAtIndexPath(UITableView&, IndexPath) override {}
  UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView&, IndexPath) override {
    return UITableViewCellEditingStyle::None;
  }
  bool shouldIndentWhileEditingRowAtIndexPath(UITableView&, IndexPath) override { return false; }
  void scrollViewDidScroll(UIScrollView& table) override;

 protected:
  std::shared_ptr<FreltaStyleLibrary> strongReference() override;

 private:
  const Entry& entryAt(IndexPath path) const;
  void showPlaceholder();

  UITableView* tableView_ = nullptr;
  std::unique_ptr<SelectorTable> styleTable_;
  IconStandIns iconStandIns_;
  /// Where the table is pinned, points; nothing sets it to a place.
  double currentScrollPos_ = -1.0;
};

}  // namespace frelta
