#include "app/StyleRefusalText.h"

#include <QCoreApplication>

namespace frelta {

namespace {

class RefusalTexts {
  Q_DECLARE_TR_FUNCTIONS(RefusalTexts)

 public:
  /// With "%1" where the detail goes, if anywhere.
  static QString reason(StyleRefusalReason reason, bool detailed) {
    switch (reason) {
      using enum StyleRefusalReason;
      case Missing:
        return tr("It cannot be read: %1.");
      case NotAFolderOrZip:
        return tr("It is neither a folder nor a zip file.");
      case Damaged:
        return detailed ? tr("“%1” in it is damaged, or changed while it was read.")
                        : tr("The file is damaged or incomplete.");
      case Encrypted:
        return tr("“%1” in it is encrypted.");
      case UnknownCompression:
        return tr("“%1” in it is compressed in an unusual way.");
      case NotAStyle:
        return tr(
            "There is no style in it: a style holds a folder “Images” or “HTML”, or has a "
            "name that ends in “.bundle”.");
      case SeveralStyles:
        return tr("There is more than one style in it: %1. Install them one by one.");
      case TooManyEntries:
        return tr("It holds too many files.");
      case TooLarge:
        return tr("Its files are too large.");
      case TooDeep:
        return tr("Its folders are nested too deep: “%1”.");
      case NameTooLong:
        return tr("A name in it is too long: “%1”.");
      case NameNotText:
        return tr("A file in it has a name with characters that are not allowed.");
      case LeavesFolder:
        return tr("A file in it would end up outside of the style: “%1”.");
      case Link:
        return tr("“%1” in it is a link, and styles may not hold links.");
      case Device:
        return tr("“%1” in it is not a file but a device or a pipe.");
      case Duplicate:
        return detailed ? tr("Two files in it have one name: “%1”.")
                        : tr("Two files in it have one name.");
      case BadStyleName:
        return tr("A style cannot be called “%1”.");
      case AlreadyInstalled:
        return tr("A style called “%1” is installed already.");
      case CannotWrite:
        return tr("The style cannot be written: %1.");
      case Cancelled:
        return tr("It was cancelled.");
    }
    return {};
  }
  static QString whole(const QString& fileName) {
    return tr("“%1” was not installed.").arg(fileName);
  }
};

}  // namespace

QString textOfRefusal(const QString& fileName, const StyleRefusal& refusal) {
  const QString detail = QString::fromStdString(refusal.detail);
  QString reason = RefusalTexts::reason(refusal.reason, !detail.isEmpty());
  if (reason.contains(QLatin1String("%1"))) reason = reason.arg(detail);
  return RefusalTexts::whole(fileName) + QLatin1Char(' ') + reason;
}

}  // namespace frelta
