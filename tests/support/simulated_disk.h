// Files on a simulated disk that keeps apart what programs see and what a power cut leaves, and that lets a failure, a
// kill of the process or a power cut happen at the n-th call. A disk writes whole blocks of 512 bytes.
//
// Not modelled: times, and bytes that a disk forgets after it has been told to keep them. Names are flat; a folder that
// was made takes what is in it along when its own name is lost.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/files.h"

namespace kestrun {

enum class Fault {
  kNone,
  kFailure,   // one call raises; what it was to do is done by half
  kKill,      // the process is gone; what it has written stays
  kPowerCut,  // the process is gone, and of what was not flushed any part is lost, in any order
};

// Ends the simulated process. Not derived from std::exception: nothing in the program catches it.
struct ProcessEnded {};

class SimulatedDisk final : public FileSystem {
 public:
  // How room is reserved: without a trace, or by making the file longer, as on Windows.
  enum class Room { kUnseen, kZeros };

  explicit SimulatedDisk(Room room = Room::kUnseen) : room_(room) {}

  // The fault happens at the call with that number, counted from 0.
  void Arm(Fault fault, int call, unsigned seed = 1) {
    fault_ = fault;
    left_ = call;
    random_.seed(seed);
  }
  [[nodiscard]] bool HasHappened() const { return left_ < 0; }
  void Disarm() { fault_ = Fault::kNone; }
  // How long each file may become.
  void LimitBytes(uint64_t bytes) { limit_ = bytes; }

  // The machine starts again: what the fault left is there, all turns are free.
  void StartAgain() {
    if (ended_ && fault_ == Fault::kPowerCut) LoseWhatWasNotFlushed();
    Restart();
  }
  // The power goes after the last call.
  void CutPower(unsigned seed) {
    random_.seed(seed);
    LoseWhatWasNotFlushed();
    Restart();
  }

  // Nothing for a file that is not there.
  [[nodiscard]] std::optional<Bytes> Content(const std::string& name) const {
    const auto found = names_.find(name);
    if (found == names_.end()) return std::nullopt;
    return found->second->live;
  }
  void Put(const std::string& name, Bytes bytes) {
    names_[name] = std::make_shared<Node>(Node{bytes, bytes, {}});
    durable_names_[name] = names_[name];
  }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> all;
    for (const auto& [name, node] : names_) all.push_back(name);
    return all;
  }

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    Count();
    const std::string name(path);
    auto found = names_.find(name);
    if (found == names_.end()) {
      if (mode == OpenMode::kRead) Raise(error::kFileNotFound);
      found = names_.emplace(name, std::make_shared<Node>()).first;
      pending_names_.push_back({name, found->second});
    }
    if (mode == OpenMode::kCreate) found->second->Apply({0, {}, 0});
    return std::make_unique<SimulatedFile>(*this, found->second);
  }
  bool Exists(std::string_view path) override { return names_.contains(std::string(path)); }
  bool IsFolder(std::string_view path) override { return folders_.contains(std::string(path)); }
  void Copy(std::string_view, std::string_view) override { Raise(error::kPermissionDenied); }
  void Delete(std::string_view path) override {
    Count();
    if (names_.erase(std::string(path)) == 0) Raise(error::kFileNotFound);
    pending_names_.push_back({std::string(path), nullptr});
  }
  void Rename(std::string_view from, std::string_view to) override {
    if (Exists(to)) Raise(error::kFileAlreadyExists);
    Replace(from, to);
  }
  void Replace(std::string_view from, std::string_view to) override {
    Count();
    const auto node = names_.at(std::string(from));
    names_.erase(std::string(from));
    names_[std::string(to)] = node;
    pending_names_.push_back({std::string(from), nullptr});
    pending_names_.push_back({std::string(to), node});
  }
  void MakeFolder(std::string_view path) override {
    Count();
    const auto node = std::make_shared<Node>();
    names_[std::string(path)] = node;
    folders_.insert(std::string(path));
    made_folders_.insert(std::string(path));
    pending_names_.push_back({std::string(path), node});
  }
  void RemoveFolder(std::string_view) override { Raise(error::kPermissionDenied); }
  std::vector<FolderEntry> List(std::string_view) override { return {}; }
  uint64_t WriteTime(std::string_view) override { return Count(), 0; }
  void SetWriteTime(std::string_view, uint64_t) override { Count(); }
  void SetLocalTimes(std::string_view, const LocalFileTimes&) override {}
  std::string CurrentFolder() override { return "C:\\"; }
  void FlushFolder(std::string_view folder) override {
    if (fault_ != Fault::kFailure) Count();  // it never raises
    for (const auto& [name, node] : pending_names_) {
      if (FolderPart(name) == folder) SetDurable(name, node);
    }
    std::erase_if(pending_names_, [&](const NameStep& step) { return FolderPart(step.name) == folder; });
  }
  std::string TruePath(std::string_view path) override { return std::string(path); }
  std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view) override {
    Count();
    if (!turns_.insert(std::string(path)).second) return nullptr;
    return std::make_unique<Turn>(*this, std::string(path));
  }

 private:
  static constexpr uint64_t kBlock = 512;

  // One change of a file that has not reached the disk for sure; without bytes it cuts the file at `cut`.
  struct Step {
    uint64_t offset = 0;
    Bytes bytes;
    std::optional<uint64_t> cut;

    void ApplyTo(Bytes& content) const {
      if (cut) return content.resize(static_cast<size_t>(*cut));
      content.resize(std::max<size_t>(content.size(), static_cast<size_t>(offset) + bytes.size()));
      std::copy(bytes.begin(), bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(offset));
    }
  };

  struct Node {
    Bytes live;
    Bytes durable;
    std::vector<Step> pending;

    void Apply(const Step& step) {
      step.ApplyTo(live);
      pending.push_back(step);
    }
  };

  struct NameStep {
    std::string name;
    std::shared_ptr<Node> node;  // null when the name goes
  };

  class Turn final : public FileLock {
   public:
    Turn(SimulatedDisk& disk, std::string path) : disk_(disk), path_(std::move(path)) {}
    ~Turn() override { disk_.turns_.erase(path_); }

   private:
    SimulatedDisk& disk_;
    std::string path_;
  };

  class SimulatedFile final : public File {
   public:
    SimulatedFile(SimulatedDisk& disk, std::shared_ptr<Node> node) : disk_(disk), node_(std::move(node)) {}
    uint64_t Size() override { return disk_.Count(), node_->live.size(); }
    size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
      disk_.Count();
      const Bytes& live = node_->live;
      if (offset >= live.size()) return 0;
      const size_t count = std::min<size_t>(buffer.size(), live.size() - static_cast<size_t>(offset));
      std::copy_n(live.begin() + static_cast<std::ptrdiff_t>(offset), count, buffer.begin());
      return count;
    }
    // What is cut off by a fault ends with a block.
    void WriteAt(uint64_t offset, ByteView bytes) override {
      if (disk_.IsNext()) WriteBlocks(offset, bytes.first(WholeBlocks(offset, bytes.size() / 2)));
      disk_.Count();
      disk_.RequireRoom(offset + bytes.size());
      WriteBlocks(offset, bytes);
    }
    void Flush() override {
      disk_.Count();
      node_->durable = node_->live;
      node_->pending.clear();
    }
    void Truncate(uint64_t bytes) override { disk_.Count(), node_->Apply({0, {}, bytes}); }
    void Reserve(uint64_t bytes) override {
      disk_.Count();
      disk_.RequireRoom(bytes);
      if (disk_.room_ == Room::kZeros) ReserveByZeros(bytes);
    }
    void Close() override { disk_.Count(); }

   private:
    static size_t WholeBlocks(uint64_t offset, size_t count) {
      const size_t last = static_cast<size_t>((offset + count) % kBlock);
      return count > last ? count - last : 0;
    }
    void WriteBlocks(uint64_t offset, ByteView bytes) {
      while (!bytes.empty()) {
        const size_t count = std::min<size_t>(bytes.size(), static_cast<size_t>(kBlock - offset % kBlock));
        node_->Apply({offset, Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)), std::nullopt});
        offset += count;
        bytes = bytes.subspan(count);
      }
    }

    SimulatedDisk& disk_;
    std::shared_ptr<Node> node_;
  };

  [[nodiscard]] bool IsNext() const { return fault_ != Fault::kNone && left_ == 0 && !ended_; }

  void Count() {
    if (ended_) throw ProcessEnded();
    if (fault_ == Fault::kNone || left_-- != 0) return;
    if (fault_ == Fault::kFailure) Raise(error::kDeviceIo);
    ended_ = true;
    throw ProcessEnded();
  }

  void RequireRoom(uint64_t bytes) const {
    if (bytes > limit_) Raise(error::kDiskFull);
  }

  void SetDurable(const std::string& name, const std::shared_ptr<Node>& node) {
    if (node) {
      durable_names_[name] = node;
    } else {
      durable_names_.erase(name);
    }
  }

  [[nodiscard]] bool Toss() { return random_() % 2 == 0; }

  void LoseWhatWasNotFlushed() {
    for (const auto& [name, node] : pending_names_) {
      if (Toss()) SetDurable(name, node);
    }
    names_ = durable_names_;
    std::erase_if(folders_, [&](const std::string& folder) { return !names_.contains(folder); });
    std::erase_if(names_, [&](const auto& row) { return IsInLostFolder(row.first); });
    for (const auto& [name, node] : names_) {
      for (const Step& step : node->pending) {
        if (Toss()) step.ApplyTo(node->durable);
      }
      node->live = node->durable;
    }
  }

  [[nodiscard]] bool IsInLostFolder(const std::string& name) const {
    const std::string folder(FolderPart(name));
    return made_folders_.contains(folder) && !folders_.contains(folder);
  }

  void Restart() {
    ended_ = false;
    fault_ = Fault::kNone;
    turns_.clear();
    pending_names_.clear();
    durable_names_ = names_;
    for (const auto& [name, node] : names_) {
      node->durable = node->live;
      node->pending.clear();
    }
  }

  Room room_;
  std::map<std::string, std::shared_ptr<Node>> names_;
  std::map<std::string, std::shared_ptr<Node>> durable_names_;
  std::vector<NameStep> pending_names_;
  std::set<std::string> folders_;       // those that are there
  std::set<std::string> made_folders_;  // those that ever were
  std::set<std::string> turns_;
  Fault fault_ = Fault::kNone;
  int left_ = -1;
  uint64_t limit_ = UINT64_MAX;
  bool ended_ = false;
  std::mt19937 random_;
};

}  // namespace kestrun
