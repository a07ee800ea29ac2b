#pragma once

#include <QObject>

#include "app/BroadcastFollower.h"
#include "app/FileRemovals.h"
#include "app/WindowNotes.h"

namespace frelta {

/// Has screen readers say what can be seen to have changed and that no control tells of itself: a
/// preset that is gone, and settings that somebody else has changed.
class ChangeAnnouncer : public QObject {
  Q_OBJECT

 public:
  /// None is owned; all outlive this.
  ChangeAnnouncer(const FileRemovals& removals, const BroadcastFollower& follower,
                  WindowNotes& notes);

 private:
  void removed(const QString& path);

  WindowNotes& notes_;
};

}  // namespace frelta
