// One value from a profile file of 200 keys, beside the bare open, read and scan of the same file. The reader has to
// reach 0.7 of the bare speed.
#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench_folder.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr int kKeyCount = 200;
constexpr int kReads = 2000;
constexpr int kRounds = 15;
constexpr double kLeastRatio = 0.7;

std::string Content() {
  std::string content = "[launcher]\r\n";
  for (int i = 0; i < kKeyCount; ++i)
    content += "KEY" + std::to_string(i) + "=C:\\games\\maps\\value " + std::to_string(i) + "\r\n";
  return content;
}

// What a plain C program does to find the key: the system's calls and a walk over the lines.
std::string BareRead(const char* path, const char* section, const char* key) {
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (file < 0 || ::fstat(file, &status) != 0) std::abort();
  std::vector<char> bytes(static_cast<size_t>(status.st_size));
  if (::read(file, bytes.data(), bytes.size()) != status.st_size) std::abort();
  ::close(file);
  const size_t section_length = std::strlen(section);
  const size_t key_length = std::strlen(key);
  bool inside = false;
  const char* const end = bytes.data() + bytes.size();
  for (const char* line = bytes.data(); line < end;) {
    const auto* line_end = static_cast<const char*>(std::memchr(line, '\n', static_cast<size_t>(end - line)));
    if (!line_end) line_end = end;
    const auto length = static_cast<size_t>(line_end - line);
    if (*line == '[') {
      inside = length > section_length + 1 && ::strncasecmp(line + 1, section, section_length) == 0 &&
               line[section_length + 1] == ']';
    } else if (inside && length > key_length && line[key_length] == '=' && ::strncasecmp(line, key, key_length) == 0) {
      std::string value(line + key_length + 1, line_end);
      while (!value.empty() && value.back() <= ' ') value.pop_back();
      return value;
    }
    line = line_end + 1;
  }
  return {};
}

// The fastest of several rounds, in nanoseconds for one read.
template <class Read>
double FastestRound(Read&& read) {
  double best = 1e18;
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kReads; ++i) read();
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count() / kReads);
  }
  return best;
}

bool Compare(const std::string& path, const std::string& key) {
  const std::string expected = BareRead(path.c_str(), "launcher", key.c_str());
  if (expected.empty() || GetIniValue(path, "LAUNCHER", key, "") != expected) std::abort();
  const double bare_ns = FastestRound([&] { return BareRead(path.c_str(), "launcher", key.c_str()); });
  const double our_ns = FastestRound([&] { return GetIniValue(path, "LAUNCHER", key, ""); });
  const double ratio = bare_ns / our_ns;
  const bool passes = ratio >= kLeastRatio;
  std::printf("%s profile read of %s: bare %.0f ns, ours %.0f ns, speed ratio %.2f (at least %.2f)\n",
              passes ? "PASS" : "FAIL", key.c_str(), bare_ns, our_ns, ratio, kLeastRatio);
  return passes;
}

// The last key, so that both walk the whole file.
bool Measure(PosixFileSystem& files, const std::string& folder) {
  const std::string path = folder + "/packit.ini";
  files.WriteAll(path, AsBytes(Content()));
  const bool passes = Compare(path, "key" + std::to_string(kKeyCount - 1));
  files.Delete(path);
  return passes;
}

}  // namespace
}  // namespace kestrun

int main() { return kestrun::RunInBenchFolder(kestrun::Measure); }
