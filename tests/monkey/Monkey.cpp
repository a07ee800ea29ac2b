#include "tests/monkey/Monkey.h"

#include <cstdio>

#include "tests/monkey/MemoryInUse.h"
#include "tests/monkey/QtWarnings.h"

namespace frelta {

namespace {

constexpr std::size_t kStepsToTell = 25;
// Longer than anything moves.
constexpr double kRest = 3;

}  // namespace

Monkey::Monkey(std::uint64_t seed, bool tracing)
    : tracing_(tracing),
      dice_(seed),
      hands_(house_, dice_),
      world_(house_, dice_),
      settings_(house_),
      inspection_(house_) {
  const auto add = [this](int weight, auto& whose, auto deed) {
    deeds_.push_back({weight, [&whose, deed] { return (whose.*deed)(); }});
    weights_ += weight;
  };
  add(300, hands_, &MonkeyHands::tapSomethingThatTakesTaps);
  add(60, hands_, &MonkeyHands::tapAnywhere);
  add(20, hands_, &MonkeyHands::tapTwice);
  add(20, hands_, &MonkeyHands::tapWithTheSecondButton);
  add(40, hands_, &MonkeyHands::touch);
  add(30, hands_, &MonkeyHands::drag);
  add(40, hands_, &MonkeyHands::swipeARow);
  add(60, hands_, &MonkeyHands::scroll);
  add(30, hands_, &MonkeyHands::pressLong);
  add(120, hands_, &MonkeyHands::pressAKey);
  add(40, hands_, &MonkeyHands::type);
  add(50, hands_, &MonkeyHands::goBack);
  add(30, hands_, &MonkeyHands::openAPage);
  add(25, world_, &MonkeyWorld::changeAppearance);
  add(15, world_, &MonkeyWorld::changeSize);
  add(40, world_, &MonkeyWorld::letTimePass);
  add(10, world_, &MonkeyWorld::dropFiles);
  add(25, world_, &MonkeyWorld::changeAStyle);
  add(25, world_, &MonkeyWorld::changeAPreset);
  add(15, world_, &MonkeyWorld::changeSettings);
  add(10, world_, &MonkeyWorld::broadcast);
  add(4, world_, &MonkeyWorld::changeTheBus);
  add(30, world_, &MonkeyWorld::answerThePicker);
  add(6, world_, &MonkeyWorld::failForAWhile);
  add(2, world_, &MonkeyWorld::restart);
  house_.start();
  settings_.plant();
  takeQtWarnings();
}

const Monkey::Deed& Monkey::chosen() {
  int number = dice_.below(weights_);
  for (const Deed& deed : deeds_) {
    if (number < deed.weight) return deed;
    number -= deed.weight;
  }
  return deeds_.back();
}

void Monkey::complain(const std::string& fault) {
  std::string told = "after step " + std::to_string(steps_) + ": " + fault;
  for (const std::string& step : lately_) told += "\n    " + step;
  faults_.push_back(std::move(told));
}

void Monkey::lookAround() {
  if (const std::string fault = settings_.look(world_.canCopy()); !fault.empty()) complain(fault);
  for (const std::string& warning : takeQtWarnings()) complain(warning);
}

std::string Monkey::step() {
  ++steps_;
  const std::string done = std::to_string(steps_) + ": " + chosen().run();
  if (tracing_) std::fprintf(stderr, "%s\n", done.c_str());
  lately_.push_back(done);
  if (lately_.size() > kStepsToTell) lately_.pop_front();
  house_.settle();
  ++pages_[house_.navigation().topViewController()->title()];
  lookAround();
  world_.stepDone();
  return done;
}

void Monkey::inspect() {
  world_.comeToRest();
  house_.pass(kRest);
  if (!hands_.goHome()) complain("Escape does not lead to the first page");
  // Memory is compared at one size.
  house_.quick().resize(OpenWindow::kSize);
  house_.pass(kRest);
  for (const std::string& fault : inspection_.faults()) complain(fault);
  lookAround();
  memory_.push_back(memoryInUse());
  if (tracing_) std::fprintf(stderr, "memory %.0f\n", memory_.back());
}

}  // namespace frelta
