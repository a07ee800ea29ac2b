#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace frelta {

/// Puts zip files together, honest ones and others.
class GeneratedZip {
 public:
  /// What an entry says of itself where that is not what it is.
  struct Claims {
    std::uint32_t mode = 0100644;
    std::uint16_t method = 0;
    std::uint16_t flags = 0;
    std::optional<std::uint64_t> size;
    // What the list has of it besides.
    std::string extra = {};
    std::string comment = {};
  };

  /// What the end says of the list of entries where that is not what it is.
  struct EndClaims {
    std::string comment = {};
    std::uint32_t disk = 0;
    std::uint32_t firstDisk = 0;
    std::optional<std::uint64_t> entriesHere = {};
    std::optional<std::uint64_t> entries = {};
    std::optional<std::uint64_t> listBytes = {};
    std::optional<std::uint64_t> listOffset = {};
    /// Whether the record for large archives is there although it is not needed: then it has the
    /// claims, and the plain record refers to it.
    bool large = false;
    /// What the plain record says beside a large one.
    std::optional<std::uint64_t> plainEntries = {};
    std::optional<std::uint64_t> plainListBytes = {};
    std::optional<std::uint64_t> plainListOffset = {};
  };

  static constexpr std::uint16_t kStored = 0;
  static constexpr std::uint16_t kDeflated = 8;
  static constexpr std::uint16_t kEncrypted = 1;

  /// Bytes are packed when the method says so.
  GeneratedZip& add(std::string_view name, std::string_view bytes) { return add(name, bytes, {}); }
  GeneratedZip& add(std::string_view name, std::string_view bytes, const Claims& claims);
  GeneratedZip& addFolder(std::string_view name);
  /// One more entry of that name for the packed bytes of the last one.
  GeneratedZip& addLastAgain(std::string_view name);

  /// The whole file.
  std::string bytes() const { return bytes({}); }
  std::string bytes(const EndClaims& claims) const;

 private:
  struct Entry {
    std::string fields;  // what the local header and the directory's entry share
    std::uint64_t size = 0;
    std::uint32_t mode = 0;
    std::uint64_t offset = 0;
    std::string extra = {};
    std::string comment = {};
  };

  void addToDirectory(std::string_view name, const Entry& entry);

  std::string files_;
  std::string directory_;
  std::uint64_t count_ = 0;
  Entry last_;
};

}  // namespace frelta
