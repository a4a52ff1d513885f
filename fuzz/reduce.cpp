// Any bytes as a member that was reduced, by each factor. The first two bytes choose the announced size.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "formats/zip/reduce.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const size_t announced = (size_t{data[0]} << 8) | data[1];
  const kestrun::Bytes reduced(data + 2, data + size);
  for (int method = 2; method <= 5; ++method) {
    kestrun::Bytes output;
    const int32_t status = kestrun::zip::Reduce(reduced, method, static_cast<int64_t>(announced) - 1, output);
    const bool is_whole = output.size() == announced;
    const bool is_told = status == (is_whole ? 0 : kestrun::zip::kReduceCutShort);
    if (output.size() > announced || !is_told) std::abort();
  }
  return 0;
}
