#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <thread>
#include <variant>

#include "installer/StyleInstallation.h"

namespace frelta {

/// An installation on a thread of its own.
class StyleInstallJob : public QObject {
  Q_OBJECT

 public:
  using Result = std::variant<InstalledStyle, StyleRefusal>;
  using Install = std::function<Result(const StyleInstallation&)>;

  /// Begins at once; a progress function of the installation's own is not called.
  explicit StyleInstallJob(StyleInstallation installation, Install install = installStyle);
  /// Gives it up and waits for it.
  ~StyleInstallJob() override;

  const StyleInstallation& installation() const { return installation_; }
  void cancel() { cancelled_ = true; }

 Q_SIGNALS:
  // In the thread that the job belongs to.
  /// The part that is done, 0 to 1.
  void progressed(double part);
  void finished(const frelta::StyleInstallJob::Result& result);

 private:
  /// What it gives, a refusal for what it throws.
  Result installed(const Install& install) const;

  StyleInstallation installation_;
  std::atomic<bool> cancelled_ = false;
  std::atomic<int> told_ = -1;  // percent
  std::thread thread_;
};

}  // namespace frelta
