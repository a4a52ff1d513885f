// Fetches a file from the web in the background and tells by events how far it is. The file stands under its name once
// it is whole, and never before. A control that is never seen.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "forms/composite_control.h"
#include "forms/timer.h"
#include "web/fetch_scope.h"

namespace kestrun {

class Downloader final : public CompositeControl {
 public:
  Downloader(Form* form, std::string name, int index);
  ~Downloader() override;

  // Bytes read, bytes in all, path, kilobytes per second: whenever something has arrived of a file whose size is known.
  // The speed means nothing in the first second.
  Event<int64_t, int64_t, const std::string&, double> DownloadProgress;
  // Path, the server's status (0 where there was none), a sentence, the address of the download that was begun last. A
  // file without a byte is a failure, whatever the status.
  Event<const std::string&, int, const std::string&, const std::string&> DownloadError;
  // Bytes in all, path. The file is there.
  Event<int64_t, const std::string&> DownloadComplete;
  // The same progress for files of any size, known or not, several times a second from the start on.
  Event<const FetchState&> Receiving;

  // Begins to fetch the newest version of a file; what stands at the path is replaced. Gives true at once, false for an
  // address that cannot be asked for. With `Wait` it returns when the download has ended, and gives whether the file is
  // there; the message loop runs meanwhile. A download to the same path that still runs is left; others go on.
  bool BeginDownload(const std::string& Url, const std::string& FilePath, bool Wait);
  // Leaves all downloads, without an event. One that is waited for gives false.
  void Cancel();
  [[nodiscard]] bool IsDownloading() const { return !reads_.empty(); }

  // Counts the seconds of the running download in its Tag.
  Timer& TmrSpeed = AddConstituent<Timer>("TmrSpeed");

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "Downloader"; }
  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Disconnect() override;

 private:
  struct Read;
  class Ending;
  [[nodiscard]] bool Start(const std::string& url, const std::string& path);
  void Wait();
  void AdvanceAll();
  void Advance(const std::shared_ptr<Read>& read);
  // False once the window has left the download.
  [[nodiscard]] bool Holds(const Read& read) const;
  void ShowProgress(Read& read);
  void Complete(const std::shared_ptr<Read>& read);
  void Fail(const std::shared_ptr<Read>& read, const std::string& why);
  void End();
  void Forget(const std::shared_ptr<Read>& read);
  void StopLooking();

  std::string url_;
  bool finished_ = false;
  bool error_ = false;
  std::vector<std::shared_ptr<Read>> reads_;
  TimerId looking_ = 0;
};

}  // namespace kestrun
