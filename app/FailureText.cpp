#include "app/FailureText.h"

#include <QCoreApplication>
#include <cerrno>
#include <system_error>

#include "device/Paths.h"
#include "foundation/StringPaths.h"
#include "quick/ShownText.h"

namespace frelta {

namespace {

class FailureTexts {
  Q_DECLARE_TR_FUNCTIONS(FailureTexts)
};

QString reasonOf(int error) {
  switch (error) {
    case 0:
      return {};
    case ENOSPC:
    case EDQUOT:
      return FailureTexts::tr("the disk is full");
    case EROFS:
      return FailureTexts::tr("the disk can only be read");
    case EACCES:
    case EPERM:
      return FailureTexts::tr("you may not do that there");
    case EIO:
      return FailureTexts::tr("the disk does not work");
    case EFBIG:
      return FailureTexts::tr("the file is too large");
    case ENOENT:
      return FailureTexts::tr("it is missing");
    case ENOTDIR:
    case EISDIR:
    case EEXIST:
    case EINVAL:
      return FailureTexts::tr("something else is in its place");
    default:
      return QString::fromLocal8Bit(std::system_category().message(error).c_str());
  }
}

/// What the user calls the file.
QString nameOf(const std::string& path) {
  if (path == kSettingsPath) return FailureTexts::tr("The settings file");
  return FailureTexts::tr("“%1”").arg(
      shownName(stringByDeletingPathExtension(lastPathComponent(path))));
}

QString sentence(const QString& what, int error) {
  const QString reason = reasonOf(error);
  return reason.isEmpty() ? FailureTexts::tr("%1.").arg(what)
                          : FailureTexts::tr("%1: %2.").arg(what, reason);
}

}  // namespace

QString textOfFailure(const Failure& failure) {
  switch (failure.operation) {
    case Failure::Operation::Read:
      return sentence(FailureTexts::tr("%1 cannot be read").arg(nameOf(failure.subject)),
                      failure.error);
    case Failure::Operation::Understand:
      if (failure.subject == kSettingsPath)
        return FailureTexts::tr(
            "The settings file is damaged and cannot be read. It is kept when you change a "
            "setting.");
      return FailureTexts::tr("%1 cannot be read: the file is damaged.")
          .arg(nameOf(failure.subject));
    case Failure::Operation::Write:
    case Failure::Operation::CreateFolder:
      return sentence(FailureTexts::tr("Not saved"), failure.error);
    case Failure::Operation::Remove:
      return sentence(FailureTexts::tr("Not deleted"), failure.error);
    case Failure::Operation::Start:
      return sentence(FailureTexts::tr("%1 cannot be started").arg(nameOf(failure.subject)),
                      failure.error);
    case Failure::Operation::OpenAddress:
      return FailureTexts::tr("Nothing here opens %1.").arg(shownName(failure.subject));
  }
  return {};
}

}  // namespace frelta
