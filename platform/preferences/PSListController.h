#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "preferences/PSController.h"
#include "preferences/PSListSection.h"
#include "preferences/PSPageDescription.h"
#include "preferences/PSSpecifier.h"
#include "preferences/PSTableCellCache.h"
#include "uikit/UITableView.h"
#include "uikit/UIViewController.h"

namespace frelta {

class PSBundle;

/// A page of rows. A subclass says which rows, and where their values are kept.
class PSListController : public UIViewController,
                         public PSController,
                         public UITableViewDataSource,
                         public UITableViewDelegate {
 public:
  /// The rows and groups, loaded on first use. Valid until they are reloaded.
  virtual const PSSpecifierList& specifiers();

  /// The rows of the bundle's page description of that name, whose values the target keeps. Takes
  /// the page's title from the description if it has one. What is wrong with the description is
  /// logged the first time; a missing or malformed one has no rows.
  PSSpecifierList loadSpecifiersFromPlistName(const std::string& name, PSListController& target);

  /// Drops the rows and loads them anew; the table shows them at its next layout.
  void reloadSpecifiers();
  /// Shows one row's value anew. Nothing happens when the page has no such row.
  void reloadSpecifier(const PSSpecifier& specifier);
  void reloadSpecifierID(std::string_view identifier);

  /// The first with the identifier among those loaded, or null.
  std::shared_ptr<PSSpecifier> specifierForID(std::string_view identifier) const;
  /// The cell that shows that row now, owned by the table; null while the row is out of sight or
  /// not on the page.
  PSTableCell* cachedCellForSpecifierID(std::string_view identifier) const;
  /// Its place among those loaded, groups counted.
  std::optional<std::size_t> indexOfSpecifier(const PSSpecifier& specifier) const;
  /// Where the table shows the row; nothing for a group, or a row that it does not show.
  std::optional<IndexPath> indexPathForSpecifier(const PSSpecifier& specifier) const;

  /// What a row shows; its "default" unless a subclass knows better.
  virtual std::optional<PropertyListValue> readPreferenceValue(PSSpecifier& specifier);
  /// Stores what the user set a row to; nothing here.
  virtual void setPreferenceValue(std::optional<PropertyListValue> value, PSSpecifier* specifier);

  /// Where descriptions and classes come from; it outlives the page. Null for none.
  const PSBundle* bundle() const { return bundle_; }
  void setBundle(const PSBundle* bundle) override { bundle_ = bundle; }
  /// The row that led here, or null.
  const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
  void setSpecifier(std::shared_ptr<PSSpecifier> specifier) override {
    specifier_ = std::move(specifier);
  }
  void setRootController(std::weak_ptr<UIViewController> controller) override {
    rootController_ = std::move(controller);
  }
  std::shared_ptr<UIViewController> parentController() const { return parentController_.lock(); }
  void setParentController(std::weak_ptr<UIViewController> controller) override {
    parentController_ = std::move(controller);
  }

  /// The page's view.
  UITableView& table();

  void viewDidLoad() override;

  int numberOfSectionsInTableView(UITableView&) override;
  int numberOfRowsInSection(UITableView&, int section) override;
  std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, IndexPath path) override;
  std::string titleForHeaderInSection(UITableView&, int section) override;
  /// The "headerHeight" of the section's group.
  std::optional<double> heightForHeaderInSection(UITableView&, int section) override;
  std::string titleForFooterInSection(UITableView&, int section) override;
  double heightForRowAtIndexPath(UITableView&, IndexPath path) override;
  std::optional<IndexPath> willSelectRowAtIndexPath(UITableView&, IndexPath path) override;
  void didSelectRowAtIndexPath(UITableView&, IndexPath path) override;

 protected:
  std::unique_ptr<UIView> loadView() override;

  /// The rows as loaded; nothing makes specifiers() load them.
  std::optional<PSSpecifierList> specifiers_;

 private:
  const PSPageDescription& pageDescription(const std::string& name);
  const PSClassRegistry& classes() const;
  const std::shared_ptr<PSSpecifier>& rowAt(IndexPath path) const;
  PSSpecifier::Action tapAction(IndexPath path);
  void pushControllerForSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  const PSBundle* bundle_ = nullptr;
  std::shared_ptr<PSSpecifier> specifier_;
  std::weak_ptr<UIViewController> rootController_;
  std::weak_ptr<UIViewController> parentController_;
  std::map<std::string, PSPageDescription> descriptions_;
  UITableView* table_ = nullptr;         // the view
  std::vector<PSListSection> sections_;  // what the table shows
  PSTableCellCache cells_;
};

}  // namespace frelta
