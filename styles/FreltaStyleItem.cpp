#include "styles/FreltaStyleItem.h"

#include <array>
#include <exception>
#include <map>
#include <string_view>
#include <utility>

#include "foundation/MakeBeside.h"
#include "foundation/Platform.h"
#include "foundation/StringPaths.h"
#include "styles/FreltaStyleSelector.h"

namespace frelta {

namespace {

constexpr int kRounds = 3;
constexpr int kAttempts = 6;

std::string_view partBefore(std::string_view text, std::string_view mark) {
  return text.substr(0, text.find(mark));
}

/// What the size variants of an icon have in common. The whole path is searched for the marks, a
/// folder's name too, but only the file's name is cut.
std::string_view baseName(std::string_view path) {
  const std::string_view name = lastPathComponent(path);
  for (const std::string_view mark : {"@", "-large"})
    if (FreltaStyleSelector::contains(path, mark)) return partBefore(name, mark);
  return stringByDeletingPathExtension(name);
}

/// The path of one of four or more icons, or nothing when six picks were all blank.
std::optional<std::string> pickIcon(const std::vector<std::string>& paths) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    // An AND, not a remainder: of five icons only the first and the last come up.
    const std::size_t index = Platform::current().random->random32() & (paths.size() - 1);
    const auto image = UIImage::imageWithContentsOfFile(paths[index]);
    if (image && FreltaStyleSelector::checkIfImage(*image)) return paths[index];
  }
  return std::nullopt;
}

std::shared_ptr<const UIImage> iconOf(const std::vector<std::string>& paths, double scale) {
  const std::size_t count = paths.size();
  if (count == 1 || count == 2) {
    // The remainder of a division by 1: of two icons the first comes up.
    const std::size_t index = count == 2 ? Platform::current().random->random32() % (count - 1) : 0;
    const auto image = UIImage::imageWithContentsOfFile(paths[index]);
    return image ? FreltaStyleSelector::maskImageWithPad(*image, true, scale) : nullptr;
  }
  // Three icons make neither an icon nor a stack.
  if (count < 4) return nullptr;
  std::vector<FreltaStyleSelector::StackItem> picked;
  for (int round = 0; round < kRounds; ++round)
    if (auto path = pickIcon(paths)) picked.emplace_back(*std::move(path));
  return FreltaStyleSelector::generateStackedImageWithArray(picked, scale);
}

}  // namespace

std::vector<std::string> FreltaStyleItem::imagesForStyle() {
  if (cachedStyleImages_) return *cachedStyleImages_;
  if (!path_) return {};
  const FileManager& files = *Platform::current().fileManager;
  const std::string folder = stringByAppendingPathComponent(*path_, "IconBundles");
  std::map<std::string, std::string, std::less<>> largest;
  for (const std::string& name :
       files.contentsOfDirectoryAtPath(folder).value_or(std::vector<std::string>())) {
    if (!name.ends_with(".png")) continue;
    std::string path = stringByAppendingPathComponent(folder, name);
    const auto [kept, isNew] = largest.try_emplace(std::string(baseName(path)), path);
    if (!isNew &&
        files.fileSizeAtPath(kept->second).value_or(0) < files.fileSizeAtPath(path).value_or(0))
      kept->second = std::move(path);
  }
  if (largest.empty()) return {};
  cachedStyleImages_.emplace();
  for (auto& [base, path] : largest) cachedStyleImages_->push_back(std::move(path));
  return *cachedStyleImages_;
}

std::shared_ptr<const UIImage> FreltaStyleItem::generateIcon() {
  if (cachedImage_) return cachedImage_;
  return keepIcon(makeIcon(imagesOrNone(), FreltaStyleSelector::screenScale()));
}

void FreltaStyleItem::loadIcon(std::weak_ptr<const void> wanted, IconHandler done) {
  if (cachedImage_) {
    done(cachedImage_);
    return;
  }
  makeBeside<MadeIcon>(
      Platform::current().workQueue, std::move(wanted),
      [paths = imagesOrNone(), scale = FreltaStyleSelector::screenScale()] {
        return makeIcon(paths, scale);
      },
      [self = shared_from_this(), done = std::move(done)](MadeIcon made) {
        done(self->keepIcon(std::move(made)));
      });
}

std::vector<std::string> FreltaStyleItem::imagesOrNone() try {
  return imagesForStyle();
} catch (const std::exception& exception) {
  Platform::current().log->log(exception.what());
  return {};
}

std::shared_ptr<const UIImage> FreltaStyleItem::keepIcon(MadeIcon made) {
  if (made.failure) Platform::current().log->log(*made.failure);
  if (made.image) cachedImage_ = made.image;
  return made.image;
}

FreltaStyleItem::MadeIcon FreltaStyleItem::makeIcon(const std::vector<std::string>& paths,
                                                    double scale) try {
  return {iconOf(paths, scale), std::nullopt};
} catch (const std::exception& exception) {
  return {nullptr, exception.what()};
}

}  // namespace frelta
