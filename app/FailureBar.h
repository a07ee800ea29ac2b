#pragma once

#include <QObject>
#include <QSet>

#include "app/FailureReports.h"
#include "app/WindowNote.h"
#include "uikit/UINavigationController.h"

namespace frelta {

/// Says at the window's foot what could not be done and why, and has the page show what is stored
/// where a change did not come about. What cannot be read is said once; what cannot be written,
/// each time that it is tried.
class FailureBar : public QObject {
  Q_OBJECT

 public:
  /// None is owned; all outlive this.
  FailureBar(const FailureReports& reports, WindowNotes& notes, UINavigationController& navigation);

 private:
  void tell(const Failure& failure);

  UINavigationController& navigation_;
  WindowNote note_;
  QSet<QString> saidOfReading_;
};

}  // namespace frelta
