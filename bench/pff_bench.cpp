// Putting a 60 KB map into a 200 MB archive as -pack does: with a turn, with the ledger of originals, which has kept
// the entry's original before, and with the journal. It is measured beside the same put without any of them, whose
// bytes are written by the system's calls and flushed, and has to take at most two and a half times as long. Each round
// puts another map in.
//
// How many times less a put takes than rewriting the archive, flushed too, is for the disk to say: the put waits for it
// three times, rewriting once behind 200 MB. An ordinary disk takes half a second and more for these, and 15 ms at most
// for a wait: ten times less is what remains of it everywhere.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"
#include "formats/pff/cls_pff.h"
#include "platform/turn.h"
#include "program/originals_hook.h"
#include "timing.h"

namespace kestrun {
namespace {

constexpr size_t kDataBytes = size_t{200} << 20;
constexpr size_t kMapBytes = 60000;
constexpr int kRounds = 15;
constexpr double kMostOfPlain = 2.5;
constexpr double kLeastOfRewriting = 10.0;

// 200 MB of data in which every entry has its part, the last 60 KB the mission's own.
std::string MakeArchive(const std::string& folder, int32_t entries) {
  const std::string path = folder + "/bench.pff";
  FILE* file = std::fopen(path.c_str(), "wb");
  std::vector<char> block(1 << 20, 'x');
  pff::Header header{20, pff::kSignature, entries, 36, static_cast<int32_t>(20 + kDataBytes)};
  std::fwrite(&header, sizeof header, 1, file);
  for (size_t done = 0; done < kDataBytes; done += block.size()) std::fwrite(block.data(), block.size(), 1, file);
  std::vector<pff::Entry> table(static_cast<size_t>(entries));
  for (int32_t at = 0; at < entries; ++at) {
    pff::Entry& entry = table[static_cast<size_t>(at)];
    entry.offset = 20 + at;
    entry.length = 1000;
    char name[17];
    std::snprintf(name, sizeof name, "F%07d.BIN", at);
    std::copy_n(name, 12, entry.name.begin());
  }
  pff::Entry& mission = table[static_cast<size_t>(entries) / 2];
  mission.offset = 20;
  mission.length = kMapBytes;
  mission.name = pff::PadName("D08M03.BMS", '\0');
  std::fwrite(table.data(), sizeof table[0], table.size(), file);
  std::fwrite(pff::kTrailer.data(), pff::kTrailer.size(), 1, file);
  std::fclose(file);
  return path;
}

// With the ledger, or with the journal alone.
void Put(const std::string& path, const Bytes& map, bool with_ledger) {
  const auto turn = TakeTurn(path);
  turn->LetFileStay();
  ClsPFF archive;
  if (!archive.LoadPff(path)) std::abort();
  if (with_ledger) {
    const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
    keeper->KeepEntry(archive, "D08M03.BMS", map, "map.bms");
    keeper->Finish();
  }
  archive.PackFile(map, "D08M03.BMS");
  archive.LetJournalRest();
  archive.SavePffFile();
}

// The same put without turn, ledger and journal: read and staged by the class, and the same bytes written to the same
// places by the system's calls.
void PlainPut(const std::string& path, const Bytes& map, int32_t entries) {
  ClsPFF archive;
  if (!archive.LoadPff(path)) std::abort();
  archive.PackFile(map, "D08M03.BMS");
  const auto table_at = static_cast<off_t>(20 + kDataBytes);
  std::vector<char> table(static_cast<size_t>(entries) * 36 + 12);
  char header[20];
  const int file = open(path.c_str(), O_RDWR);
  if (pread(file, header, sizeof header, 0) < 0 || pread(file, table.data(), table.size(), table_at) < 0 ||
      pwrite(file, header, sizeof header, 0) < 0 || pwrite(file, map.data(), map.size(), 20) < 0 ||
      pwrite(file, table.data(), table.size(), table_at) < 0 || fdatasync(file) != 0) {
    std::abort();
  }
  close(file);
}

void Rewrite(const std::string& path) {
  const std::string copy = path + ".copy";
  const int in = open(path.c_str(), O_RDONLY);
  const int out = open(copy.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
  std::vector<char> block(1 << 20);
  for (ssize_t got = read(in, block.data(), block.size()); got > 0; got = read(in, block.data(), block.size())) {
    if (write(out, block.data(), static_cast<size_t>(got)) != got) std::abort();
  }
  fsync(out);
  close(in);
  close(out);
  unlink(copy.c_str());
}

bool Report(const char* what, double value, double limit, bool at_most) {
  const bool passed = at_most ? value <= limit : value >= limit;
  std::printf("  %-34s %10.2f   %s %.1f   %s\n", what, value, at_most ? "at most" : "at least", limit,
              passed ? "PASS" : "FAIL");
  return passed;
}

bool Run(const std::string& folder, int32_t entries) {
  const std::string path = MakeArchive(folder, entries);
  Bytes map(kMapBytes, 'm');
  Put(path, map, true);
  // In turns, as a disk's pace changes from one moment to the next.
  std::vector<double> puts;
  std::vector<double> journal_puts;
  std::vector<double> plain_puts;
  int maps = 0;
  const auto next_map = [&] { std::fill(map.begin(), map.end(), static_cast<uint8_t>(++maps)); };
  for (int round = 0; round < kRounds; ++round) {
    next_map();
    puts.push_back(Milliseconds([&] { Put(path, map, true); }));
    // What goes in without the ledger would be another program's to it: the same map again leaves nothing to keep.
    const Bytes same = map;
    next_map();
    journal_puts.push_back(Milliseconds([&] { Put(path, map, false); }));
    next_map();
    plain_puts.push_back(Milliseconds([&] { PlainPut(path, map, entries); }));
    Put(path, same, false);
  }
  const double put = Median(puts);
  const double plain = Median(plain_puts);
  const double rewriting = Milliseconds([&] { Rewrite(path); });
  std::printf(
      "a 60 KB map into 200 MB with %d entries: %.3f ms (without the ledger %.3f ms, without both %.3f ms, rewriting "
      "%.0f ms)\n",
      entries, put, Median(journal_puts), plain, rewriting);
  const bool beside_plain = Report("times the same put without", put / plain, kMostOfPlain, true);
  const bool beside_rewriting = Report("times less than rewriting", rewriting / put, kLeastOfRewriting, false);
  // What no put can pass that reads and writes the table once.
  std::printf("  %-34s %10.2f\n", "(the put without beside rewriting)", rewriting / plain);
  unlink(path.c_str());
  return beside_plain && beside_rewriting;
}

}  // namespace
}  // namespace kestrun

int main() {
  kestrun::PosixFileSystem files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const char* chosen = std::getenv("TMPDIR");
  const std::string folder = std::string(chosen ? chosen : "/tmp") + "/kestrun put " + std::to_string(getpid());
  std::filesystem::create_directory(folder);
  platform.program().folder = folder;  // the ledger stands beside the program
  const bool few = kestrun::Run(folder, 3000);
  const bool many = kestrun::Run(folder, 65000);
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::filesystem::remove_all(folder);
  std::printf("  most memory used: %ld KB\n", usage.ru_maxrss);
  return few && many ? 0 : 1;
}
