#include "formats/zip/zip_texts.h"

#include <array>

#include "base/calendar.h"

namespace kestrun::zip {
namespace {

constexpr std::array<std::string_view, 13> kMethods{
    "No Compression",   "Shrunk",   "Reduce Factor 1", "Reduce Factor 2", "Reduce Factor 3",
    "Reduce Factor 4",  "Imploded", "Tokenized",       "Deflated",        "Enhanced Deflating",
    "PKWARE Imploding", "Reserved", "BZip2",
};

constexpr std::array<std::string_view, 19> kSystems{
    "MS-DOS and OS/2 (FAT / VFAT / FAT32 file systems)",
    "Amiga",
    "2 - OpenVMS",
    "UNIX",
    "VM/CMS",
    "Atari ST",
    "OS/2 H.P.F.S.",
    "Macintosh",
    "Z-System",
    "CP/M",
    "Windows NTFS",
    "MVS (OS/390 - Z/OS)",
    "VSE",
    "Acorn Risc",
    "VFAT",
    "Alternate MVS",
    "BeOS",
    "Tandem",
    "OS/400",
};

struct DosMoment {
  int year;
  int month;
  int day;
  int hour;
  int minute;
  int second;

  [[nodiscard]] bool Exists() const {
    return month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month) && hour < 24 && minute < 60 &&
           second < 60;
  }
  [[nodiscard]] int64_t Seconds() const { return hour * int64_t{3600} + minute * int64_t{60} + second; }
};

constexpr int64_t kSecondsPerDay = 86400;

DosMoment SplitDos(uint16_t date, uint16_t time) {
  return {1980 + (date >> 9), (date >> 5) & 15, date & 31, time >> 11, (time >> 5) & 63, (time & 31) * 2};
}

}  // namespace

std::string_view MethodText(uint16_t method) { return method < kMethods.size() ? kMethods[method] : "Unknown"; }

std::string_view SystemText(uint16_t version) {
  const size_t system = version >> 8;
  return system < kSystems.size() ? kSystems[system] : "UnKnown";
}

std::string VersionText(uint16_t version) {
  const int low = version & 255;
  return std::to_string(low / 10) + "." + std::to_string(low % 10);
}

double DosDateTime(uint16_t date, uint16_t time) {
  const DosMoment moment = SplitDos(date, time);
  const int64_t seconds = moment.Seconds();
  return JoinDate(DayNumber(moment.year, moment.month, moment.day) + seconds / kSecondsPerDay,
                  static_cast<double>(seconds % kSecondsPerDay));
}

uint64_t DosFileTime(uint16_t date, uint16_t time) {
  constexpr uint64_t kUnitsPerSecond = 10'000'000;
  const DosMoment moment = SplitDos(date, time);
  if (!moment.Exists()) return 0;
  const int64_t days = DayNumber(moment.year, moment.month, moment.day) - DayNumber(1601, 1, 1);
  return static_cast<uint64_t>(days * kSecondsPerDay + moment.Seconds()) * kUnitsPerSecond;
}

}  // namespace kestrun::zip
