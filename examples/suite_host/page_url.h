#pragma once

#include <string>

// Returns the URL of a page that the command line names by path or by URL. Existing files take
// precedence over URLs. Returns an empty string when `page` is neither the path of an existing file
// nor a URL.
std::string PageUrl(const std::string& page);
