#include "foundation/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace frelta {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kOutside = 0xFF;

constexpr std::array<std::uint8_t, 256> makeSixBitValues() {
  std::array<std::uint8_t, 256> values{};
  values.fill(kOutside);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i)
    values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  return values;
}
constexpr std::array<std::uint8_t, 256> kSixBitValues = makeSixBitValues();

}  // namespace

std::string base64EncodedString(std::string_view bytes) {
  std::string text((bytes.size() + 2) / 3 * 4, '=');
  auto out = text.begin();
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j)
      group = group << 8 | (j < count ? static_cast<unsigned char>(bytes[i + j]) : 0u);
    for (std::size_t j = 0; j <= count; ++j) *out++ = kAlphabet[group >> (18 - 6 * j) & 0x3F];
  }
  return text;
}

std::optional<std::string> dataFromBase64String(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::size_t padding = 0;
  while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;

  const std::size_t digits = text.size() - padding;
  std::string bytes(text.size() / 4 * 3 - padding, '\0');
  auto out = bytes.begin();
  for (std::size_t i = 0; i < digits; i += 4) {
    const std::size_t count = std::min<std::size_t>(4, digits - i);
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 4; ++j) {
      const std::uint8_t value =
          j < count ? kSixBitValues[static_cast<unsigned char>(text[i + j])] : 0;
      if (value == kOutside) return std::nullopt;
      group = group << 6 | value;
    }
    const std::uint32_t unused = count == 4 ? 0 : count == 3 ? 0xFF : 0xFFFF;
    if (group & unused) return std::nullopt;
    for (std::size_t j = 0; j + 1 < count; ++j)
      *out++ = static_cast<char>(group >> (16 - 8 * j) & 0xFF);
  }
  return bytes;
}

}  // namespace frelta
