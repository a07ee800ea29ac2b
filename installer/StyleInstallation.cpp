#include "installer/StyleInstallation.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>

#include "device/Paths.h"
#include "installer/FolderStyleSource.h"
#include "installer/StagedStyle.h"
#include "installer/StylePlan.h"
#include "installer/ZipStyleSource.h"
#include "linux/LinuxFileManager.h"

namespace frelta {

namespace {

using Reason = StyleRefusalReason;
using OpenSource = std::variant<std::unique_ptr<StyleSource>, StyleRefusal>;

/// The name of the file or folder, without a zip file's suffix.
std::string sourceName(const std::string& path, bool folder) {
  std::error_code ignored;
  std::filesystem::path whole = std::filesystem::absolute(path, ignored).lexically_normal();
  if (!whole.has_filename()) whole = whole.parent_path();
  std::string name = whole.filename().string();
  if (!folder && whole.has_extension()) name = whole.stem().string();
  return name;
}

OpenSource openSource(const StyleInstallation& installation) {
  const FileDescriptor opened(
      ::open(installation.source.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat status;
  if (!opened || ::fstat(opened.get(), &status) != 0)
    return StyleRefusal{Reason::Missing, std::strerror(errno)};
  const bool folder = S_ISDIR(status.st_mode);
  std::string name = sourceName(installation.source, folder);
  if (folder) {
    FileDescriptor own(::fcntl(opened.get(), F_DUPFD_CLOEXEC, 0));
    return FolderStyleSource::open(std::move(own), std::move(name), installation.limits);
  }
  if (!S_ISREG(status.st_mode)) return StyleRefusal{Reason::NotAFolderOrZip, {}};
  // Packed it is smaller than what it holds, or it holds too much.
  if (static_cast<std::uint64_t>(status.st_size) > installation.limits.bytes)
    return StyleRefusal{Reason::TooLarge, {}};
  return ZipStyleSource::open(opened.get(), std::move(name), installation.limits);
}

class Installer {
 public:
  Installer(const StyleInstallation& installation, StyleSource& source, const StylePlan& plan,
            StagedStyle& staged)
      : installation_(installation), source_(source), plan_(plan), staged_(staged) {}

  std::optional<StyleRefusal> run() {
    for (const std::string& folder : plan_.folders)
      if (!staged_.makeFolder(folder)) return cannotWrite();
    for (const StylePlan::File& file : plan_.files) {
      if (!tellProgress()) return StyleRefusal{Reason::Cancelled, {}};
      if (auto refusal = copy(file)) return refusal;
    }
    if (!staged_.flush()) return cannotWrite();
    // That may have taken a while, and is the last that can be taken back.
    if (!tellProgress()) return StyleRefusal{Reason::Cancelled, {}};
    return staged_.takePlace(plan_.name, installation_.replace);
  }

 private:
  static StyleRefusal cannotWrite() { return {Reason::CannotWrite, std::strerror(errno)}; }

  bool tellProgress() const {
    if (!installation_.progress) return true;
    return installation_.progress(static_cast<double>(written_) /
                                  static_cast<double>(std::max<std::uint64_t>(plan_.bytes, 1)));
  }

  std::optional<StyleRefusal> copy(const StylePlan::File& file) {
    const FileDescriptor target = staged_.makeFile(file.path);
    if (!target) return cannotWrite();
    std::optional<StyleRefusal> failure;
    auto refusal = source_.read(file.entry, [&](std::string_view bytes) {
      if (!StagedStyle::write(target, bytes)) {
        failure = cannotWrite();
      } else {
        written_ += bytes.size();
        if (!tellProgress()) failure = StyleRefusal{Reason::Cancelled, {}};
      }
      return !failure;
    });
    return refusal ? refusal : failure;
  }

  const StyleInstallation& installation_;
  StyleSource& source_;
  const StylePlan& plan_;
  StagedStyle& staged_;
  std::uint64_t written_ = 0;
};

}  // namespace

std::variant<InstalledStyle, StyleRefusal> installStyle(const StyleInstallation& installation) {
  OpenSource opened = openSource(installation);
  if (auto* refusal = std::get_if<StyleRefusal>(&opened)) return *refusal;
  StyleSource& source = *std::get<std::unique_ptr<StyleSource>>(opened);
  const auto planned = planForStyle(source, installation.limits);
  if (const auto* refusal = std::get_if<StyleRefusal>(&planned)) return *refusal;
  const auto& plan = std::get<StylePlan>(planned);

  LinuxFileManager files(installation.root);
  const std::string place = std::string(kThemesFolder) + plan.name;
  files.createDirectoryAtPath(kThemesFolder);
  // Known before the work; taking the place decides it again.
  if (!installation.replace && files.fileExistsAtPath(place))
    return StyleRefusal{Reason::AlreadyInstalled, plan.name};
  auto begun = StagedStyle::begin(DeviceRoot(installation.root, PathLookup::Kernel));
  if (auto* refusal = std::get_if<StyleRefusal>(&begun)) return *refusal;
  StagedStyle& staged = *std::get<std::unique_ptr<StagedStyle>>(begun);
  if (auto refusal = Installer(installation, source, plan, staged).run()) return *refusal;
  return InstalledStyle{plan.name};
}

void sweepUnfinishedStyles(const std::string& root) {
  StagedStyle::sweep(DeviceRoot(root, PathLookup::Kernel));
}

}  // namespace frelta
