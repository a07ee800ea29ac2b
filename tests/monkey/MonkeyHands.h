#pragma once

#include <QObject>
#include <QPointF>
#include <QPointingDevice>
#include <string>
#include <vector>

#include "tests/monkey/Dice.h"
#include "tests/monkey/MonkeyHouse.h"

namespace frelta {

/// What a person does to the window. Each returns what it did, in a few words.
class MonkeyHands : public QObject {
 public:
  MonkeyHands(MonkeyHouse& house, Dice& dice);

  std::string tapAnywhere();
  std::string tapSomethingThatTakesTaps();
  std::string tapTwice();
  std::string tapWithTheSecondButton();
  std::string touch();
  std::string drag();
  std::string swipeARow();
  std::string scroll();
  std::string pressLong();
  std::string pressAKey();
  std::string type();
  std::string goBack();
  std::string openAPage();

  /// Goes back to the first page by keys alone. False where that cannot be reached so.
  bool goHome();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPointF anywhere();
  QPointF onSomethingThatTakesTaps();
  void mouse(QEvent::Type type, QPointF point, Qt::MouseButton button, Qt::MouseButtons held);
  void tap(QPointF point, Qt::MouseButton button = Qt::LeftButton);
  void tapPart(const UIView* view, double share = 0.5);
  void dragFromTo(QPointF from, QPointF to, int steps);

  MonkeyHouse& house_;
  Dice& dice_;
  QPointingDevice* const screen_;  // not owned
  std::size_t nextDoor_ = 0;
  // Of the events. A pointing device lives as long as the process, and knows when it was used last.
  inline static quint64 milliseconds_ = 1;
};

}  // namespace frelta
