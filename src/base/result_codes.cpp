#include "base/result_codes.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kestrun {
namespace {

struct ResultRow {
  uint32_t result;
  int number;
};

// Ascending results.
constexpr std::array kResults{
    ResultRow{0x80004001, 445},  // not implemented
    ResultRow{0x80004002, 430},  // no such interface
    ResultRow{0x80020001, 438},  // unknown interface
    ResultRow{0x80020003, 438},  // member not found
    ResultRow{0x80020004, 448},  // parameter not found
    ResultRow{0x80020005, 13},   // type mismatch
    ResultRow{0x80020006, 438},  // unknown name
    ResultRow{0x80020007, 446},  // no named arguments
    ResultRow{0x80020008, 458},  // bad variable type
    ResultRow{0x8002000A, 6},    // overflow
    ResultRow{0x8002000B, 9},    // bad index
    ResultRow{0x8002000C, 447},  // unknown locale
    ResultRow{0x8002000D, 10},   // array is locked
    ResultRow{0x8002000E, 450},  // bad parameter count
    ResultRow{0x8002000F, 449},  // parameter not optional
    ResultRow{0x80020011, 451},  // not a collection
    ResultRow{0x8002802F, 453},  // function not found
    ResultRow{0x80028CA0, 13},   // type mismatch
    ResultRow{0x80028CA1, 9},    // out of bounds
    ResultRow{0x80028CA2, 57},   // input or output failed
    ResultRow{0x80028CA3, 322},  // no temporary file
    ResultRow{0x80030002, 432},  // file not found
    ResultRow{0x80030003, 76},   // path not found
    ResultRow{0x80030004, 67},   // too many open files
    ResultRow{0x80030005, 70},   // access denied
    ResultRow{0x80030008, 7},    // insufficient memory
    ResultRow{0x80030012, 67},   // no more files
    ResultRow{0x80030013, 70},   // write-protected
    ResultRow{0x8003001D, 57},   // write fault
    ResultRow{0x8003001E, 57},   // read fault
    ResultRow{0x80030020, 75},   // sharing violation
    ResultRow{0x80030021, 70},   // lock violation
    ResultRow{0x80030050, 58},   // file already exists
    ResultRow{0x80030070, 61},   // medium full
    ResultRow{0x800300FC, 53},   // invalid name
    ResultRow{0x80030100, 70},   // in use
    ResultRow{0x80030101, 70},   // not current
    ResultRow{0x80030103, 57},   // cannot save
    ResultRow{0x80040154, 429},  // class not registered
    ResultRow{0x800401E3, 429},  // moniker unavailable
    ResultRow{0x800401E6, 432},  // invalid extension
    ResultRow{0x800401EA, 432},  // cannot open the file
    ResultRow{0x800401F3, 429},  // invalid class name
    ResultRow{0x800401F5, 429},  // application not found
    ResultRow{0x800401FE, 429},  // application did not register
    ResultRow{0x80070005, 70},   // access denied
    ResultRow{0x8007000E, 7},    // out of memory
    ResultRow{0x80070057, 5},    // invalid argument
    ResultRow{0x800706BA, 462},  // server unavailable
    ResultRow{0x80080005, 429},  // server execution failed
};

// Result codes of this kind carry a script language's error number in their low half.
constexpr uint32_t kScriptFacility = 0x800A0000;

}  // namespace

int NumberOfResult(int result) {
  const auto wanted = static_cast<uint32_t>(result);
  if ((wanted & 0xFFFF0000) == kScriptFacility) return static_cast<int>(wanted & 0xFFFF);
  const auto* row = std::lower_bound(kResults.begin(), kResults.end(), wanted,
                                     [](const ResultRow& each, uint32_t code) { return each.result < code; });
  return row != kResults.end() && row->result == wanted ? row->number : result;
}

int ResultOfNumber(int number) {
  return number < 0 ? number : static_cast<int>(kScriptFacility | (static_cast<uint32_t>(number) & 0xFFFF));
}

}  // namespace kestrun
