#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace frelta {

/// 2 × 2, all cyan, in four inks.
inline constexpr const char* kCyanJPEG =
    "/9j/7gAOQWRvYmUAZAAAAAAC/9sAQwADAgICAgIDAgICAwMDAwQGBAQEBAQIBgYFBgkICgoJCAkJCgwPDAoLDgsJ"
    "CQ0RDQ4PEBAREAoMEhMSEBMPEBAQ/9sAQwEDAwMEAwQIBAQIEAsJCxAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQ"
    "EBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQ/8AAFAgAAgACBAERAAIRAQMRAQQRAP/EABUAAQEAAAAAAAAAAAAAAAAA"
    "AAgJ/8QAFBABAAAAAAAAAAAAAAAAAAAAAP/EABUBAQEAAAAAAAAAAAAAAAAAAAcJ/8QAFBEBAAAAAAAAAAAAAAAA"
    "AAAAAP/aAA4EAQACEQMRBAAAPwA6AxVNVN//2Q==";
/// 2 × 2, two frames: red, then blue.
inline constexpr const char* kRedThenBlueGIF =
    "R0lGODlhAgACAPAAAP8AAAAAACH5BAAKAAAAIf8LTkVUU0NBUEUyLjADAQAAACwAAAAAAgACAAACAoRRACH5BAAK"
    "AAAALAAAAAACAAIAgAAA/wAAAAIChFEAOw==";

inline std::string bigEndian(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

inline std::uint32_t crcOf(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (unsigned char byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? (crc >> 1) ^ 0xEDB88320 : crc >> 1;
  }
  return ~crc;
}

inline std::string chunk(const std::string& type, const std::string& contents) {
  return bigEndian(static_cast<std::uint32_t>(contents.size())) + type + contents +
         bigEndian(crcOf(type + contents));
}

/// The PNG with another size in its header; its pixels stay those of the small picture.
inline std::string withSize(std::string png, std::uint32_t width, std::uint32_t height) {
  constexpr std::size_t kHeader = 8;
  constexpr std::size_t kHeaderChunk = 25;
  const std::string rest = png.substr(kHeader + kHeaderChunk);
  const std::string depthAndSo = png.substr(kHeader + 16, 5);
  return png.substr(0, kHeader) + chunk("IHDR", bigEndian(width) + bigEndian(height) + depthAndSo) +
         rest;
}

/// The JPEG with a tag that says how it is to be turned, 1 to 8.
inline std::string withOrientation(std::string jpeg, char orientation) {
  constexpr std::size_t kHeader = 2;
  const std::string directory = std::string("MM\0*\0\0\0\x08\0\x01", 10) +
                                std::string("\x01\x12\0\x03\0\0\0\x01\0", 9) + orientation +
                                std::string(6, '\0');
  const std::string contents = std::string("Exif\0\0", 6) + directory;
  return jpeg.insert(
      kHeader, std::string("\xFF\xE1\0", 3) + static_cast<char>(contents.size() + 2) + contents);
}

}  // namespace frelta
