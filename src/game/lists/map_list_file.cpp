#include "game/lists/map_list_file.h"

#include "base/convert.h"
#include "base/number.h"
#include "base/runtime_error.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr const char* kList = "LIST";
constexpr const char* kTotal = "TOTAL";
constexpr const char* kMap = "MAP";
constexpr const char* kInfo = "INFO";
constexpr const char* kVersion = "VERSION";
constexpr const char* kVersionNumber = "128";

}  // namespace

MapList::MapList(const std::string& file) : file_(ReadProfileSnapshot(file)) {
  const std::string total = GetIniValue(file_, kList, kTotal, "0");
  const double last = RoundToEven(TextToDouble(total) - 1);
  if (last < 0) return;
  if (last >= kMostListRows) {
    Raise(error::kOverflow, "This list says that it holds " + total + " maps. Kestrun loads lists of at most " +
                                std::to_string(kMostListRows) + ".");
  }
  rows_ = GetNumberedIniValues(file_, kList, {kMap, 0, static_cast<size_t>(last) + 1}, "ERROR!");
}

bool WriteMapList(const std::string& file, const std::vector<std::string>& rows) {
  return SetIniValues(file, {kList, kMap, rows},
                      {{kList, kTotal, std::to_string(rows.size())}, {kInfo, kVersion, kVersionNumber}});
}

}  // namespace kestrun
