#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>

namespace frelta {

/// Hears what any process broadcasts over the session bus, over a connection of its own. Keeps
/// nothing; a name longer than any that is in use is passed over.
class BroadcastListener : public QObject {
  Q_OBJECT

 public:
  BroadcastListener();
  ~BroadcastListener() override;

  /// False when there is no session bus: then nothing is ever heard.
  bool isListening() const { return listening_; }

  /// Characters of a name.
  static constexpr qsizetype kLongestName = 255;

 Q_SIGNALS:
  /// The sender as the bus calls it.
  void heard(const QString& name, const QString& sender);

 private Q_SLOTS:
  void posted(const QString& name, const QDBusMessage& message);

 private:
  const QString connection_;
  bool listening_ = false;
};

}  // namespace frelta
