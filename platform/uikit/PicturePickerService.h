#pragma once

#include <functional>
#include <memory>
#include <string>

#include "graphics/UIImage.h"

namespace frelta {

/// Lets the user choose one of his own pictures. Main thread only.
class PicturePickerService {
 public:
  struct Result {
    /// Null when there is none.
    std::shared_ptr<const UIImage> picture;
    /// Why there is none, a sentence for the user; empty when he chose none.
    std::string failure;
  };
  struct Handlers {
    /// A file was chosen and is being read, which may take a while; no call when none was.
    std::function<void()> didChoose;
    /// The last call.
    std::function<void(Result)> didFinish;
  };

  virtual ~PicturePickerService() = default;

  /// Whether there is a place to choose from.
  virtual bool isAvailable() const = 0;
  /// Asks, and returns at once; the handlers are called on later turns of the main queue. One
  /// question at a time: another takes the first back.
  virtual void pickPicture(Handlers handlers) = 0;
  /// Takes the question back; no handler is called after that.
  virtual void cancel() = 0;
};

}  // namespace frelta
