#pragma once

#include <QString>
#include <memory>

#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"
#include "preferences/PSBundle.h"
#include "quick/Appearance.h"
#include "quick/QuickWindow.h"
#include "uikit/UIKitServices.h"
#include "uikit/UINavigationController.h"

namespace frelta {

/// The platform's Settings application: shows a preference bundle's pages in a window.
class SettingsApplication {
 public:
  /// Installs the services. They and the appearance outlive the application.
  SettingsApplication(const Platform& platform, const GraphicsServices& graphics,
                      const UIKitServices& services, Appearance& appearance);
  ~SettingsApplication();

  /// Loads the bundle in the folder and makes the window with its principal page, not shown yet.
  /// False on failure; error then says why.
  bool open(const QString& bundleFolder, QString& error);
  /// Opens the page behind that row of the page on top. False when there is none.
  bool openPage(const QString& rowIdentifier);

  // Null until open() has succeeded.
  QuickWindow* window() { return window_.get(); }
  UINavigationController* navigationController() { return navigation_.get(); }

 private:
  Appearance& appearance_;
  std::unique_ptr<PSBundle> bundle_;
  std::shared_ptr<UINavigationController> navigation_;
  std::unique_ptr<QuickWindow> window_;
};

}  // namespace frelta
