#include "examples/suite_host/screenshot.h"

#include <png.h>
#include <cstddef>

namespace {

constexpr int kBytesPerPixel = 4;

// Converts BGRA pixels to RGB pixels.
std::vector<std::uint8_t> WithoutAlpha(const std::vector<std::uint8_t>& pixels) {
  std::vector<std::uint8_t> result;
  result.reserve(pixels.size() / kBytesPerPixel * 3);
  for (std::size_t i = 0; i < pixels.size(); i += kBytesPerPixel) {
    result.insert(result.end(), {pixels[i + 2], pixels[i + 1], pixels[i]});
  }
  return result;
}

}  // namespace

void Screenshot::Take(const void* pixels, int width, int height) {
  const auto* begin = static_cast<const std::uint8_t*>(pixels);
  pixels_.assign(begin, begin + static_cast<std::ptrdiff_t>(width) * height * kBytesPerPixel);
  width_ = width;
  height_ = height;
}

bool Screenshot::Write(const std::string& path, std::string& error) const {
  if (pixels_.empty()) {
    error = "nothing was painted";
    return false;
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width_);
  image.height = static_cast<png_uint_32>(height_);
  image.format = PNG_FORMAT_RGB;
  if (png_image_write_to_file(&image, path.c_str(), 0, WithoutAlpha(pixels_).data(), 0, nullptr)) {
    return true;
  }
  error = image.message;
  return false;
}
