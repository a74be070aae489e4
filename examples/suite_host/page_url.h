#pragma once

#include <string>

// Returns the URL of a page that the command line names by its path or its URL. Empty when it is
// neither the path of a file nor a URL.
std::string PageUrl(const std::string& page);
