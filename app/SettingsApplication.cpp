#include "app/SettingsApplication.h"

#include <algorithm>

#include "app/BundledFiles.h"
#include "app/DeviceFolders.h"
#include "app/FirstPage.h"
#include "app/LoadedBundle.h"
#include "preferences/PSListController.h"
#include "quick/EventGuard.h"

namespace frelta {

namespace {
constexpr int kWindowWidth = 480;
constexpr int kWindowHeight = 800;
constexpr int kSmallestWidth = 280;
constexpr int kSmallestHeight = 320;
}  // namespace

SettingsApplication::SettingsApplication(const Platform& platform, const GraphicsServices& graphics,
                                         const UIKitServices& services, Appearance& appearance)
    : appearance_(appearance) {
  Platform::install(platform);
  GraphicsServices::install(graphics);
  UIKitServices::install(services);
}

SettingsApplication::~SettingsApplication() {
  // Pages hold code and rows of the bundle, views are mirrored by the window.
  window_.reset();
  navigation_.reset();
}

bool SettingsApplication::open(const QString& bundleFolder, QString& error) {
  installBundledFiles(bundleFolder);
  createDeviceFolders();
  bundle_ = LoadedBundle::load(bundleFolder, error);
  if (!bundle_) return false;
  const std::shared_ptr<UIViewController> page = makeFirstPage(*bundle_);
  navigation_ = std::make_shared<UINavigationController>();
  guardEvent([&] { navigation_->pushViewController(page, false); });
  window_ = std::make_unique<QuickWindow>(navigation_, appearance_);
  window_->setTitle(QStringLiteral("Frelta"));
  window_->setMinimumSize({kSmallestWidth, kSmallestHeight});
  window_->resize(kWindowWidth, kWindowHeight);
  window_->setBackHandler([this] { navigation_->popViewControllerAnimated(true); });
  return true;
}

bool SettingsApplication::openPage(const QString& rowIdentifier) {
  auto* page = dynamic_cast<PSListController*>(navigation_->topViewController());
  if (!page) return false;
  // Before the window is first shown nothing is laid out, and a row acts through its cell, which
  // only rows on the screen have.
  const auto width = std::min<double>(window_->width(), QuickWindow::kMaximumColumnWidth);
  window_->uiWindow().setFrame({0, 0, width, static_cast<double>(window_->height())});
  window_->mirror().flush();
  const auto row = rowToPage(*page, rowIdentifier);
  const auto path = row ? page->indexPathForSpecifier(*row) : std::nullopt;
  if (!path) return false;
  page->table().scrollToRowAtIndexPath(*path);
  window_->mirror().flush();
  const std::size_t before = navigation_->viewControllers().size();
  guardEvent([&] { page->table().userDidSelectRowAtIndexPath(*path); });
  return navigation_->viewControllers().size() > before;
}

}  // namespace frelta
