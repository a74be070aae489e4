#include "cefapp/service_config.h"

#include "utils/file_utils.h"
#include "utils/xml_parser.h"

using TarnUtils::FileUtils;
using TarnUtils::XMLParser;

namespace {

constexpr char kFile[] = "/TARN/Configs/ServiceConfig.xml";
constexpr char kElements[] = "/config/CEF/";

// The settings and their switches. Chromium's network code reads both switches: the servers that
// may ask for the user's Negotiate or NTLM identity, and the servers that may receive the user's
// Kerberos ticket.
constexpr struct {
  const char* setting;
  const char* name;
} kSwitches[] = {
    {"AuthServerWhitelist", "auth-server-whitelist"},
    {"AuthNegotiateDelegateWhitelist", "auth-negotiate-delegate-whitelist"},
};

}  // namespace

void ReadServiceConfig(ServiceSettings& settings) {
  // If the system has no such folder, the path starts at the root.
  std::string path;
  FileUtils::GetDirectoryPath(FileUtils::VelmoraLocalSupport, path, nullptr);
  path += kFile;
  std::string xml;
  XMLParser parser;
  if (!FileUtils::LoadContentOfFileAtPath(path, xml, nullptr) || !parser.initWithXMLString(xml)) {
    return;
  }
  for (const auto& [setting, name] : kSwitches) {
    settings.erase(setting);
    std::string value;
    if (parser.stringValueForXQuery(kElements + std::string(setting), value)) {
      settings[setting] = value;
    }
  }
}

void AppendServiceSwitches(const ServiceSettings& settings,
                           const CefRefPtr<CefCommandLine>& command_line) {
  for (const auto& [setting, name] : kSwitches) {
    const auto found = settings.find(setting);
    if (found == settings.end() || found->second.empty()) continue;
    command_line->AppendSwitchWithValue(name, found->second);
  }
}
