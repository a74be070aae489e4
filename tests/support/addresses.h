#pragma once

#include <string>
#include <string_view>

// Of files, whatever characters their paths hold.

// The D-Bus address of a socket.
std::string BusAddress(const std::string& path);

// The URL of a file. The characters in `parts` keep their meaning, as "?" before a query.
std::string FileUrl(const std::string& path, std::string_view parts = {});
