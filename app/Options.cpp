#include "app/Options.h"

#include <QCommandLineParser>
#include <QStandardPaths>
#include <cstdlib>

namespace frelta {

namespace {

bool parseAppearance(const QString& text, std::optional<UserInterfaceStyle>& appearance) {
  if (text == QLatin1String("light")) {
    appearance = UserInterfaceStyle::Light;
  } else if (text == QLatin1String("dark")) {
    appearance = UserInterfaceStyle::Dark;
  } else if (text != QLatin1String("system")) {
    return false;
  }
  return true;
}

}  // namespace

std::optional<Options> Options::parse(const QStringList& arguments, QString& error) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Settings of the Frelta keyboard themes.\n"
                     "Shows the pages and writes the settings under a device root."));
  const QCommandLineOption root(
      QStringLiteral("root"),
      QStringLiteral("Folder that stands for the device's \"/\" (default: %1).").arg(defaultRoot()),
      QStringLiteral("DIR"));
  const QCommandLineOption appearance(
      QStringLiteral("appearance"),
      QStringLiteral("light, dark or system (default: system, which follows the desktop)."),
      QStringLiteral("NAME"), QStringLiteral("system"));
  const QCommandLineOption page(QStringLiteral("page"),
                                QStringLiteral("Open the page behind this row of the first page."),
                                QStringLiteral("NAME"));
  const QCommandLineOption tour(
      QStringLiteral("tour"),
      QStringLiteral(
          "Walk through the pages by taps, save a picture of each step in DIR, and exit: "
          "with 0 when every step went well. Uses a root of its own unless --root is "
          "given."),
      QStringLiteral("DIR"));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Print this help and exit."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Print the version and exit."));
  parser.addOptions({root, appearance, page, tour, help, version});

  if (!parser.parse(arguments)) {
    error = parser.errorText();
    return std::nullopt;
  }
  if (parser.isSet(help)) {
    std::fputs(qPrintable(parser.helpText()), stdout);
    std::exit(0);
  }
  if (parser.isSet(version)) {
    std::puts("frelta-settings " FRELTA_VERSION);
    std::exit(0);
  }
  if (!parser.positionalArguments().isEmpty()) {
    error = QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().first());
    return std::nullopt;
  }
  Options options;
  options.root = parser.value(root);
  options.page = parser.value(page);
  options.tourFolder = parser.value(tour);
  if (parser.isSet(tour) && options.tourFolder.isEmpty()) {
    error = QStringLiteral("--tour needs a folder.");
    return std::nullopt;
  }
  if (parser.isSet(root) && options.root.isEmpty()) {
    error = QStringLiteral("--root needs a folder.");
    return std::nullopt;
  }
  if (!parseAppearance(parser.value(appearance), options.appearance)) {
    error = QStringLiteral("--appearance takes light, dark or system, not \"%1\".")
                .arg(parser.value(appearance));
    return std::nullopt;
  }
  return options;
}

QString Options::defaultRoot() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/frelta");
}

}  // namespace frelta
