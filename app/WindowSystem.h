#pragma once

#include <QGuiApplication>
#include <memory>

namespace frelta {

/// Makes the application object of a process with windows. Where there is no window system Qt would
/// abort: then the process ends with status 1, with one line on the standard error. The arguments
/// outlive the object.
std::unique_ptr<QGuiApplication> connectToWindowSystem(int& argc, char** argv);

}  // namespace frelta
