#include "logging/log_header.h"

#include "utils/file_utils.h"
#include "utils/localization_utils.h"
#include "utils/os_utils.h"
#include "utils/string_utils.h"

namespace tarn {
namespace {

using TarnUtils::FileUtils;
using TarnUtils::OSUtils;

constexpr std::size_t kStars = 78;
constexpr char kSuiteVersion[] = "CRN Version: ";

// Returns false when the suite is not installed or has no version.
bool GetSuiteVersion(std::string& version) {
  std::string application;
  return FileUtils::GetDirectoryPath(FileUtils::CirraneUtilities, application, nullptr) &&
         FileUtils::AppendPath(application, "CRN/Cirrane.app", nullptr) &&
         FileUtils::PathExists(application, nullptr) &&
         FileUtils::getApplicationVersion(application, version);
}

}  // namespace

stLogHeader DescribeSystem() {
  stLogHeader header;
  header.startLine = header.endLine = std::string(kStars, '*');

  TarnUtils::LocalizationUtils::GetOSLocale(header.entries["OS Locale: "]);
  // Fields that the system does not report stay zero.
  OSUtils::OSVersion version{};
  OSUtils::GetCurrentOSVersion(version);
  OSUtils::GetCurrentOSName(version, header.entries["OS Name: "]);
  OSUtils::GetOSVersionStringFromOSVersion(version, header.entries["OS Version: "]);
  OSUtils::OSBitness bitness{};
  OSUtils::GetCurrentOSBitness(bitness);
  header.entries["Bit: "] = TarnUtils::StringUtils::IntToNativeString(bitness);
  std::string suite;
  if (GetSuiteVersion(suite)) header.entries[kSuiteVersion] = suite;
  return header;
}

void MergeHeader(const stLogHeader& more, stLogHeader& header) {
  if (!more.startLine.empty()) header.startLine = more.startLine;
  if (!more.endLine.empty()) header.endLine = more.endLine;
  for (const auto& [label, value] : more.entries)
    header.entries[label] = value;
}

std::vector<std::string> HeaderLines(const stLogHeader& header) {
  std::vector<std::string> lines;
  if (!header.startLine.empty()) lines.push_back(header.startLine);
  const auto suite = header.entries.find(kSuiteVersion);
  if (suite != header.entries.end()) lines.push_back(suite->first + suite->second);
  for (auto entry = header.entries.begin(); entry != header.entries.end(); ++entry) {
    if (entry != suite) lines.push_back(entry->first + entry->second);
  }
  if (!header.endLine.empty()) lines.push_back(header.endLine);
  return lines;
}

}  // namespace tarn
