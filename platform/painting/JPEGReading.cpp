#include "painting/JPEGReading.h"

#include <csetjmp>
#include <cstdio>
// It needs the one before, which it does not include.
#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <new>

namespace frelta {

namespace {

constexpr unsigned kMaximumShrinking = 8;

struct Errors {
  jpeg_error_mgr base;  // first, so that the library's pointer is one to all
  std::jmp_buf leave;
};

[[noreturn]] void leave(j_common_ptr decoder) {
  std::longjmp(reinterpret_cast<Errors*>(decoder->err)->leave, 1);
}

/// The library fills what is missing with grey and warns.
void judge(j_common_ptr decoder, int level) {
  if (level >= 0) return;
  switch (decoder->err->msg_code) {
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_JPEG_EOF:
    case JWRN_MUST_RESYNC:
    case JWRN_NOT_SEQUENTIAL:
      leave(decoder);
    default:
      break;
  }
}

/// Whether the scans brought every bit of every coefficient.
bool hasEveryBit(const jpeg_decompress_struct& decoder) {
  if (!decoder.coef_bits) return true;
  return std::all_of(decoder.coef_bits, decoder.coef_bits + decoder.num_components,
                     [](const int(&bits)[DCTSIZE2]) {
                       return std::all_of(bits, bits + DCTSIZE2,
                                          [](int left) { return left == 0; });
                     });
}

class Decoder {
 public:
  Decoder(std::string_view bytes, int maximumSide) : maximumSide_(maximumSide) {
    decoder_.err = jpeg_std_error(&errors_.base);
    errors_.base.error_exit = leave;
    errors_.base.emit_message = judge;
    bytes_ = bytes;
  }
  ~Decoder() { jpeg_destroy_decompress(&decoder_); }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  std::optional<JPEGPixels> read() {
    if (!start() || !makeRoom() || !readRows()) return std::nullopt;
    return JPEGPixels{static_cast<int>(decoder_.output_width),
                      static_cast<int>(decoder_.output_height),
                      decoder_.out_color_space == JCS_CMYK, std::move(pixels_)};
  }

 private:
  // No object with a destructor may live in these two: an error jumps out of them.

  bool start() {
    if (setjmp(errors_.leave) != 0) return false;
    jpeg_create_decompress(&decoder_);
    jpeg_mem_src(&decoder_, reinterpret_cast<const unsigned char*>(bytes_.data()), bytes_.size());
    jpeg_read_header(&decoder_, TRUE);
    decoder_.out_color_space = decoder_.num_components == 4 ? JCS_CMYK : JCS_EXT_RGBA;
    decoder_.scale_num = 1;
    decoder_.scale_denom = 1;
    const auto side = std::max(decoder_.image_width, decoder_.image_height);
    while (decoder_.scale_denom < kMaximumShrinking &&
           side > decoder_.scale_denom * static_cast<unsigned>(maximumSide_))
      decoder_.scale_denom *= 2;
    return jpeg_start_decompress(&decoder_) == TRUE && decoder_.output_components == 4 &&
           hasEveryBit(decoder_);
  }

  bool readRows() {
    if (setjmp(errors_.leave) != 0) return false;
    while (decoder_.output_scanline < decoder_.output_height) {
      JSAMPROW row = pixels_.get() + rowSize_ * decoder_.output_scanline;
      jpeg_read_scanlines(&decoder_, &row, 1);
    }
    return true;
  }

  bool makeRoom() {
    rowSize_ = std::size_t{4} * decoder_.output_width;
    pixels_.reset(new (std::nothrow) std::uint8_t[rowSize_ * decoder_.output_height]);
    return pixels_ != nullptr;
  }

  jpeg_decompress_struct decoder_{};
  Errors errors_{};
  std::string_view bytes_;
  int maximumSide_;
  std::size_t rowSize_ = 0;
  std::unique_ptr<std::uint8_t[]> pixels_;
};

}  // namespace

std::optional<JPEGPixels> readJPEG(std::string_view gated, int maximumSide) {
  return Decoder(gated, maximumSide).read();
}

}  // namespace frelta
