#include "app/ChangeAnnouncer.h"

#include "device/Paths.h"
#include "foundation/StringPaths.h"
#include "quick/ShownText.h"

namespace frelta {

ChangeAnnouncer::ChangeAnnouncer(const FileRemovals& removals, const BroadcastFollower& follower,
                                 WindowNotes& notes)
    : notes_(notes) {
  connect(&removals, &FileRemovals::removed, this, &ChangeAnnouncer::removed);
  connect(&follower, &BroadcastFollower::followed, this,
          [this] { notes_.announce(tr("The settings were changed elsewhere.")); });
}

void ChangeAnnouncer::removed(const QString& path) {
  const std::string device = path.toStdString();
  const std::string_view name = lastPathComponent(device);
  if (device != stringByAppendingPathComponent(kPresetsFolder, name)) return;
  notes_.announce(
      tr("The preset “%1” was deleted.").arg(shownName(stringByDeletingPathExtension(name))));
}

}  // namespace frelta
