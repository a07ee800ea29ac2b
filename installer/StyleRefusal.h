#pragma once

#include <string>

namespace frelta {

/// Why a style was not installed.
enum class StyleRefusalReason {
  Missing,             ///< there is no such file, or it cannot be read
  NotAFolderOrZip,     ///< neither a folder nor a zip file
  Damaged,             ///< ends early, contradicts itself or changed while it was read
  Encrypted,           ///< detail: the entry
  UnknownCompression,  ///< detail: the entry
  NotAStyle,           ///< nothing in it makes it a style
  SeveralStyles,       ///< detail: two of them
  TooManyEntries,
  TooLarge,
  TooDeep,           ///< detail: the entry
  NameTooLong,       ///< detail: the entry
  NameNotText,       ///< a name that is not UTF-8, or holds control characters or a backslash
  LeavesFolder,      ///< an absolute path or one with "..". Detail: the entry
  Link,              ///< detail: the entry
  Device,            ///< a device, pipe or socket. Detail: the entry
  Duplicate,         ///< two entries of one name, or a file where a folder is. Detail: the entry
  BadStyleName,      ///< hidden or too long. Detail: the name
  AlreadyInstalled,  ///< something has the name already. Detail: the name
  CannotWrite,       ///< detail: what the system says
  Cancelled
};

struct StyleRefusal {
  StyleRefusalReason reason;
  std::string detail;
};

}  // namespace frelta
