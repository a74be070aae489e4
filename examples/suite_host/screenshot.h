#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The last picture of a view, with four bytes per pixel: blue, green, red, alpha.
class Screenshot {
 public:
  // Copies width * height * 4 bytes of `pixels`.
  void Take(const void* pixels, int width, int height);

  // Writes the picture to `path` as an opaque PNG file. Returns false, with the reason in `error`,
  // when no picture was taken or when the file cannot be written.
  bool Write(const std::string& path, std::string& error) const;

 private:
  std::vector<std::uint8_t> pixels_;
  int width_ = 0;
  int height_ = 0;
};
