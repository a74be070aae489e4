#pragma once

#include <map>
#include <string>

#include "include/cef_command_line.h"

// The settings for Chromium in the service configuration, which an administrator of the suite
// maintains for all users of the machine. The key of each setting is the name of its XML element.
using ServiceSettings = std::map<std::string, std::string>;

// Reads the settings "AuthServerWhitelist" and "AuthNegotiateDelegateWhitelist" verbatim. Erases a
// setting whose element is missing. Leaves `settings` unchanged if the file cannot be read or is
// not valid XML. The XML parser logs invalid XML and missing elements at the level DEBUG.
void ReadServiceConfig(ServiceSettings& settings);

// Adds a Chromium switch for each setting of ReadServiceConfig() that is not empty, with the
// setting as its value. Ignores all other keys.
void AppendServiceSwitches(const ServiceSettings& settings,
                           const CefRefPtr<CefCommandLine>& command_line);
