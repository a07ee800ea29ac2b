#include "foundation/Base64.h"

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

/// Up to three bytes become one digit more.
template <std::size_t kBytes>
void encodeGroup(const char* bytes, char* digits) {
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < 3; ++i)
    group = group << 8 | (i < kBytes ? static_cast<unsigned char>(bytes[i]) : 0u);
  for (std::size_t i = 0; i <= kBytes; ++i) digits[i] = kAlphabet[group >> (18 - 6 * i) & 0x3F];
}

/// Up to four digits become one byte less; bits left over go. False when one is no digit.
template <std::size_t kDigits>
bool decodeGroup(const char* digits, char* bytes) {
  std::uint32_t group = 0;
  std::uint32_t seen = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const std::uint32_t value =
        i < kDigits ? kSixBitValues[static_cast<unsigned char>(digits[i])] : 0u;
    seen |= value;
    group = group << 6 | value;
  }
  if (seen > 0x3F) return false;
  for (std::size_t i = 0; i + 1 < kDigits; ++i)
    bytes[i] = static_cast<char>(group >> (16 - 8 * i) & 0xFF);
  return true;
}

}  // namespace

std::string base64EncodedString(std::string_view bytes) {
  std::string text((bytes.size() + 2) / 3 * 4, '=');
  const char* in = bytes.data();
  char* out = text.data();
  for (std::size_t i = bytes.size() / 3; i > 0; --i, in += 3, out += 4) encodeGroup<3>(in, out);
  if (bytes.size() % 3 == 1) encodeGroup<1>(in, out);
  if (bytes.size() % 3 == 2) encodeGroup<2>(in, out);
  return text;
}

std::optional<std::string> dataFromBase64String(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::size_t padding = 0;
  while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;

  const std::size_t digits = text.size() - padding;
  std::string bytes(text.size() / 4 * 3 - padding, '\0');
  const char* in = text.data();
  char* out = bytes.data();
  for (std::size_t i = digits / 4; i > 0; --i, in += 4, out += 3) {
    if (!decodeGroup<4>(in, out)) return std::nullopt;
  }
  const bool tail = digits % 4 == 0   ? true
                    : digits % 4 == 3 ? decodeGroup<3>(in, out)
                                      : decodeGroup<2>(in, out);
  if (!tail) return std::nullopt;
  return bytes;
}

}  // namespace frelta
