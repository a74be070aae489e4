#include "tests/e2e/picture.h"

#include <gtest/gtest.h>
#include <png.h>

Picture::Picture(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << image.message;
  image.format = PNG_FORMAT_RGB;
  pixels_.resize(PNG_IMAGE_SIZE(image));
  EXPECT_NE(png_image_finish_read(&image, nullptr, pixels_.data(), 0, nullptr), 0) << image.message;
  width_ = image.width;
  height_ = image.height;
}

Picture::Color Picture::ColorAt(std::size_t x, std::size_t y) const {
  if (x >= width_ || y >= height_) return {};
  const auto at = pixels_.begin() + static_cast<std::ptrdiff_t>((y * width_ + x) * 3);
  return {at, at + 3};
}
