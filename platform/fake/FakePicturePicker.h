#pragma once

#include <utility>

#include "uikit/PicturePickerService.h"

namespace frelta {

/// Waits for the test to choose.
class FakePicturePicker : public PicturePickerService {
 public:
  bool isAvailable() const override { return available; }
  void pickPicture(Handlers handlers) override {
    ++questions;
    asked = std::move(handlers);
  }
  void cancel() override {
    ++cancellations;
    asked = {};
  }

  bool isAsking() const { return asked.didFinish != nullptr; }
  /// A file was chosen and is being read.
  void choose() { asked.didChoose(); }
  /// The answer; nothing happens when nobody asks.
  void finish(Result result) {
    if (const auto handlers = std::exchange(asked, {}); handlers.didFinish) {
      handlers.didFinish(std::move(result));
    }
  }

  bool available = true;
  int questions = 0;
  int cancellations = 0;

 private:
  Handlers asked;
};

}  // namespace frelta
