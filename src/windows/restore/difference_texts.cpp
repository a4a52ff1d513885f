#include "windows/restore/difference_texts.h"

#include <algorithm>

namespace kestrun {
namespace {

using originals::Difference;
using originals::Present;

constexpr size_t kMostNames = 8;

std::string ByteCount(uint64_t count) {
  std::string digits = std::to_string(count);
  for (size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits + (count == 1 ? " byte" : " bytes");
}

std::string FileName(const std::string& path) { return path.substr(path.find_last_of("\\/:") + 1); }

}  // namespace

std::string PlaceText(const Difference& difference) {
  const std::string path = difference.place.Path();
  return difference.place.entry.empty() ? path : "\"" + difference.place.entry + "\" in " + path;
}

std::string PresentText(const Difference& difference) {
  switch (difference.present) {
    case Present::kGone: return "Nothing: it was removed";
    case Present::kUnknown: return "It cannot be read: " + difference.fault;
    case Present::kForeign:
      return (difference.mission.empty() ? std::string() : difference.mission + " - ") + "not put there by Kestrun";
    case Present::kOurs: break;
  }
  const std::string file = FileName(difference.source);
  if (difference.mission.empty()) return file;
  return file.empty() ? difference.mission : file + " (" + difference.mission + ")";
}

std::string RowText(const Difference& difference) {
  const originals::Place& place = difference.place;
  const std::string where = place.entry.empty() ? place.file + ", loose file" : place.entry + " in " + place.file;
  return where + ":  " + PresentText(difference);
}

std::string SinceText(const Difference& difference) {
  if (difference.present == Present::kGone || difference.present == Present::kUnknown) return {};
  return difference.since.empty() ? "Not known" : difference.since;
}

std::string SizeText(const Difference& difference) {
  const std::string original =
      difference.IsAddition() ? "it was not there before" : "the original: " + ByteCount(difference.original.length);
  if (difference.present == Present::kGone || difference.present == Present::kUnknown) return original;
  return ByteCount(difference.length) + "; " + original;
}

std::string QuotedNames(const std::vector<Difference>& differences) {
  std::string names;
  const size_t shown = std::min(differences.size(), kMostNames);
  for (size_t at = 0; at < shown; ++at) names += (at == 0 ? "\"" : ", \"") + differences[at].place.Name() + "\"";
  if (shown < differences.size()) names += " and " + std::to_string(differences.size() - shown) + " more";
  return names;
}

}  // namespace kestrun
