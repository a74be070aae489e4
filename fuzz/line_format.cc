// One input is the columns of a line, each ended by a zero byte, the first of which is the
// separator and the second the level. What is left is the message.
#include "logging/line_format.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/require.h"

namespace {

// Up to the next zero byte, or all there is.
std::string Take(const char*& data, std::size_t& size) {
  const void* const end = size == 0 ? nullptr : std::memchr(data, 0, size);
  const std::size_t length =
      end ? static_cast<std::size_t>(static_cast<const char*>(end) - data) : size;
  std::string text(data, length);
  const std::size_t taken = end ? length + 1 : length;
  data += taken;
  size -= taken;
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const char* data = reinterpret_cast<const char*>(bytes);
  const std::string separator = Take(data, size);
  const auto level = static_cast<tarn::Log_Level>(std::atoi(Take(data, size).c_str()) % 1000);
  std::vector<std::string> columns;
  for (int i = 0; i < 8; ++i)
    columns.push_back(Take(data, size));
  const std::string_view message(data, size);

  std::string expected = columns[0] + separator + "[" + tarn::LevelName(level) + "]";
  for (std::size_t i = 1; i < columns.size(); ++i)
    expected += separator + columns[i];
  (expected += separator) += message;

  std::string line = "from a previous use";
  const tarn::LogRecord record{0,
                               level,
                               columns[1].c_str(),
                               columns[2].c_str(),
                               columns[3].c_str(),
                               columns[4].c_str(),
                               columns[5].c_str(),
                               columns[6].c_str(),
                               message};
  tarn::FormatLine(record, columns[0], columns[7], separator, line);
  Require(line == expected);
  return 0;
}
