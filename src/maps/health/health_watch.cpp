#include "maps/health/health_watch.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/background_work.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr uint64_t kBelievedMs = 10'000;
constexpr size_t kBatch = 16;
// More than any screen shows at once.
constexpr size_t kMostWaiting = 256;
constexpr size_t kMostKnown = 50'000;

// One of the files that are read together.
struct Wanted {
  std::string path;
  std::optional<MapFacts> facts;  // as they were known, then as they are
};

void ReadAll(FileSystem& files, std::vector<Wanted>& batch) {
  MapFactsReader reader(files);
  for (Wanted& each : batch) each.facts = reader.Read(each.path, each.facts);
}

}  // namespace

struct HealthWatch::State : std::enable_shared_from_this<State> {
  struct Entry {
    std::optional<MapFacts> facts;
    uint64_t read_ms = 0;
    bool is_old = true;
    bool is_waiting = false;
  };

  std::function<void()> changed;
  std::unordered_map<std::string, Entry> entries;
  std::unordered_map<std::string, MapFacts> addresses;
  std::vector<std::string> waiting;  // the last one is read first
  bool is_reading = false;

  [[nodiscard]] static bool IsFresh(const Entry& entry) {
    return !entry.is_old && platform().clock().NowMs() - entry.read_ms < kBelievedMs;
  }

  void Want(const std::string& path, Entry& entry) {
    if (entry.is_waiting) return;
    entry.is_waiting = true;
    waiting.push_back(path);
    if (waiting.size() > kMostWaiting) {
      entries[waiting.front()].is_waiting = false;
      waiting.erase(waiting.begin());
    }
    if (!is_reading) ReadNext();
  }

  void ReadNext() {
    if (waiting.empty()) return;
    is_reading = true;
    const auto batch = std::make_shared<std::vector<Wanted>>();
    while (!waiting.empty() && batch->size() < kBatch) {
      batch->push_back({waiting.back(), entries[waiting.back()].facts});
      waiting.pop_back();
    }
    RunInBackground([batch, &files = platform().files()] { ReadAll(files, *batch); },
                    [batch, weak = weak_from_this()] {
                      if (const auto state = weak.lock()) state->TakeIn(*batch);
                    });
  }

  void TakeIn(const std::vector<Wanted>& batch) {
    is_reading = false;
    bool has_changed = false;
    for (const Wanted& each : batch) {
      Entry& entry = entries[each.path];
      has_changed = has_changed || entry.facts != each.facts;
      entry = {each.facts, platform().clock().NowMs(), false, false};
    }
    ReadNext();
    if (has_changed) changed();
  }
};

HealthWatch::HealthWatch(std::function<void()> changed) : state_(std::make_shared<State>()) {
  state_->changed = std::move(changed);
}

HealthWatch::~HealthWatch() = default;

const MapFacts* HealthWatch::Look(const std::string& path) {
  if (state_->entries.size() > kMostKnown && !state_->is_reading) {
    state_->entries.clear();
    state_->waiting.clear();
  }
  State::Entry& entry = state_->entries[path];
  if (!State::IsFresh(entry)) state_->Want(path, entry);
  return entry.facts ? &*entry.facts : nullptr;
}

void HealthWatch::Keep(const std::string& address, const MapFacts& facts) { state_->addresses[address] = facts; }

const MapFacts* HealthWatch::Kept(const std::string& address) const {
  const auto kept = state_->addresses.find(address);
  return kept == state_->addresses.end() ? nullptr : &kept->second;
}

void HealthWatch::LookAgain() {
  for (auto& [path, entry] : state_->entries) entry.is_old = true;
}

}  // namespace kestrun
