#pragma once

#include <QObject>
#include <memory>

#include "quick/QtWorkQueue.h"
#include "uikit/PicturePickerService.h"

class QQmlEngine;

namespace frelta {

/// Qt's file dialogue, which is the desktop's own where Qt has one for it. It is loaded when it is
/// first needed. Pictures are read beside the main thread.
class QtPicturePicker : public QObject, public PicturePickerService {
  Q_OBJECT

 public:
  QtPicturePicker();
  /// Waits for a picture that is being read.
  ~QtPicturePicker() override;

  bool isAvailable() const override { return true; }
  void pickPicture(Handlers handlers) override;
  void cancel() override;

  /// The dialogue, with the properties of QtQuick.Dialogs' FileDialog; null while it is not open.
  QObject* dialog() const { return dialog_; }

 private Q_SLOTS:
  void accepted();
  void rejected();

 private:
  void open();
  void closeLater();
  void finish(const Result& result);

  std::unique_ptr<QQmlEngine> engine_;
  /// Lives no longer than the question: it may be a part of the window that asks.
  QObject* dialog_ = nullptr;
  Handlers handlers_;
  /// Gone when the question is taken back: then nobody wants its answer.
  std::shared_ptr<const void> question_;
  QtWorkQueue reader_;
};

}  // namespace frelta
