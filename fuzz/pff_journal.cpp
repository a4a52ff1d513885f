// Any bytes as the journal beside an archive: whatever they say, the journal is dealt with once and for all, and an
// archive that it does not fit stays as it is. The first byte of the input chooses whether the journal gets an end with
// a true checksum.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/runtime_error.h"
#include "desktop/headless/headless_platform.h"
#include "formats/pff/cls_pff.h"
#include "formats/pff/pff_journal.h"
#include "formats/pff/pff_recovery.h"
#include "fuzz_files.h"

namespace {

using kestrun::Bytes;

constexpr size_t kArchiveBytes = 700;
constexpr size_t kHeaderBytes = 36;

// Gives a journal its end, so that what stands before it is looked at.
void CloseJournal(Bytes& journal) {
  if (journal.size() < kHeaderBytes) journal.resize(kHeaderBytes);
  const uint64_t record_bytes = journal.size() - kHeaderBytes;
  kestrun::StoreU32(journal, kHeaderBytes - 8, static_cast<uint32_t>(record_bytes));
  kestrun::StoreU32(journal, kHeaderBytes - 4, 0);
  Bytes summed(journal.begin() + kHeaderBytes, journal.end());
  summed.insert(summed.end(), journal.begin(), journal.begin() + kHeaderBytes);
  const uint32_t checksum = kestrun::pff::Checksum(summed);
  journal.resize(journal.size() + 4);
  kestrun::StoreU32(journal, journal.size() - 4, checksum);
  const std::string mark = "KEND";
  journal.insert(journal.end(), mark.begin(), mark.end());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const bool is_closed = (data[0] & 1) != 0;
  Bytes journal(data + 1, data + size);
  if (is_closed) CloseJournal(journal);
  const Bytes archive(kArchiveBytes, 'o');
  files.content["a.pff"] = archive;
  files.content["a.pff.journal"] = journal;
  const auto sentence = kestrun::pff::RecoverArchive("a.pff");
  const bool is_left = sentence && !sentence->ends_with("; it has been undone, and the archive is as it was before.");
  if (is_left && files.content["a.pff"] != archive) std::abort();
  const bool rests = kestrun::AsChars(journal).starts_with("KSTJREST");
  if (rests != files.content.contains("a.pff.journal") || rests == sentence.has_value()) std::abort();
  if (kestrun::pff::RecoverArchive("a.pff")) std::abort();
  return 0;
}
