#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "pages/TarnoColourPickerCellProtocol.h"
#include "preferences/PSListController.h"

namespace frelta {

/// The add-on's first page: rows filtered by the master switch and the background mode, their
/// values read through the preferences manager and written straight to the settings file.
class freltaprefsRootListController : public PSListController,
                                      public TarnoColourPickerCellProtocol {
 public:
  freltaprefsRootListController() : freltaprefsRootListController("Root") {}

  /// The page that shows now, this one or one derived from it; null while none does.
  static std::shared_ptr<freltaprefsRootListController> currentRootPage();

  /// Name of the page description.
  const std::string& name() const { return name_; }
  void setName(std::string name) { name_ = std::move(name); }

  const PSSpecifierList& specifiers() override;
  std::optional<PropertyListValue> readPreferenceValue(PSSpecifier& specifier) override;
  void setPreferenceValue(std::optional<PropertyListValue> value, PSSpecifier* specifier) override;

  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;

  // Each opens the selector for one kind of style.
  void selectTheme();
  void selectHTML();
  void selectWidget();
  void respring();
  /// Opens the maker's profile.
  void twitterlink();
  /// Opens the page where help is to be had.
  void supportlink();

  std::optional<std::string> colourStringForKey(const PSTableCell& cell,
                                                std::string_view key) override;

 protected:
  explicit freltaprefsRootListController(std::string name) : name_(std::move(name)) {}

 private:
  void handleSingleTap();
  void push(std::shared_ptr<UIViewController> screen);

  /// Reserved: released with the page, set by nobody.
  std::shared_ptr<UIViewController> tarnoViewController_;
  std::string name_;
};

}  // namespace frelta
