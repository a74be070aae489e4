// One input is the columns of a line, each ended by a NUL byte. The first is the separator, the
// second the level. The rest of the input is the message.
#include "logging/line_format.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/require.h"

namespace {

// Removes the text up to the next NUL byte, or all text without one, and returns it.
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

// Splits `line` at each separator.
std::vector<std::string> Split(std::string line, const std::string& separator) {
  std::vector<std::string> columns;
  for (std::size_t end; (end = line.find(separator)) != std::string::npos;) {
    columns.push_back(line.substr(0, end));
    line.erase(0, end + separator.size());
  }
  columns.push_back(line);
  return columns;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const char* data = reinterpret_cast<const char*>(bytes);
  const std::string separator = Take(data, size);
  const auto level = static_cast<tarn::Log_Level>(std::atoi(Take(data, size).c_str()) % 1000);
  std::vector<std::string> columns;
  for (int i = 0; i < 8; ++i)
    columns.push_back(Take(data, size));
  const std::string message(data, size);
  columns.push_back(message);

  std::string line = "a previous line";
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

  columns.insert(columns.begin() + 1, "[" + std::string(tarn::LevelName(level)) + "]");
  std::size_t length = separator.size() * (columns.size() - 1);
  for (const std::string& column : columns)
    length += column.size();
  Require(line.size() == length);

  // The line splits into its columns unless a column contains a character of the separator.
  bool splits = !separator.empty();
  for (const std::string& column : columns)
    splits = splits && column.find_first_of(separator) == std::string::npos;
  if (splits) Require(Split(line, separator) == columns);
  return 0;
}
