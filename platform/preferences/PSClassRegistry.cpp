#include "preferences/PSClassRegistry.h"

#include <utility>

namespace frelta {

namespace {

template <typename Value>
const Value* find(const std::map<std::string, Value, std::less<>>& values, std::string_view name) {
  const auto found = values.find(name);
  return found == values.end() ? nullptr : &found->second;
}

}  // namespace

void PSClassRegistry::registerController(std::string name, ControllerFactory factory) {
  controllers_.insert_or_assign(std::move(name), std::move(factory));
}

void PSClassRegistry::registerCell(std::string name, CellFactory factory) {
  cells_.insert_or_assign(std::move(name), std::move(factory));
}

void PSClassRegistry::registerAction(std::string name, Action action) {
  actions_.insert_or_assign(std::move(name), std::move(action));
}

const PSClassRegistry::ControllerFactory* PSClassRegistry::controller(std::string_view name) const {
  return find(controllers_, name);
}

const PSClassRegistry::CellFactory* PSClassRegistry::cell(std::string_view name) const {
  return find(cells_, name);
}

const PSClassRegistry::Action* PSClassRegistry::action(std::string_view name) const {
  return find(actions_, name);
}

}  // namespace frelta
