#include "app/StyleDrop.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QQmlComponent>
#include <QUrl>

#include "app/StyleRefusalText.h"
#include "device/Notifications.h"
#include "foundation/Log.h"
#include "foundation/Platform.h"
#include "quick/EventGuard.h"
#include "quick/Fonts.h"
#include "quick/ShownText.h"
#include "uikit/UIAlertController.h"

namespace frelta {

namespace {

constexpr int kNoteMilliseconds = 4000;
constexpr double kNoBar = -1;
constexpr double kNoteFontSize = 15;

QStringList droppedFiles(const QDropEvent& event) {
  QStringList paths;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile()) paths.append(url.toLocalFile());
  return paths;
}

}  // namespace

StyleDrop::StyleDrop(QuickWindow& window, UINavigationController& navigation, std::string root,
                     StyleInstallJob::Install install)
    : window_(window),
      navigation_(navigation),
      root_(std::move(root)),
      install_(std::move(install)) {
  window_.installEventFilter(this);
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
        showNote(tr("Drop to install the style"), kNoBar, 0);
      return true;
    }
    case QEvent::DragLeave:
      if (!isBusy()) hideNote();
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
  showNote(tr("Installing “%1”").arg(QFileInfo(work.path).fileName()), 0, 0);
  job_ = std::make_unique<StyleInstallJob>(
      StyleInstallation{work.path.toStdString(), root_, work.replace, {}, {}}, install_);
  connect(job_.get(), &StyleInstallJob::progressed, this, [this](double part) {
    if (note_) note_->setProperty("part", part);
  });
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
  hideNote();
  if (const auto* style = std::get_if<InstalledStyle>(&result)) {
    styleInstalled(*style);
  } else {
    const auto& refusal = std::get<StyleRefusal>(result);
    if (refusal.reason == StyleRefusalReason::AlreadyInstalled) {
      askToReplace(path, refusal.detail);
      return;
    }
    tellError(textOfRefusal(QFileInfo(path).fileName(), refusal));
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
  showNote(tr("“%1” was installed.").arg(QString::fromStdString(style.name)), kNoBar,
           kNoteMilliseconds);
  // Other windows list the style, and the keyboard may be showing the one that was there.
  Platform::current().darwinNotificationCenter->post(kRefreshNotification);
  // A page takes up what is new as if it came back into view.
  guardEvent([&] {
    if (UIViewController* page = navigation_.topViewController()) page->viewWillAppear(false);
  });
}

void StyleDrop::askToReplace(const QString& path, const std::string& name) {
  auto alert = UIAlertController::alertControllerWithTitle(
      tr("Replace Style").toStdString(),
      tr("A style called “%1” is installed already. Do you want to replace it?")
          .arg(QString::fromStdString(name))
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

void StyleDrop::showNote(const QString& text, double part, int milliseconds) {
  if (!engine_) engine_ = std::make_unique<QQmlEngine>();
  QQmlComponent component(engine_.get(), QUrl(QStringLiteral("qrc:/frelta/app/InstallNote.qml")));
  QObject* made = component.createWithInitialProperties({
      {QStringLiteral("text"), shownText(text.toStdString())},
      {QStringLiteral("part"), part},
      {QStringLiteral("time"), milliseconds},
      {QStringLiteral("cancelTitle"), tr("Cancel")},
      {QStringLiteral("textFont"), qtFont(UIFont::systemFontOfSize(kNoteFontSize))},
      {QStringLiteral("theme"), QVariant::fromValue<QObject*>(&window_.mirror().theme())},
  });
  note_.reset(qobject_cast<QQuickItem*>(made));
  if (!note_) {
    freltaLog("showNote " + component.errorString().toStdString());
    return;
  }
  note_->setParentItem(window_.contentItem());
  // Queued: its own event ends before it goes.
  connect(made, SIGNAL(cancelled()), this, SLOT(cancel()), Qt::QueuedConnection);
  connect(made, SIGNAL(expired()), this, SLOT(hideNote()), Qt::QueuedConnection);
}

void StyleDrop::cancel() {
  if (!job_) return;
  // It may be a while until it notices: nobody waits for that.
  job_->cancel();
  abandoned_.push_back(std::move(job_));
  hideNote();
  startNext();
}

void StyleDrop::hideNote() {
  note_.reset();
}

}  // namespace frelta
