#include "pages/FreltaImageCell.h"

#include <utility>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "foundation/Platform.h"
#include "pages/PicturePreview.h"
#include "pages/freltaprefsRootListController.h"
#include "settings/RefreshNotification.h"
#include "settings/SettingsFile.h"

namespace frelta {

namespace {

void storePicture(const UIImage& picture) {
  FileManager& files = *Platform::current().fileManager;
  files.createDirectoryAtPath(kUserImagesFolder);
  if (const auto png = UIImagePNGRepresentation(picture)) {
    files.writeAtomically(kBackgroundImagePath, *png);
    keepPreview(std::string(kBackgroundImagePath), *png, picture);
  }
  writeSetting(keys::kBackgroundImage, std::string(kBackgroundImagePath));
}

/// What is done with every pick, whether the cell that asked for it is still there or not.
void takePick(UIImagePickerController& picker, const UIImagePickerControllerInfo& info) {
  const auto image = info.find(std::string(UIImagePickerControllerOriginalImage));
  if (image != info.end() && image->second) storePicture(*image->second);
  postRefreshNotification();
  picker.dismissItselfAnimated(false);
}

/// Shows the picture that is stored in the row that the page has now.
void showPictureOnRootPage() {
  const auto page = freltaprefsRootListController::currentRootPage();
  if (!page) return;
  for (UITableViewCell* cell : page->table().visibleCells()) {
    if (auto* row = dynamic_cast<FreltaImageCell*>(cell)) row->loadImageFromDict();
  }
}

/// Stands in for a cell that went while its picker was open.
class PickOfNoCell : public UIImagePickerControllerDelegate {
 public:
  void didFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                     const UIImagePickerControllerInfo& info) override {
    takePick(picker, info);
    showPictureOnRootPage();
  }
};

PickOfNoCell pickOfNoCell;

}  // namespace

FreltaImageCell::FreltaImageCell(UITableViewCellStyle style, std::string reuseIdentifier,
                                 std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier)) {}

FreltaImageCell::~FreltaImageCell() {
  if (const auto picker = picker_.lock()) picker->setDelegate(&pickOfNoCell);
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
  takePick(picker, info);
  loadImageFromDict();
  // Another cell has the row while this one waits to go.
  if (!superview()) showPictureOnRootPage();
}

void FreltaImageCell::setCurrentImage(std::shared_ptr<const UIImage> image) {
  wanted_.reset();
  showImage(std::move(image));
}

void FreltaImageCell::showImage(std::shared_ptr<const UIImage> image) {
  imageView()->setImage(std::move(image));
  setNeedsLayout();
}

void FreltaImageCell::loadImageFromDict() {
  const Dictionary settings = settingsOnDisk();
  const PropertyListValue* path = valueForKey(settings, keys::kBackgroundImage);
  if (!path || !path->string()) return;
  if (!wanted_) shownBefore_ = imageView()->image();
  const std::shared_ptr<const void> wanted = std::make_shared<const bool>();
  wanted_ = wanted;
  loadPreviewOfPictureAtPath(*path->string(), wanted,
                             [this](std::shared_ptr<const UIImage> preview) {
                               setCurrentImage(preview ? std::move(preview) : shownBefore_);
                             });
  if (wanted_ != wanted) return;
  if (auto standIn = lastPreviewOfPictureAtPath(*path->string())) showImage(std::move(standIn));
}

}  // namespace frelta
