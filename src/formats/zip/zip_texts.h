// The words of a member's fields, as the user reads them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrun::zip {

// "Deflated" for 8; "Unknown" for a number without a name.
[[nodiscard]] std::string_view MethodText(uint16_t method);
// By the high byte of a version field; "UnKnown" for a number without a name.
[[nodiscard]] std::string_view SystemText(uint16_t version);
// By the low byte of a version field: "2.0" for 20.
[[nodiscard]] std::string VersionText(uint16_t version);

// A DOS date and time in days since 30 December 1899. Fields beyond their range carry over into the next larger one.
[[nodiscard]] double DosDateTime(uint16_t date, uint16_t time);
// The same in 100-nanosecond units since 1601-01-01; 0 when a field is beyond its range, as there is no such moment.
[[nodiscard]] uint64_t DosFileTime(uint16_t date, uint16_t time);

}  // namespace kestrun::zip
