#pragma once

#include <map>
#include <string>

#include "include/cef_command_line.h"

// The settings for Chromium in the service configuration, which an administrator of the suite
// maintains for all users of the machine. Each has the name of its XML element.
using ServiceSettings = std::map<std::string, std::string>;

// Reads the settings "AuthServerWhitelist" and "AuthNegotiateDelegateWhitelist" verbatim. Erases a
// setting whose element is missing. Leaves `settings` unchanged if the configuration cannot be
// read. The XML parser logs errors in the content.
void ReadServiceConfig(ServiceSettings& settings);

// Adds the switch of each setting that is not empty.
void AppendServiceSwitches(const ServiceSettings& settings,
                           const CefRefPtr<CefCommandLine>& command_line);
