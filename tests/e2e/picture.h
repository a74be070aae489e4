#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Reads a picture from a PNG file. The test fails when the file is not a valid PNG file.
class Picture {
 public:
  using Color = std::vector<std::uint8_t>;  // red, green, blue

  explicit Picture(const std::string& path);

  std::size_t width() const { return width_; }
  std::size_t height() const { return height_; }
  Color ColorAt(std::size_t x, std::size_t y) const;

 private:
  std::size_t width_ = 0;
  std::size_t height_ = 0;
  std::vector<std::uint8_t> pixels_;
};
