#include "app/Options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QStandardPaths>

namespace frelta {

namespace {

class OptionTexts {
  Q_DECLARE_TR_FUNCTIONS(OptionTexts)
};

/// Without what the window system's application object takes for itself, each with one dash or two.
QStringList withoutQtOptions(const QStringList& arguments) {
  static const QStringList kWithValue{
      QStringLiteral("display"),         QStringLiteral("geometry"),
      QStringLiteral("platform"),        QStringLiteral("platformpluginpath"),
      QStringLiteral("platformtheme"),   QStringLiteral("plugin"),
      QStringLiteral("qwindowgeometry"), QStringLiteral("qwindowicon"),
      QStringLiteral("qwindowtitle"),    QStringLiteral("session")};
  QStringList rest;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const qsizetype dashes = argument->startsWith(QLatin1String("--")) ? 2
                             : argument->startsWith(u'-')              ? 1
                                                                       : 0;
    const QString name = dashes > 0 ? argument->mid(dashes) : QString();
    if (kWithValue.contains(name)) {
      if (argument + 1 != arguments.end()) ++argument;
    } else if (name != QLatin1String("reverse")) {
      rest.append(*argument);
    }
  }
  return rest;
}

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

/// Made anew for each use: its texts are those of the translation installed then.
struct Parser : QCommandLineParser {
  Parser() {
    setApplicationDescription(
        OptionTexts::tr("Settings of the Frelta keyboard themes.\n"
                        "Shows the pages and writes the settings under a device root."));
    addOptions({root, appearance, page, tour, install, replace, help, version});
  }

  const QCommandLineOption root{
      QStringLiteral("root"),
      OptionTexts::tr("Folder that stands for the device's \"/\" (default: %1).")
          .arg(Options::defaultRoot()),
      QStringLiteral("DIR")};
  const QCommandLineOption appearance{
      QStringLiteral("appearance"),
      OptionTexts::tr("light, dark or system (default: system, which follows the desktop)."),
      QStringLiteral("NAME"), QStringLiteral("system")};
  const QCommandLineOption page{QStringLiteral("page"),
                                OptionTexts::tr("Open the page behind this row of the first page."),
                                QStringLiteral("NAME")};
  const QCommandLineOption tour{
      QStringLiteral("tour"),
      OptionTexts::tr(
          "Walk through the pages by taps, save a picture of each step in DIR, and exit: "
          "with 0 when every step went well. Uses a root of its own unless --root is "
          "given."),
      QStringLiteral("DIR")};
  const QCommandLineOption install{
      QStringLiteral("install-style"),
      OptionTexts::tr("Install the style in FILE, a folder or a zip file, and exit: with 0 when it "
                      "is installed."),
      QStringLiteral("FILE")};
  const QCommandLineOption replace{
      QStringLiteral("replace"),
      OptionTexts::tr("With --install-style: in the place of a style of the same name.")};
  const QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                                OptionTexts::tr("Print this help and exit.")};
  const QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                                   OptionTexts::tr("Print the version and exit.")};
};

}  // namespace

std::optional<Options> Options::parse(const QStringList& arguments, QString& error) {
  Parser parser;
  if (!parser.parse(withoutQtOptions(arguments))) {
    error = parser.errorText();
    return std::nullopt;
  }
  Options options;
  options.help = parser.isSet(parser.help);
  options.version = parser.isSet(parser.version);
  if (options.help || options.version) return options;
  if (!parser.positionalArguments().isEmpty()) {
    error =
        OptionTexts::tr("Unexpected argument \"%1\".").arg(parser.positionalArguments().first());
    return std::nullopt;
  }
  options.root = parser.value(parser.root);
  options.page = parser.value(parser.page);
  options.tourFolder = parser.value(parser.tour);
  if (parser.isSet(parser.tour) && options.tourFolder.isEmpty()) {
    error = OptionTexts::tr("--tour needs a folder.");
    return std::nullopt;
  }
  if (parser.isSet(parser.root) && options.root.isEmpty()) {
    error = OptionTexts::tr("--root needs a folder.");
    return std::nullopt;
  }
  if (parser.isSet(parser.page) && options.page.isEmpty()) {
    error = OptionTexts::tr("--page needs the name of a row.");
    return std::nullopt;
  }
  options.styleToInstall = parser.value(parser.install);
  options.replace = parser.isSet(parser.replace);
  if (parser.isSet(parser.install) && options.styleToInstall.isEmpty()) {
    error = OptionTexts::tr("--install-style needs a folder or a zip file.");
    return std::nullopt;
  }
  if (options.replace && !parser.isSet(parser.install)) {
    error = OptionTexts::tr("--replace goes with --install-style.");
    return std::nullopt;
  }
  if (!parseAppearance(parser.value(parser.appearance), options.appearance)) {
    error = OptionTexts::tr("--appearance takes light, dark or system, not \"%1\".")
                .arg(parser.value(parser.appearance));
    return std::nullopt;
  }
  return options;
}

QString Options::helpText() {
  return Parser().helpText();
}

QString Options::versionText() {
  return QStringLiteral("frelta-settings " FRELTA_VERSION);
}

QString Options::defaultRoot() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/frelta");
}

}  // namespace frelta
