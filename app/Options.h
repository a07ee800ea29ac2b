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
  /// Only a text is asked for, and nothing else counts.
  bool help = false;
  bool version = false;

  /// Reads the arguments, the program's own name first; those that Qt takes are passed over. On a
  /// mistake it returns nothing and puts a line that says what is wrong in error. Without an
  /// application object that line is in English.
  static std::optional<Options> parse(const QStringList& arguments, QString& error);

  /// What "--help" prints. Needs an application object.
  static QString helpText();
  /// What "--version" prints.
  static QString versionText();

  /// $XDG_DATA_HOME/frelta, by the XDG base directory rules.
  static QString defaultRoot();
};

}  // namespace frelta
