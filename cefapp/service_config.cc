// What an administrator of the suite sets for Chromium on this machine.

#include "cefapp/cef_app_handler.h"
#include "utils/file_utils.h"
#include "utils/xml_parser.h"

using TarnUtils::FileUtils;
using TarnUtils::XMLParser;

namespace {

constexpr char kFile[] = "/TARN/Configs/ServiceConfig.xml";
constexpr char kElements[] = "/config/CEF/";

// Settings, which are the names of elements, and the switches that pass them on. Chromium's network
// code reads both: servers that may ask for the user's Negotiate or NTLM identity, and those that
// the user's Kerberos ticket may be handed to.
constexpr struct {
  const char* setting;
  const char* name;
} kSwitches[] = {
    {"AuthServerWhitelist", "auth-server-whitelist"},
    {"AuthNegotiateDelegateWhitelist", "auth-negotiate-delegate-whitelist"},
};

}  // namespace

void CEFAppHandler::readServiceConfig(std::map<std::string, std::string>& settings) {
  // Where the system knows no such folder, the path begins at the root.
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

void CEFAppHandler::OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                                  CefRefPtr<CefCommandLine> command_line) {
  command_line->AppendSwitch("disable-pinch");
  std::map<std::string, std::string> settings;
  readServiceConfig(settings);
  for (const auto& [setting, name] : kSwitches) {
    const auto found = settings.find(setting);
    if (found == settings.end() || found->second.empty()) continue;
    command_line->AppendSwitchWithValue(name, found->second);
  }
}
