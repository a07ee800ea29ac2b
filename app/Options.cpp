#include "app/Options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QStandardPaths>
#include <cstdlib>

namespace frelta {

namespace {

class OptionTexts {
  Q_DECLARE_TR_FUNCTIONS(OptionTexts)
};

const QString kInstallStyle = QStringLiteral("install-style");

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
      OptionTexts::tr("Settings of the Frelta keyboard themes.\n"
                      "Shows the pages and writes the settings under a device root."));
  const QCommandLineOption root(
      QStringLiteral("root"),
      OptionTexts::tr("Folder that stands for the device's \"/\" (default: %1).")
          .arg(defaultRoot()),
      QStringLiteral("DIR"));
  const QCommandLineOption appearance(
      QStringLiteral("appearance"),
      OptionTexts::tr("light, dark or system (default: system, which follows the desktop)."),
      QStringLiteral("NAME"), QStringLiteral("system"));
  const QCommandLineOption page(QStringLiteral("page"),
                                OptionTexts::tr("Open the page behind this row of the first page."),
                                QStringLiteral("NAME"));
  const QCommandLineOption tour(
      QStringLiteral("tour"),
      OptionTexts::tr(
          "Walk through the pages by taps, save a picture of each step in DIR, and exit: "
          "with 0 when every step went well. Uses a root of its own unless --root is "
          "given."),
      QStringLiteral("DIR"));
  const QCommandLineOption install(
      kInstallStyle,
      OptionTexts::tr("Install the style in FILE, a folder or a zip file, and exit: with 0 when it "
                      "is installed."),
      QStringLiteral("FILE"));
  const QCommandLineOption replace(
      QStringLiteral("replace"),
      OptionTexts::tr("With --install-style: in the place of a style of the same name."));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                OptionTexts::tr("Print this help and exit."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   OptionTexts::tr("Print the version and exit."));
  parser.addOptions({root, appearance, page, tour, install, replace, help, version});

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
    error =
        OptionTexts::tr("Unexpected argument \"%1\".").arg(parser.positionalArguments().first());
    return std::nullopt;
  }
  Options options;
  options.root = parser.value(root);
  options.page = parser.value(page);
  options.tourFolder = parser.value(tour);
  if (parser.isSet(tour) && options.tourFolder.isEmpty()) {
    error = OptionTexts::tr("--tour needs a folder.");
    return std::nullopt;
  }
  if (parser.isSet(root) && options.root.isEmpty()) {
    error = OptionTexts::tr("--root needs a folder.");
    return std::nullopt;
  }
  options.styleToInstall = parser.value(install);
  options.replace = parser.isSet(replace);
  if (parser.isSet(install) && options.styleToInstall.isEmpty()) {
    error = OptionTexts::tr("--install-style needs a folder or a zip file.");
    return std::nullopt;
  }
  if (options.replace && !parser.isSet(install)) {
    error = OptionTexts::tr("--replace goes with --install-style.");
    return std::nullopt;
  }
  if (!parseAppearance(parser.value(appearance), options.appearance)) {
    error = OptionTexts::tr("--appearance takes light, dark or system, not \"%1\".")
                .arg(parser.value(appearance));
    return std::nullopt;
  }
  return options;
}

bool Options::areForTerminal(const QStringList& arguments) {
  for (const QString& argument : arguments) {
    if (argument == QLatin1String("-h") || argument == QLatin1String("--help") ||
        argument == QLatin1String("-v") || argument == QLatin1String("--version") ||
        argument.startsWith(QLatin1String("--install-style")))
      return true;
  }
  return false;
}

QString Options::defaultRoot() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/frelta");
}

}  // namespace frelta
