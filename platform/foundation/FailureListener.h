#pragma once

#include <string>

namespace frelta {

/// Something that the platform could not do.
struct Failure {
  enum class Operation {
    Read,        // a file that is there
    Understand,  // a file that holds no property list, or no dictionary; there is no error
    Write,       // a file, or a copy of one
    Remove,      // a file or folder
    CreateFolder,
    Start,       // a program
    OpenAddress  // there is no error
  };

  Operation operation;
  /// The device path, the program's path on the host or the address.
  std::string subject;
  /// As errno says it; 0 where the system gave no reason.
  int error = 0;

  bool operator==(const Failure&) const = default;
};

/// Told of what failed. The product goes on in silence; whoever shows it may speak.
class FailureListener {
 public:
  virtual ~FailureListener() = default;
  /// From any thread, in the middle of the operation.
  virtual void failed(const Failure& failure) = 0;
};

}  // namespace frelta
