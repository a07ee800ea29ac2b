#include "pages/FreltaImageCell.h"

#include <utility>

#include "foundation/Platform.h"
#include "pages/PicturePreview.h"
#include "pages/freltaprefsRootListController.h"
#include "settings/RefreshNotification.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"

namespace frelta {

FreltaImageCell::FreltaImageCell(UITableViewCellStyle style, std::string reuseIdentifier,
                                 std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier)) {}

FreltaImageCell::~FreltaImageCell() {
  if (const auto picker = picker_.lock()) picker->setDelegate(nullptr);
}

PSSpecifier::Action FreltaImageCell::action() {
  // The row may outlive the cell.
  return [this, alive = std::weak_ptr(alive_)] {
    if (!alive.expired()) openImagePicker();
  };
}

void FreltaImageCell::didMoveToSuperview() {
  PSTableCell::didMoveToSuperview();
  if (!superview()) return;
  loadImageFromDict();
  specifier()->setButtonAction(action());
}

void FreltaImageCell::openImagePicker() {
  constexpr auto kSource = UIImagePickerControllerSourceType::PhotoLibrary;
  if (!UIImagePickerController::isSourceTypeAvailable(kSource)) return;
  const auto picker = std::make_shared<UIImagePickerController>();
  picker->setSourceType(kSource);
  picker->setDelegate(this);
  picker_ = picker;
  if (const auto page = freltaprefsRootListController::currentRootPage()) {
    page->presentViewController(picker, true);
  }
}

void FreltaImageCell::didFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                                    const UIImagePickerControllerInfo& info) {
  const auto image = info.find(std::string(UIImagePickerControllerOriginalImage));
  if (image != info.end() && image->second) {
    FileManager& files = *Platform::current().fileManager;
    files.createDirectoryAtPath(kUserImagesFolder);
    if (const auto png = UIImagePNGRepresentation(*image->second)) {
      files.writeAtomically(kBackgroundImagePath, *png);
      keepPreview(*png, *image->second);
    }
    writeSetting("backgroundImage", std::string(kBackgroundImagePath));
  }
  postRefreshNotification();
  picker.dismissViewControllerAnimated(false);
  loadImageFromDict();
}

void FreltaImageCell::setCurrentImage(std::shared_ptr<const UIImage> image) {
  imageView()->setImage(std::move(image));
  setNeedsLayout();
}

void FreltaImageCell::loadImageFromDict() {
  const Dictionary settings = settingsOnDisk();
  const PropertyListValue* path = valueForKey(settings, "backgroundImage");
  if (!path || !path->string()) return;
  if (auto preview = previewOfPictureAtPath(*path->string())) setCurrentImage(std::move(preview));
}

}  // namespace frelta
