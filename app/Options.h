#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "foundation/SystemInformation.h"

namespace frelta {

/// What the command line asks for.
struct Options {
  /// Host folder that stands for the device's "/"; empty for the default.
  QString root;
  /// Fixed appearance; nothing follows the desktop.
  std::optional<UserInterfaceStyle> appearance;
  /// Row of the first page to open at once; empty for none.
  QString page;
  /// Host folder for the tour's pictures; empty for no tour.
  QString tourFolder;
  /// Host path of a style folder or zip file to install instead of opening a window; empty for
  /// none.
  QString styleToInstall;
  /// Whether it takes the place of a style of its name.
  bool replace = false;

  /// Reads the arguments, the program's own name first. On a mistake it returns nothing and puts a
  /// line that says what is wrong in error. "--help" and "--version" print their text to the
  /// standard output and end the process.
  static std::optional<Options> parse(const QStringList& arguments, QString& error);

  /// Whether the arguments ask for something that needs no display.
  static bool areForTerminal(const QStringList& arguments);

  /// $XDG_DATA_HOME/frelta, by the XDG base directory rules.
  static QString defaultRoot();
};

}  // namespace frelta
