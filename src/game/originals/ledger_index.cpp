#include "game/originals/ledger_index.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/sha256.h"
#include "base/text.h"

namespace kestrun::originals {
namespace {

constexpr char kTab = '\t';
constexpr char kComment = '#';

// The columns in their order. The hash stands last: a line that was cut off has none.
enum Column { kWhat, kWhen, kFolder, kFile, kEntry, kSource, kOver, kPackDate, kInfo, kLength, kHash, kColumns };

using Fields = std::array<std::string, kColumns>;

struct KindRow {
  EventKind kind;
  std::string_view word;
};
constexpr std::array kKinds{KindRow{EventKind::kKept, "kept"}, KindRow{EventKind::kNone, "none"},
                            KindRow{EventKind::kPut, "put"}, KindRow{EventKind::kDropped, "dropped"}};
// Stands for the hash of a file that was not there.
constexpr std::string_view kNoHash = "-";

constexpr std::string_view kHex = "0123456789ABCDEF";

bool NeedsEscape(char c) { return static_cast<unsigned char>(c) < ' ' || c == '%' || c == '\x7F'; }

// A name can hold what would end a column or a line.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (!NeedsEscape(c)) {
      escaped += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    escaped += '%';
    escaped += kHex[byte >> 4];
    escaped += kHex[byte & 0xF];
  }
  return escaped;
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (size_t at = 0; at < text.size(); ++at) {
    const size_t high = text[at] == '%' && at + 2 < text.size() ? kHex.find(text[at + 1]) : std::string_view::npos;
    const size_t low = high == std::string_view::npos ? high : kHex.find(text[at + 2]);
    if (low == std::string_view::npos) {
      plain += text[at];
      continue;
    }
    plain += static_cast<char>(high * 16 + low);
    at += 2;
  }
  return plain;
}

template <class Number>
bool ReadNumber(const std::string& text, Number& number) {
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failure == std::errc() && end == text.data() + text.size();
}

// A name that stands in one folder: no way out of it.
bool IsPlainName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find_first_of(std::string_view("\\/:\0", 4)) == name.npos;
}

bool ReadHash(const std::string& text, std::string& hash) {
  if (text == kNoHash) return hash.clear(), true;
  hash = text;
  return IsSha256Hex(text);
}

bool ReadPlace(const Fields& fields, Place& place) {
  place = {Unescaped(fields[kFolder]), Unescaped(fields[kFile]), Unescaped(fields[kEntry])};
  return !place.folder.empty() && place.folder.find('\0') == std::string::npos && IsPlainName(place.file);
}

bool ReadEvent(const Fields& fields, Event& event) {
  const auto* kind =
      std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& row) { return row.word == fields[kWhat]; });
  if (kind == kKinds.end() || !ReadPlace(fields, event.place)) return false;
  event.kind = kind->kind;
  event.when = Unescaped(fields[kWhen]);
  std::string hash;
  uint64_t length = 0;
  if (!ReadHash(fields[kHash], hash) || !ReadNumber(fields[kLength], length)) return false;
  if (event.kind == EventKind::kPut) {
    event.put = {hash, length, {}, Unescaped(fields[kSource]), event.when};
    return !hash.empty() && ReadHash(fields[kOver], event.put.over);
  }
  event.version = {hash, length, 0, 0, event.when};
  return hash.empty() == (event.kind == EventKind::kNone) && ReadNumber(fields[kPackDate], event.version.pack_date) &&
         ReadNumber(fields[kInfo], event.version.info);
}

bool ReadLine(std::string_view line, Event& event) {
  Fields fields;
  size_t column = 0;
  size_t start = 0;
  while (true) {
    const size_t tab = line.find(kTab, start);
    if (column == kColumns) return false;
    fields[column++] = line.substr(start, tab == line.npos ? line.npos : tab - start);
    if (tab == line.npos) break;
    start = tab + 1;
  }
  return column == kColumns && ReadEvent(fields, event);
}

Event KeptEvent(const Record& record, const KeptVersion& version) {
  return {version.IsAbsence() ? EventKind::kNone : EventKind::kKept, record.place, version, {}, version.when};
}

}  // namespace

std::string Place::Key() const { return ToLower(folder) + kTab + NameKey(); }

std::string Place::NameKey() const { return ToLower(file) + kTab + ToLower(entry); }

const KeptVersion* Record::Find(std::string_view sha256) const {
  const auto found = std::find_if(versions.begin(), versions.end(),
                                  [&](const KeptVersion& version) { return version.sha256 == sha256; });
  return found == versions.end() ? nullptr : &*found;
}

bool Record::IsOurs(std::string_view sha256) const {
  if (!put || sha256.empty()) return false;
  return sha256 == put->sha256 || (sha256 == put->over && Find(sha256) == nullptr);
}

Index Index::Parse(ByteView text) {
  Index index;
  std::string_view rest = AsChars(text);
  while (!rest.empty()) {
    const size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty() || line.front() == kComment) continue;
    Event event;
    if (ReadLine(line, event)) {
      index.Apply(event);
    } else {
      index.not_understood_.emplace_back(line);
    }
  }
  return index;
}

void Index::Apply(const Event& event) {
  const auto [row, is_new] = records_.try_emplace(event.place.Key());
  Record& record = row->second;
  if (is_new) {
    record.place = event.place;
    keys_of_same_name_[event.place.NameKey()].push_back(row->first);
  }
  switch (event.kind) {
    case EventKind::kPut: record.put = event.put; break;
    case EventKind::kKept:
    case EventKind::kNone: AddVersion(record, event.version); break;
    case EventKind::kDropped: DropVersion(record, event.version.sha256); break;
  }
}

void Index::AddVersion(Record& record, const KeptVersion& version) {
  if (record.Find(version.sha256)) return;
  record.versions.push_back(version);
  if (version.IsAbsence()) return;
  Held& held = contents_[version.sha256];
  if (held.versions++ == 0) {
    held.length = version.length;
    kept_bytes_ += version.length;
  }
  if (record.versions.size() > 1) further_.insert({version.when, {record.place.Key(), version.sha256}});
}

// The first version is never dropped, whatever a line says.
void Index::DropVersion(Record& record, std::string_view sha256) {
  const KeptVersion* const dropped = record.Find(sha256);
  if (!dropped || dropped == record.versions.data()) return;
  const Further further{record.place.Key(), dropped->sha256};
  const auto [first, last] = further_.equal_range(dropped->when);
  const auto at = std::find_if(first, last, [&](const auto& row) { return row.second == further; });
  if (at != last) further_.erase(at);
  if (const auto held = contents_.find(dropped->sha256); held != contents_.end() && --held->second.versions == 0) {
    kept_bytes_ -= held->second.length;
    contents_.erase(held);
  }
  record.versions.erase(record.versions.begin() + (dropped - record.versions.data()));
}

const Record* Index::Find(const Place& place) const {
  const auto found = records_.find(place.Key());
  return found == records_.end() ? nullptr : &found->second;
}

std::vector<const Record*> Index::FindInAnyFolder(const Place& place) const {
  std::vector<const Record*> found;
  const auto keys = keys_of_same_name_.find(place.NameKey());
  if (keys == keys_of_same_name_.end()) return found;
  for (const std::string& key : keys->second) found.push_back(&records_.at(key));
  return found;
}

const KeptVersion* Index::OldestFurther(Place& place) const {
  if (further_.empty()) return nullptr;
  const Further& oldest = further_.begin()->second;
  const Record& record = records_.at(oldest.place_key);
  place = record.place;
  return record.Find(oldest.sha256);
}

std::string Index::Compacted() const {
  std::string text(IndexHead());
  for (const auto& [key, record] : records_) {
    for (const KeptVersion& version : record.versions) text += LineOf(KeptEvent(record, version));
    if (record.put) text += LineOf({EventKind::kPut, record.place, {}, *record.put, record.put->when});
  }
  for (const std::string& line : not_understood_) text += line + std::string(kCrLf);
  return text;
}

std::string LineOf(const Event& event) {
  const bool is_put = event.kind == EventKind::kPut;
  const auto* kind =
      std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& row) { return row.kind == event.kind; });
  const auto hash_text = [](const std::string& hash) { return hash.empty() ? std::string(kNoHash) : hash; };
  const Fields fields{std::string(kind->word),
                      Escaped(event.when),
                      Escaped(event.place.folder),
                      Escaped(event.place.file),
                      Escaped(event.place.entry),
                      is_put ? Escaped(event.put.source) : std::string(),
                      is_put ? hash_text(event.put.over) : std::string(),
                      std::to_string(event.version.pack_date),
                      std::to_string(event.version.info),
                      std::to_string(is_put ? event.put.length : event.version.length),
                      hash_text(is_put ? event.put.sha256 : event.version.sha256)};
  std::string line = fields[0];
  for (size_t column = 1; column < fields.size(); ++column) line += kTab + fields[column];
  return line + std::string(kCrLf);
}

std::string_view IndexHead() {
  return "# What Kestrun replaced in the game, and what was there before. A content that was kept stands beside this "
         "file under its SHA-256.\r\n"
         "# what\twhen\tfolder\tfile\tentry\tput from\tput over\tpack date\tinfo\tlength\tSHA-256\r\n";
}

}  // namespace kestrun::originals
