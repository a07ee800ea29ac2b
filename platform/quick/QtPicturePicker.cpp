#include "quick/QtPicturePicker.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QStandardPaths>
#include <QUrl>
#include <QWindow>
#include <utility>

#include "foundation/Log.h"
#include "foundation/MakeBeside.h"
#include "quick/EventGuard.h"
#include "quick/PictureReading.h"

namespace frelta {

QtPicturePicker::QtPicturePicker() = default;

QtPicturePicker::~QtPicturePicker() {
  delete dialog_;
}

void QtPicturePicker::open() {
  if (!engine_) engine_ = std::make_unique<QQmlEngine>();
  QQmlComponent component(engine_.get(),
                          QUrl(QStringLiteral("qrc:/Frelta/Quick/qml/PictureDialog.qml")));
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  dialog_ = component.createWithInitialProperties(
      {{QStringLiteral("currentFolder"), QUrl::fromLocalFile(folder)}});
  if (!dialog_) {
    freltaLog("QtPicturePicker " + component.errorString().toStdString());
    finish({nullptr, tr("There is no file dialogue on this system.").toStdString()});
    return;
  }
  connect(dialog_, SIGNAL(accepted()), this, SLOT(accepted()));
  connect(dialog_, SIGNAL(rejected()), this, SLOT(rejected()));
  const QWindowList windows = QGuiApplication::topLevelWindows();
  QWindow* window = QGuiApplication::focusWindow();
  if (!window && !windows.isEmpty()) window = windows.constFirst();
  dialog_->setProperty("parentWindow", QVariant::fromValue(window));
  QMetaObject::invokeMethod(dialog_, "open");
}

// It is the dialogue that tells of its end, and not through yet.
void QtPicturePicker::closeLater() {
  if (QObject* dialog = std::exchange(dialog_, nullptr)) dialog->deleteLater();
}

void QtPicturePicker::pickPicture(Handlers handlers) {
  cancel();
  handlers_ = std::move(handlers);
  const auto question = std::make_shared<const bool>();
  question_ = question;
  // The caller is not through yet.
  QMetaObject::invokeMethod(
      this,
      [this, asked = std::weak_ptr(question)] {
        if (!asked.expired()) open();
      },
      Qt::QueuedConnection);
}

void QtPicturePicker::cancel() {
  question_.reset();
  handlers_ = {};
  delete std::exchange(dialog_, nullptr);
}

void QtPicturePicker::accepted() {
  if (!handlers_.didFinish) return;
  const QString path = dialog_->property("selectedFile").toUrl().toLocalFile();
  closeLater();
  guardEvent(handlers_.didChoose);
  makeBeside<Result>(
      &reader_, question_, [path] { return readPicture(path); },
      [this](const Result& result) { finish(result); });
}

void QtPicturePicker::rejected() {
  closeLater();
  if (handlers_.didFinish) finish({});
}

void QtPicturePicker::finish(const Result& result) {
  const Handlers handlers = std::exchange(handlers_, {});
  guardEvent([&] { handlers.didFinish(result); });
}

}  // namespace frelta
