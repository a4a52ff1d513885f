#include "maps/health/list_check.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "maps/health/address_probe.h"
#include "platform/background_work.h"
#include "platform/folder_rights.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

constexpr size_t kBatch = 64;
// A server that does not answer takes twenty seconds: three rounds of so many fit into a minute.
constexpr size_t kMostQuestions = 40;
constexpr ptrdiff_t kMostOfOneServer = 6;
constexpr uint64_t kAsksForMs = 45'000;

// "maps.example" of "http://maps.example/Oasis.bms".
std::string HostOf(const std::string& url) {
  const size_t scheme = url.find("://");
  if (scheme == std::string::npos) return url;
  const size_t begin = scheme + 3;
  return url.substr(begin, url.find('/', begin) - begin);
}

std::string ClosedGameFolder() {
  const GameFolderUnasked unasked;
  std::string folder;
  Attempt([&] { folder = GameFolder(); });
  return IsClosedGameFolder(platform().files(), folder) ? folder : std::string();
}

struct Section {
  Health health;
  const char* heading;
};
constexpr std::array kSections{Section{Health::kBad, "Bad: these rows would fail"},
                               Section{Health::kDoubtful, "Doubtful: these rows may not do what is wanted"},
                               Section{Health::kUnknown, "Not checked"}};

std::string RowLines(const CheckedRow& row, size_t number) {
  std::string lines = "  Row " + std::to_string(number) + ": " + row.map + std::string(kCrLf);
  for (const std::string& reason : row.health.reasons) lines += "    " + reason + std::string(kCrLf);
  return lines;
}

std::string SectionText(const ListReport& report, const Section& section) {
  std::string lines;
  for (size_t row = 0; row < report.rows.size(); ++row) {
    if (report.rows[row].health.health == section.health) lines += RowLines(report.rows[row], row + 1);
  }
  return lines.empty() ? lines : std::string(kCrLf) + section.heading + std::string(kCrLf) + lines;
}

}  // namespace

// The rows that are files. The background has a share in it, since it may outlive the check.
struct ListCheck::Files {
  std::vector<size_t> rows;
  std::vector<std::string> paths;
  std::vector<MapFacts> facts;                // of as many rows as are read
  MapFactsReader reader{platform().files()};  // for the background alone
  bool is_reading = false;
};

bool IsClosedGameFolder(FileSystem& files, const std::string& folder) {
  return !folder.empty() && !MayMakeFilesIn(files, folder);
}

// A web address that is asked.
struct ListCheck::Question {
  explicit Question(std::string url) : address(std::move(url)), host(HostOf(address)), probe(address) {}
  std::string address;
  std::string host;
  AddressProbe probe;
};

int ListReport::Count(Health health) const {
  return static_cast<int>(
      std::count_if(rows.begin(), rows.end(), [health](const CheckedRow& row) { return row.health.health == health; }));
}

std::string CountText(const ListReport& report) {
  std::string text;
  for (const Health health : {Health::kBad, Health::kDoubtful, Health::kGood, Health::kUnknown}) {
    const int count = report.Count(health);
    if (count == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + std::string(HealthWord(health));
  }
  return text.empty() ? "no maps" : text;
}

std::string ReportText(const ListReport& report) {
  const std::string end(kCrLf);
  std::string text = "Check of " + report.list + end + "Maps: " + CountText(report) + "." + end;
  if (report.use.mission) text += "They go in as " + *report.use.mission + "." + end;
  if (report.is_cut_short) text += "The check was ended before it came to all rows." + end;
  if (!report.closed_game_folder.empty()) {
    text += end + "No map would go in: the game's folder needs administrator rights." + end + "  " +
            report.closed_game_folder + end;
  }
  for (const Section& section : kSections) text += SectionText(report, section);
  return text;
}

std::vector<int> SameRows(const std::vector<std::string>& rows) {
  std::unordered_map<std::string, std::vector<int>> places;
  for (size_t row = 0; row < rows.size(); ++row) places[MapKey(rows[row])].push_back(static_cast<int>(row));
  std::vector<int> same(rows.size());
  for (const auto& [key, found] : places) {
    for (const int row : found) {
      if (found.size() > 1) same[static_cast<size_t>(row)] = (row == found.front() ? found[1] : found.front()) + 1;
    }
  }
  return same;
}

ListCheck::ListCheck(std::string list, std::vector<std::string> rows, MapUse use)
    : list_(std::move(list)), rows_(std::move(rows)), use_(std::move(use)), files_(std::make_shared<Files>()) {
  for (size_t row = 0; row < rows_.size(); ++row) {
    if (!IsUrl(rows_[row])) {
      files_->rows.push_back(row);
      files_->paths.push_back(rows_[row]);
    } else if (++rows_of_address_[rows_[row]] == 1) {
      waiting_addresses_.push_back(rows_[row]);
    }
  }
}

ListCheck::~ListCheck() = default;

bool ListCheck::Advance() {
  if (is_over_) return false;
  is_over_ = !AdvanceFiles() && !AdvanceAddresses();
  return !is_over_;
}

bool ListCheck::AdvanceFiles() {
  Files& files = *files_;
  if (files.is_reading) return true;
  const size_t begin = files.facts.size();
  if (begin == files.paths.size()) return false;
  const size_t end = std::min(begin + kBatch, files.paths.size());
  files.is_reading = true;
  const auto read = std::make_shared<std::vector<MapFacts>>();
  RunInBackground(
      [shared = files_, read, begin, end] {
        for (size_t at = begin; at < end; ++at) read->push_back(shared->reader.Read(shared->paths[at]));
      },
      [shared = files_, read] {
        shared->facts.insert(shared->facts.end(), read->begin(), read->end());
        shared->is_reading = false;
      });
  return true;
}

bool ListCheck::AdvanceAddresses() {
  if (waiting_addresses_.empty() && questions_.empty()) return false;
  const uint64_t now_ms = platform().clock().NowMs();
  if (!asks_since_ms_) asks_since_ms_ = now_ms;
  const bool has_room = questions_.empty() || TakeAnswers(now_ms);
  if (now_ms - *asks_since_ms_ < kAsksForMs) {
    if (has_room) AskMore();
  } else {
    MapFacts not_asked;
    not_asked.state = MapFacts::State::kNoTime;
    for (const std::string& address : std::exchange(waiting_addresses_, {})) TakeFacts(address, not_asked);
  }
  return !questions_.empty() || !waiting_addresses_.empty();
}

// A server that says anything shows that the web goes on: the time counts anew, and runs out where nobody answers.
bool ListCheck::TakeAnswers(uint64_t now_ms) {
  const auto ended = std::erase_if(questions_, [&](const std::unique_ptr<Question>& question) {
    if (question->probe.Advance()) return false;
    if (question->probe.HasServerSpoken()) asks_since_ms_ = now_ms;
    TakeFacts(question->address, question->probe.facts());
    return true;
  });
  return ended > 0;
}

void ListCheck::TakeFacts(const std::string& address, const MapFacts& facts) {
  addresses_.emplace(address, facts);
  asked_rows_ += rows_of_address_[address];
}

void ListCheck::AskMore() {
  if (questions_.size() == kMostQuestions) return;
  std::erase_if(waiting_addresses_, [this](const std::string& address) {
    const std::string host = HostOf(address);
    const auto of_host = std::count_if(questions_.begin(), questions_.end(),
                                       [&](const std::unique_ptr<Question>& each) { return each->host == host; });
    if (questions_.size() == kMostQuestions || of_host == kMostOfOneServer) return false;
    questions_.push_back(std::make_unique<Question>(address));
    return true;
  });
}

bool ListCheck::IsWaiting() const { return !questions_.empty() || files_->is_reading; }

int ListCheck::DoneRows() const { return static_cast<int>(files_->facts.size()) + asked_rows_; }

std::string ListCheck::Task() const {
  const std::string rows = ": " + std::to_string(DoneRows()) + " of " + std::to_string(RowCount()) + " rows";
  return (questions_.empty() ? std::string("Looking at the files") : "Asking " + questions_.front()->host) + rows;
}

ListReport ListCheck::Report() const {
  std::vector<const MapFacts*> facts(rows_.size());
  for (size_t at = 0; at < files_->facts.size(); ++at) facts[files_->rows[at]] = &files_->facts[at];
  for (size_t row = 0; row < rows_.size(); ++row) {
    const auto asked = addresses_.find(rows_[row]);
    if (asked != addresses_.end()) facts[row] = &asked->second;
  }
  const std::vector<int> same = SameRows(rows_);
  ListReport report{list_, use_, {}, ClosedGameFolder(), !is_over_};
  for (size_t row = 0; row < rows_.size(); ++row) {
    report.rows.push_back({rows_[row], JudgeMap({rows_[row], facts[row], same[row]}, use_)});
  }
  return report;
}

}  // namespace kestrun
