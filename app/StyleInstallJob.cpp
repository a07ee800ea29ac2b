#include "app/StyleInstallJob.h"

#include <QMetaObject>

namespace frelta {

StyleInstallJob::StyleInstallJob(StyleInstallation installation)
    : installation_(std::move(installation)) {
  installation_.progress = [this](double part) {
    // No more often than anybody can see.
    const int percent = static_cast<int>(part * 100);
    if (told_.exchange(percent) != percent)
      QMetaObject::invokeMethod(this, [this, part] { Q_EMIT progressed(part); });
    return !cancelled_;
  };
  thread_ = std::thread([this] {
    const Result result = installStyle(installation_);
    QMetaObject::invokeMethod(this, [this, result] { Q_EMIT finished(result); });
  });
}

StyleInstallJob::~StyleInstallJob() {
  cancel();
  thread_.join();
}

}  // namespace frelta
