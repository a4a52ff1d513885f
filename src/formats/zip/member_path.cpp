#include "formats/zip/member_path.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "platform/platform.h"

namespace kestrun::zip {
namespace {

constexpr std::string_view kSeparators = "\\/";

// Names that Windows gives to devices in every folder, with any extension behind them.
constexpr std::array<std::string_view, 6> kDevices{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
// Those that take a digit; superscript one, two and three count as digits.
constexpr std::array<std::string_view, 2> kNumberedDevices{"COM", "LPT"};
constexpr std::array<std::string_view, 13> kDeviceNumbers{"0", "1", "2", "3", "4", "5", "6",
                                                          "7", "8", "9", "¹", "²", "³"};

bool IsNumberedDevice(std::string_view name) {
  return std::any_of(kNumberedDevices.begin(), kNumberedDevices.end(), [name](std::string_view device) {
    return EqualsNoCase(name.substr(0, device.size()), device) &&
           std::find(kDeviceNumbers.begin(), kDeviceNumbers.end(), name.substr(device.size())) != kDeviceNumbers.end();
  });
}

bool IsDevice(std::string_view part) {
  const std::string_view name = TrimBlanks(part.substr(0, part.find('.')));
  return IsNumberedDevice(name) || std::any_of(kDevices.begin(), kDevices.end(),
                                               [name](std::string_view device) { return EqualsNoCase(name, device); });
}

bool HoldsForbiddenCharacter(std::string_view name) {
  return std::any_of(name.begin(), name.end(),
                     [](char one) { return one == ':' || static_cast<unsigned char>(one) < ' ' || one == '\x7F'; });
}

// "." alone is the folder itself and leads nowhere.
bool IsHarmlessPart(std::string_view part) {
  if (part.empty() || part == ".") return true;
  return part.back() != ' ' && part.back() != '.' && !IsDevice(part);
}

}  // namespace

bool StaysInside(std::string_view member_name) {
  if (member_name.empty() || HoldsForbiddenCharacter(member_name)) return false;
  if (kSeparators.find(member_name.front()) != std::string_view::npos) return false;
  for (size_t at = 0; at <= member_name.size();) {
    const size_t end = std::min(member_name.find_first_of(kSeparators, at), member_name.size());
    if (!IsHarmlessPart(member_name.substr(at, end - at))) return false;
    at = end + 1;
  }
  return true;
}

std::string WithSeparators(std::string_view path, char separator) {
  std::string joined(path);
  for (char& one : joined) {
    if (kSeparators.find(one) != std::string_view::npos) one = separator;
  }
  return joined;
}

char PathSeparator() { return platform().files().CurrentFolder().find('\\') != std::string::npos ? '\\' : '/'; }

std::string WithTrailingSeparator(std::string path, char separator) {
  if (path.empty() || kSeparators.find(path.back()) == std::string_view::npos) path += separator;
  return path;
}

}  // namespace kestrun::zip
