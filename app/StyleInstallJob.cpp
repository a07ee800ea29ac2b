#include "app/StyleInstallJob.h"

#include <QMetaObject>
#include <exception>

namespace frelta {

StyleInstallJob::StyleInstallJob(StyleInstallation installation, Install install)
    : installation_(std::move(installation)) {
  installation_.progress = [this](double part) {
    // No more often than anybody can see.
    const int percent = static_cast<int>(part * 100);
    if (told_.exchange(percent) != percent)
      QMetaObject::invokeMethod(this, [this, part] { Q_EMIT progressed(part); });
    return !cancelled_;
  };
  thread_ = std::thread([this, install = std::move(install)] {
    const Result result = installed(install);
    QMetaObject::invokeMethod(this, [this, result] { Q_EMIT finished(result); });
  });
}

StyleInstallJob::Result StyleInstallJob::installed(const Install& install) const {
  // An exception that left the thread would end the application.
  try {
    return install(installation_);
  } catch (const std::exception& exception) {
    return StyleRefusal{StyleRefusalReason::Missing, exception.what()};
  }
}

StyleInstallJob::~StyleInstallJob() {
  cancel();
  thread_.join();
}

}  // namespace frelta
