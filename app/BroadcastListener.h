#pragma once

#include <QObject>
#include <QStringList>

namespace frelta {

/// Hears what any process broadcasts over the session bus, over a connection of its own.
class BroadcastListener : public QObject {
  Q_OBJECT

 public:
  BroadcastListener();
  ~BroadcastListener() override;

  /// False when there is no session bus: then nothing is ever heard.
  bool isListening() const { return listening_; }
  /// Names heard since the last call, in order.
  QStringList takeHeard();

 private Q_SLOTS:
  void posted(const QString& name);

 private:
  bool listening_ = false;
  QStringList heard_;
};

}  // namespace frelta
