#include "logging/path_utils.h"

#include "logging/time_utils.h"

namespace tarn {
namespace {

// Returns the path without trailing slashes. A path of slashes alone becomes "/".
std::string Trimmed(const std::string& path) {
  const std::size_t last = path.find_last_not_of('/');
  if (last != std::string::npos) return path.substr(0, last + 1);
  return path.empty() ? "" : "/";
}

// Returns the position of the last component of a trimmed path.
std::size_t StartOfLastComponent(const std::string& path) { return path.rfind('/') + 1; }

bool CanHaveExtension(const std::string& trimmed) { return !trimmed.empty() && trimmed != "/"; }

// Returns the trimmed path without its extension. A leading "." is part of the name.
std::string WithoutExtension(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot <= StartOfLastComponent(path)) return path;
  return path.substr(0, dot);
}

}  // namespace

bool appendPath(std::string& path, const std::string& component) {
  const std::size_t first = component.find_first_not_of('/');
  const std::string rest = first == std::string::npos ? "" : Trimmed(component.substr(first));
  if (path.empty()) {
    if (component.empty()) return false;
    path = Trimmed(component);
    return true;
  }
  std::string joined = Trimmed(path);
  if (!rest.empty()) joined += joined == "/" ? rest : "/" + rest;
  path = joined;
  return true;
}

bool removeLastPathComponent(std::string& path) {
  if (path.empty()) return false;
  const std::string trimmed = Trimmed(path);
  const std::size_t slash = trimmed.rfind('/');
  path = slash == std::string::npos ? "" : Trimmed(trimmed.substr(0, slash + 1));
  return true;
}

bool changeFileExtension(std::string& path, const std::string& ext) {
  std::string changed = path;
  if (!removeFileExtension(changed) || !addFileExtension(changed, ext)) return false;
  path = changed;
  return true;
}

bool addFileExtension(std::string& path, const std::string& ext) {
  const std::string trimmed = Trimmed(path);
  if (!CanHaveExtension(trimmed)) return false;
  path = trimmed + "." + ext;
  return true;
}

bool removeFileExtension(std::string& path) {
  path = WithoutExtension(Trimmed(path));
  return true;
}

bool getFileExtension(const std::string& path, std::string& ext) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos) return false;
  ext = path.substr(dot + 1);
  return true;
}

bool getFilePathBaseName(const std::string& path, std::string& name) {
  const std::string trimmed = Trimmed(path);
  name = trimmed == "/" ? trimmed : trimmed.substr(StartOfLastComponent(trimmed));
  return !name.empty();
}

bool isFileName(const std::string& name) {
  std::string last;
  getFilePathBaseName(name, last);
  return name == last;
}

bool appendTimeStampToFile(std::string& path) {
  std::string stamp;
  std::string extension;
  std::string stamped = path;
  if (!getDatetime(stamp) || !getFileExtension(path, extension)) return false;
  if (!removeFileExtension(stamped) || !addFileExtension(stamped += " " + stamp, extension)) {
    return false;
  }
  path = stamped;
  return true;
}

}  // namespace tarn
