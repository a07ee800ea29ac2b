#include "quick/QtPicturePicker.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QStandardPaths>
#include <QUrl>
#include <QWindow>
#include <utility>

#include "foundation/Log.h"
#include "quick/EventGuard.h"
#include "quick/PictureReading.h"

namespace frelta {

QtPicturePicker::QtPicturePicker() {
  reader_.setMaxThreadCount(1);
}

QtPicturePicker::~QtPicturePicker() {
  reader_.waitForDone();
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
  const int question = question_;
  // The caller is not through yet.
  QMetaObject::invokeMethod(
      this,
      [this, question] {
        if (question == question_) open();
      },
      Qt::QueuedConnection);
}

void QtPicturePicker::cancel() {
  ++question_;
  handlers_ = {};
  delete std::exchange(dialog_, nullptr);
}

void QtPicturePicker::accepted() {
  if (!handlers_.didFinish) return;
  const QString path = dialog_->property("selectedFile").toUrl().toLocalFile();
  closeLater();
  guardEvent(handlers_.didChoose);
  reader_.start([this, path, question = question_] {
    Result result = readPicture(path);
    QMetaObject::invokeMethod(
        this,
        [this, question, result = std::move(result)] {
          if (question == question_) finish(result);
        },
        Qt::QueuedConnection);
  });
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
