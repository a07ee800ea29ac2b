#include "app/StyleDrop.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include "app/ShownPage.h"
#include "app/StyleRefusalText.h"
#include "device/Notifications.h"
#include "foundation/Platform.h"
#include "quick/EventGuard.h"
#include "quick/ShownText.h"
#include "uikit/UIAlertController.h"

namespace frelta {

namespace {

constexpr std::chrono::seconds kSaidFor{4};

QStringList droppedFiles(const QDropEvent& event) {
  QStringList paths;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile()) paths.append(url.toLocalFile());
  return paths;
}

}  // namespace

StyleDrop::StyleDrop(QuickWindow& window, WindowNotes& notes, UINavigationController& navigation,
                     std::string root, StyleInstallJob::Install install)
    : navigation_(navigation), root_(std::move(root)), install_(std::move(install)), note_(notes) {
  window.installEventFilter(this);
  connect(&note_, &WindowNote::acted, this, &StyleDrop::cancel);
}

StyleDrop::~StyleDrop() = default;

bool StyleDrop::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto& drag = static_cast<QDragMoveEvent&>(*event);
      if (droppedFiles(drag).isEmpty()) return false;
      drag.setDropAction(Qt::CopyAction);
      drag.accept();
      if (event->type() == QEvent::DragEnter && !isBusy())
        note_.show(tr("Drop to install the style"));
      return true;
    }
    case QEvent::DragLeave:
      if (!isBusy()) note_.hide();
      return true;
    case QEvent::Drop: {
      auto& drop = static_cast<QDropEvent&>(*event);
      const QStringList paths = droppedFiles(drop);
      if (paths.isEmpty()) return false;
      drop.setDropAction(Qt::CopyAction);
      drop.accept();
      install(paths);
      return true;
    }
    default:
      return QObject::eventFilter(watched, event);
  }
}

void StyleDrop::install(const QStringList& paths) {
  for (const QString& path : paths) waiting_.append({path, false});
  startNext();
}

void StyleDrop::startNext() {
  if (job_ || waiting_.isEmpty()) return;
  const Work work = waiting_.takeFirst();
  note_.showProgress(
      tr("Installing “%1”").arg(shownName(QFileInfo(work.path).fileName().toStdString())),
      tr("Cancel"));
  job_ = std::make_unique<StyleInstallJob>(
      StyleInstallation{work.path.toStdString(), root_, work.replace, {}, {}}, install_);
  connect(job_.get(), &StyleInstallJob::progressed, &note_, &WindowNote::setPart);
  connect(
      job_.get(), &StyleInstallJob::finished, this,
      [this, job = job_.get()](const StyleInstallJob::Result& result) {
        if (job == job_.get())
          jobFinished(result);
        else
          abandonedJobFinished(*job, result);
      },
      Qt::QueuedConnection);
}

void StyleDrop::jobFinished(const StyleInstallJob::Result& result) {
  const StyleInstallation done = job_->installation();
  const QString path = QString::fromStdString(done.source);
  job_.reset();
  note_.hide();
  if (const auto* style = std::get_if<InstalledStyle>(&result)) {
    styleInstalled(*style);
  } else {
    const auto& refusal = std::get<StyleRefusal>(result);
    if (refusal.reason == StyleRefusalReason::AlreadyInstalled) {
      askToReplace(path, refusal.detail);
      return;
    }
    const StyleRefusal shown{refusal.reason, shownName(refusal.detail).toStdString()};
    tellError(textOfRefusal(shownName(QFileInfo(path).fileName().toStdString()), shown));
  }
  startNext();
}

void StyleDrop::abandonedJobFinished(const StyleInstallJob& job,
                                     const StyleInstallJob::Result& result) {
  std::erase_if(abandoned_, [&](const auto& abandoned) { return abandoned.get() == &job; });
  // The cancel came too late.
  if (const auto* style = std::get_if<InstalledStyle>(&result)) styleInstalled(*style);
}

void StyleDrop::styleInstalled(const InstalledStyle& style) {
  note_.showFor(kSaidFor, tr("“%1” was installed.").arg(shownName(style.name)));
  // Other windows list the style, and the keyboard may be showing the one that was there.
  Platform::current().darwinNotificationCenter->post(kRefreshNotification);
  showWhatIsStored(navigation_);
}

void StyleDrop::askToReplace(const QString& path, const std::string& name) {
  auto alert = UIAlertController::alertControllerWithTitle(
      tr("Replace Style").toStdString(),
      tr("A style called “%1” is installed already. Do you want to replace it?")
          .arg(shownName(name))
          .toStdString());
  // What was dropped while the question stood may be under way: it is not given up for this.
  alert->addAction(UIAlertAction::actionWithTitle(
      tr("Replace").toStdString(), UIAlertActionStyle::Destructive, [this, path](UIAlertAction&) {
        waiting_.prepend({path, true});
        startNext();
      }));
  alert->addAction(UIAlertAction::actionWithTitle(tr("Cancel").toStdString(),
                                                  UIAlertActionStyle::Cancel,
                                                  [this](UIAlertAction&) { startNext(); }));
  guardEvent([&] { front().presentViewController(alert, true); });
}

void StyleDrop::tellError(const QString& text) {
  auto alert =
      UIAlertController::alertControllerWithTitle(tr("Error").toStdString(), text.toStdString());
  alert->addAction(
      UIAlertAction::actionWithTitle(tr("OK").toStdString(), UIAlertActionStyle::Default));
  guardEvent([&] { front().presentViewController(alert, true); });
}

UIViewController& StyleDrop::front() {
  UIViewController* controller = &navigation_;
  while (UIViewController* presented = controller->presentedViewController())
    controller = presented;
  return *controller;
}

void StyleDrop::cancel() {
  if (!job_) return;
  // It may be a while until it notices: nobody waits for that.
  job_->cancel();
  abandoned_.push_back(std::move(job_));
  note_.hide();
  startNext();
}

}  // namespace frelta
