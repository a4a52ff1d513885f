// Listing a zip of 65,535 members, beside `unzip -l` less what that takes for an archive of one member. The listing has
// to take at most twice the time, and twice the members at most two and a half times as long.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "base/calendar.h"
#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"
#include "formats/zip/cls_zip.h"
#include "support/zip_builder.h"
#include "timing.h"

namespace kestrun {
namespace {

constexpr int kMembers = 65535;
constexpr int kRounds = 15;
constexpr double kMostOfUnzip = 2.0;
constexpr double kMostOfHalf = 2.5;

template <class Work>
double MedianOf(Work&& work) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    times.push_back(Milliseconds(work));
  }
  return Median(std::move(times));
}

void WriteArchive(const std::string& path, int count) {
  std::vector<ZipMember> members;
  for (int at = 0; at < count; ++at) {
    ZipMember member{"maps/of the month/map number " + std::to_string(at) + ".bms", "BMS"};
    member.date = (26 << 9) | (3 << 5) | 14;
    members.push_back(member);
  }
  platform().files().WriteAll(path, AsBytes(BuildZip(members)));
}

// What a listing shows: size, date and name of each member, and the sum of the sizes.
size_t List(const std::string& path) {
  const auto zip = MakeRef<Cls_Zip>();
  zip->Get_Contents(path);
  size_t shown = 0;
  uint64_t total = 0;
  for (int32_t at = 1; at <= zip->FileCount(); ++at) {
    total += zip->UnCompressed_Size(at);
    shown +=
        (std::to_string(zip->UnCompressed_Size(at)) + DateToText(zip->FileDateTime(at)) + zip->FileName(at)).size();
  }
  return shown + std::to_string(total).size();
}

void Unzip(const std::string& path) {
  if (std::system(("unzip -l '" + path + "' >/dev/null").c_str()) != 0) std::abort();
}

bool Report(const char* what, double value, double limit) {
  const bool passed = value <= limit;
  std::printf("  %-34s %10.2f   at most %.1f   %s\n", what, value, limit, passed ? "PASS" : "FAIL");
  return passed;
}

bool Run(const std::string& folder) {
  const std::string full = folder + "/kestrun-full.zip";
  const std::string half = folder + "/kestrun-half.zip";
  const std::string one = folder + "/kestrun-one.zip";
  WriteArchive(full, kMembers);
  WriteArchive(half, kMembers / 2);
  WriteArchive(one, 1);
  size_t shown = 0;
  const double listing = MedianOf([&] { shown += List(full); });
  const double half_listing = MedianOf([&] { shown += List(half); });
  const double unzip = MedianOf([&] { Unzip(full); }) - MedianOf([&] { Unzip(one); });
  std::printf("listing %d members: %.2f ms (unzip -l %.2f ms; %zu characters shown)\n", kMembers, listing, unzip,
              shown);
  const bool beside_unzip = Report("times unzip -l", listing / unzip, kMostOfUnzip);
  const bool is_linear = Report("times half the members", listing / half_listing, kMostOfHalf);
  for (const std::string& path : {full, half, one}) unlink(path.c_str());
  return beside_unzip && is_linear;
}

}  // namespace
}  // namespace kestrun

int main() {
  kestrun::PosixFileSystem files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const char* chosen = std::getenv("TMPDIR");
  return kestrun::Run(chosen ? chosen : "/tmp") ? 0 : 1;
}
