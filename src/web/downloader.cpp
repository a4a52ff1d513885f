#include "web/downloader.h"

#include <algorithm>
#include <charconv>

#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/form.h"
#include "forms/member_rows.h"
#include "platform/platform.h"
#include "web/background_request.h"
#include "web/file_receiver.h"

namespace kestrun {
namespace {

constexpr int kSecondMs = 1000;
constexpr uint32_t kLookEveryMs = 10;

constexpr Member kRows[]{MethodRow<&Downloader::BeginDownload>("BeginDownload", "Url, FilePath, Wait")};
const MemberTable kTable{&Control::kControlMembers, kRows};

int NumberIn(const std::string& text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

// One download on its way.
struct Downloader::Read {
  Read(const std::string& url, const std::string& to)
      : path(to), receiver(to), request(FreshFileRequest(url), receiver) {}

  [[nodiscard]] std::string FailureText(const std::string& why) const {
    const bool is_refused = receiver.Status() != 0 && (receiver.Status() < 200 || receiver.Status() > 299);
    return is_refused ? "The server answers with status " + std::to_string(receiver.Status()) + "." : why;
  }

  std::string path;
  FileReceiver receiver;
  BackgroundRequest request;
  uint64_t shown_bytes = 0;
  bool is_busy = false;  // inside one of its own events
};

// Ends the download when its last event has run, also when that event raises.
class Downloader::Ending {
 public:
  explicit Ending(Downloader& downloader) : downloader_(downloader) {}
  ~Ending() { downloader_.End(); }
  Ending(const Ending&) = delete;
  Ending& operator=(const Ending&) = delete;

 private:
  Downloader& downloader_;
};

Downloader::Downloader(Form* form, std::string name, int index) : CompositeControl(form, std::move(name), index) {
  TmrSpeed.Enabled = false;
  TmrSpeed.Interval = kSecondMs;
  TmrSpeed.Tick = [this] { TmrSpeed.Tag = std::to_string(NumberIn(TmrSpeed.Tag) + 1); };
}

Downloader::~Downloader() { StopLooking(); }

const MemberTable& Downloader::Members() const { return kTable; }

void Downloader::Disconnect() {
  Cancel();
  CompositeControl::Disconnect();
}

bool Downloader::BeginDownload(const std::string& Url, const std::string& FilePath, bool Wait) {
  const Ref<Downloader> keep(this);
  finished_ = false;
  error_ = false;
  TmrSpeed.Tag = "0";
  TmrSpeed.Enabled = true;
  url_ = Url;
  if (!Attempt([&] { error_ = !Start(Url, FilePath); }) || error_) {
    TmrSpeed.Enabled = IsDownloading();
    return false;
  }
  if (Wait) this->Wait();
  return !error_;
}

bool Downloader::Start(const std::string& url, const std::string& path) {
  if (!form()) return false;
  auto read = std::make_shared<Read>(url, path);
  std::erase_if(reads_, [&](const std::shared_ptr<Read>& other) { return EqualsNoCase(other->path, path); });
  reads_.push_back(std::move(read));
  if (looking_ == 0) {
    looking_ = platform().clock().StartTimer(kLookEveryMs, [this] { AdvanceAll(); });
  }
  return true;
}

void Downloader::Wait() {
  while (!finished_) {
    Sleep(1);
    RunPendingEvents();
  }
}

void Downloader::AdvanceAll() {
  const Ref<Downloader> keep(this);
  const std::vector<std::shared_ptr<Read>> reads = reads_;
  for (const std::shared_ptr<Read>& read : reads) {
    if (Holds(*read) && !read->is_busy) DispatchEvent(form(), [&] { Advance(read); });
  }
}

bool Downloader::Holds(const Read& read) const {
  return std::ranges::any_of(reads_, [&](const auto& held) { return held.get() == &read; });
}

void Downloader::Advance(const std::shared_ptr<Read>& read) {
  read->is_busy = true;
  bool goes_on = false;
  std::string why;
  const auto receive = [&] {
    goes_on = read->request.Advance();
    if (!goes_on && read->receiver.Size() > 0) read->receiver.PutInPlace();
  };
  if (!Attempt(receive, [&](const RuntimeError& failure) { why = failure.description(); })) return Fail(read, why);
  DispatchEvent(form(), [&] { ShowProgress(*read); });  // a fault is told, and the download goes on
  if (!Holds(*read)) return;                            // its window has left it
  read->is_busy = false;
  if (!goes_on) Complete(read);
}

void Downloader::ShowProgress(Read& read) {
  const uint64_t received = read.request.ReceivedBytes();
  const std::optional<uint64_t> total = read.request.TotalBytes();
  Receiving({url_, received, total});
  if (!Holds(read)) return;
  if (total.value_or(0) == 0 || received == read.shown_bytes) return;
  read.shown_bytes = received;
  constexpr double kKilobyte = 1024;
  const int seconds = NumberIn(TmrSpeed.Tag);
  const double kilobytes = static_cast<double>(received) / kKilobyte;
  DownloadProgress(static_cast<int64_t>(received), static_cast<int64_t>(*total), read.path,
                   seconds == 0 ? kilobytes : kilobytes / seconds);
}

void Downloader::Complete(const std::shared_ptr<Read>& read) {
  if (read->receiver.Size() == 0) return Fail(read, "The file on the server is empty.");
  Forget(read);
  const Ending ending(*this);
  DownloadComplete(static_cast<int64_t>(read->receiver.Size()), read->path);
}

// What has arrived is deleted before anybody hears of it: a handler may fetch the same file again.
void Downloader::Fail(const std::shared_ptr<Read>& read, const std::string& why) {
  read->receiver.Discard();
  Forget(read);
  error_ = true;
  const Ending ending(*this);
  DownloadError(read->path, read->receiver.Status(), read->FailureText(why), url_);
}

void Downloader::Cancel() {
  if (reads_.empty()) return;
  for (const std::shared_ptr<Read>& read : reads_) read->receiver.Discard();
  reads_.clear();
  StopLooking();
  error_ = true;
  End();
}

void Downloader::End() {
  TmrSpeed.Enabled = IsDownloading();
  finished_ = true;
}

void Downloader::Forget(const std::shared_ptr<Read>& read) {
  std::erase(reads_, read);
  if (reads_.empty()) StopLooking();
}

void Downloader::StopLooking() {
  if (looking_ != 0) platform().clock().StopTimer(looking_);
  looking_ = 0;
}

}  // namespace kestrun
