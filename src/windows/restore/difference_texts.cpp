#include "windows/restore/difference_texts.h"

#include <algorithm>

#include "base/counted.h"

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

// The original, or what was removed: there is nothing to be told about what is there now.
bool IsBare(const Difference& difference) {
  return difference.present == Present::kGone || difference.present == Present::kUnknown ||
         (difference.present == Present::kOriginal && difference.IsAddition());
}

std::string Named(const std::string& mission, const char* what) {
  return (mission.empty() ? std::string() : mission + " - ") + what;
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
    case Present::kForeign: return Named(difference.mission, "not put there by Kestrun");
    case Present::kKept: return Named(difference.mission, "a further version that is kept");
    case Present::kOriginal:
      return difference.IsAddition() ? "Nothing, as before" : Named(difference.mission, "the original");
    case Present::kOurs: break;
  }
  std::string file = FileName(difference.source);
  if (difference.mission.empty()) return file;
  return file.empty() ? difference.mission : file + " (" + difference.mission + ")";
}

std::string RowText(const Difference& difference) {
  const originals::Place& place = difference.place;
  const std::string where = place.entry.empty() ? place.file + ", loose file" : place.entry + " in " + place.file;
  return where + ":  " + PresentText(difference);
}

std::string SinceText(const Difference& difference) {
  if (IsBare(difference) || difference.present == Present::kOriginal) return {};
  return difference.since.empty() ? "Not known" : difference.since;
}

std::string SizeText(const Difference& difference) {
  std::string original =
      difference.IsAddition() ? "it was not there before" : "the original: " + ByteCount(difference.original.length);
  if (IsBare(difference)) return original;
  if (difference.present == Present::kOriginal) return ByteCount(difference.length);
  return ByteCount(difference.length) + "; " + original;
}

std::string OriginalText(const Difference& difference) {
  return difference.IsAddition() ? "Nothing, as it was not there before"
                                 : "The original, " + ByteCount(difference.original.length);
}

std::string FurtherText(const originals::KeptVersion& version) {
  const std::string mission = originals::MissionOf(version);
  return Named(mission, "kept ") + version.when + ", " + ByteCount(version.length);
}

std::string CountText(const std::vector<Difference>& differences) {
  const auto back = std::count_if(differences.begin(), differences.end(),
                                  [](const Difference& each) { return each.present == Present::kOriginal; });
  const size_t count = differences.size() - static_cast<size_t>(back);
  std::string text = "Nothing in this folder differs from its originals.";
  if (count == 1) text = "1 thing in this folder differs from its original.";
  if (count > 1) text = std::to_string(count) + " things in this folder differ from their originals.";
  if (back > 0) {
    text += " " + Counted(static_cast<size_t>(back), "unchanged thing has further versions.",
                          "unchanged things have further versions.");
  }
  return text;
}

int& Restored::Of(const Difference& difference, const originals::KeptVersion& version) {
  if (version.IsAbsence()) return removed;
  return version.sha256 == difference.original.sha256 ? originals : further;
}

std::string RestoredText(const Restored& restored) {
  struct Sentence {
    int count;
    const char* one;
    const char* many;
  };
  std::string text;
  for (const Sentence& each : {Sentence{restored.originals, "original is back.", "originals are back."},
                               Sentence{restored.further, "further version is back.", "further versions are back."},
                               Sentence{restored.removed, "added file is removed.", "added files are removed."}}) {
    if (each.count == 0) continue;
    text += (text.empty() ? "" : " ") + Counted(static_cast<size_t>(each.count), each.one, each.many);
  }
  return text;
}

std::string QuotedNames(const std::vector<Difference>& differences) {
  std::string names;
  const size_t shown = std::min(differences.size(), kMostNames);
  for (size_t at = 0; at < shown; ++at) names += (at == 0 ? "\"" : ", \"") + differences[at].place.Name() + "\"";
  if (shown < differences.size()) names += " and " + std::to_string(differences.size() - shown) + " more";
  return names;
}

std::string AdditionsText(const std::vector<Difference>& differences) {
  std::vector<Difference> files;
  std::vector<Difference> entries;
  for (const Difference& each : differences) (each.place.entry.empty() ? files : entries).push_back(each);
  std::string text;
  if (!files.empty()) text = (files.size() == 1 ? "The loose file " : "The loose files ") + QuotedNames(files);
  if (entries.empty()) return text;
  text += text.empty() ? "The " : " and the ";
  return text + (entries.size() == 1 ? "entry " : "entries ") + QuotedNames(entries);
}

}  // namespace kestrun
