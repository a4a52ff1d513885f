// Any bytes as a Windows program: whatever its headers say, nothing outside the file is read.
#include <cstddef>
#include <cstdint>

#include "base/bytes.h"
#include "formats/pe/program_file.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  files.content["a.exe"] = kestrun::Bytes(data, data + size);
  static_cast<void>(kestrun::IsWholeWindowsProgram(*files.Open("a.exe", kestrun::OpenMode::kRead)));
  return 0;
}
