#pragma once

#include <string>
#include <string_view>

// Addresses of files. The paths may contain any characters.

// Returns the D-Bus address of a socket.
std::string BusAddress(const std::string& path);

// Returns the URL of a file. `parts` lists characters of `path` that stay unescaped because they
// separate parts of the URL, for example "?" before a query.
std::string FileUrl(const std::string& path, std::string_view parts = {});
