#pragma once

#include <QGuiApplication>
#include <QString>
#include <memory>

namespace frelta {

/// What is said when there is no window system, in the user's language.
struct WindowSystemTexts {
  /// Where no display is named.
  QString noDisplay;
  /// Where one is named and cannot be used; "%1" stands for what Qt says of it.
  QString failed;

  /// As the translation installed now has them: it goes with its application object.
  static WindowSystemTexts current();
};

/// Makes the application object of a process with windows. Where there is no window system Qt would
/// abort: then the process ends with status 1, with one line on the standard error. The arguments
/// outlive the object.
std::unique_ptr<QGuiApplication> connectToWindowSystem(int& argc, char** argv,
                                                       const WindowSystemTexts& texts);

}  // namespace frelta
