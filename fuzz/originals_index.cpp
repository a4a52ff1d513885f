// The index of the ledger of originals on any bytes: whatever it says, no place leads out of its folder, no content out
// of the ledger, and what is understood comes back from the shorter form that it is written anew in.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/sha256.h"
#include "game/originals/ledger_index.h"

namespace {

using kestrun::originals::Index;

void Check(bool condition) {
  if (!condition) std::abort();
}

void CheckRecord(const kestrun::originals::Record& record) {
  Check(!record.place.folder.empty());
  Check(record.place.file.find_first_of("\\/:") == std::string::npos && record.place.file != "..");
  for (const auto& version : record.versions) Check(version.IsAbsence() || kestrun::IsSha256Hex(version.sha256));
  if (record.put) Check(kestrun::IsSha256Hex(record.put->sha256));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const Index index = Index::Parse({data, size});
  for (const auto& [key, record] : index.records()) CheckRecord(record);
  static_cast<void>(index.KeptBytes());
  const std::string compacted = index.Compacted();
  const Index again = Index::Parse(kestrun::AsBytes(compacted));
  Check(again.Compacted() == compacted);
  return 0;
}
