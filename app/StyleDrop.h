#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/StyleInstallJob.h"
#include "app/WindowNote.h"
#include "quick/QuickWindow.h"
#include "uikit/UINavigationController.h"

namespace frelta {

/// Installs the style folders and zip files that are dropped on a window, one after the other, and
/// says in the window how it goes.
class StyleDrop : public QObject {
  Q_OBJECT

 public:
  /// The root is the device root's host path. Neither the window nor its notes nor the navigation
  /// is owned; all outlive this.
  StyleDrop(QuickWindow& window, WindowNotes& notes, UINavigationController& navigation,
            std::string root, StyleInstallJob::Install install = installStyle);
  ~StyleDrop() override;

  /// Installs them as if they had been dropped: host paths.
  void install(const QStringList& paths);
  /// Whether something is being installed, or on its way to its end after a cancel.
  bool isInstalling() const { return job_ || !abandoned_.empty(); }
  /// Whether nothing is being installed or waiting to be.
  bool isIdle() const { return !isInstalling() && waiting_.isEmpty(); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private Q_SLOTS:
  void cancel();

 private:
  struct Work {
    QString path;
    bool replace;
  };

  bool isBusy() const { return job_ || !waiting_.isEmpty(); }
  /// Unless something is being installed or nothing is waiting.
  void startNext();
  void jobFinished(const StyleInstallJob::Result& result);
  void abandonedJobFinished(const StyleInstallJob& job, const StyleInstallJob::Result& result);
  void styleInstalled(const InstalledStyle& style);
  void askToReplace(const QString& path, const std::string& name);
  void tellError(const QString& text);
  /// The controller that may present: the one over all others.
  UIViewController& front();

  UINavigationController& navigation_;
  std::string root_;
  QList<Work> waiting_;
  StyleInstallJob::Install install_;
  std::unique_ptr<StyleInstallJob> job_;
  /// Cancelled, but not yet where they notice.
  std::vector<std::unique_ptr<StyleInstallJob>> abandoned_;
  WindowNote note_;
};

}  // namespace frelta
