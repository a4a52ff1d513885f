#include "desktop/win32/system/win32_background.h"

#include <chrono>
#include <thread>
#include <utility>

#include "desktop/win32/system/message_window.h"
#include "forms/form.h"
#include "platform/command_result.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kWindowClass = L"KestrunBackground";
constexpr UINT kFinished = WM_APP + 1;
constexpr auto kLongestWait = std::chrono::seconds(3);

struct Task {
  std::function<void()> work;
  std::function<void()> done;
};

}  // namespace

// What both threads see.
struct Win32Background::Shared {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Task> waiting;
  std::deque<std::function<void()>> finished;
  HWND window = nullptr;
  bool has_thread = false;
  bool ends = false;
  bool is_working = false;
};

Win32Background::Win32Background() : shared_(std::make_shared<Shared>()) {
  window_ = MakeMessageWindow(kWindowClass, &Win32Background::Handle, this);
  shared_->window = window_.get();
}

Win32Background::~Win32Background() {
  std::unique_lock lock(shared_->mutex);
  shared_->ends = true;
  shared_->waiting.clear();
  shared_->changed.notify_all();
  if (shared_->changed.wait_for(lock, kLongestWait, [this] { return !shared_->is_working; })) return;
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitCode()));
}

void Win32Background::Run(std::function<void()> work, std::function<void()> done) {
  const std::lock_guard lock(shared_->mutex);
  shared_->waiting.push_back({std::move(work), std::move(done)});
  shared_->changed.notify_all();
  if (std::exchange(shared_->has_thread, true)) return;
  std::thread([shared = shared_] { RunThread(shared); }).detach();
}

void Win32Background::RunThread(const std::shared_ptr<Shared>& shared) {
  std::unique_lock lock(shared->mutex);
  for (;;) {
    shared->changed.wait(lock, [&] { return shared->ends || !shared->waiting.empty(); });
    if (shared->ends) return;
    Task task = std::move(shared->waiting.front());
    shared->waiting.pop_front();
    shared->is_working = true;
    lock.unlock();
    task.work();
    lock.lock();
    shared->is_working = false;
    shared->finished.push_back(std::move(task.done));
    shared->changed.notify_all();
    if (!shared->ends) PostMessageW(shared->window, kFinished, 0, 0);
  }
}

LRESULT CALLBACK Win32Background::Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* background = reinterpret_cast<Win32Background*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!background || message != kFinished) return DefWindowProcW(window, message, first, second);
  background->RunFinished();
  return 0;
}

void Win32Background::RunFinished() {
  std::function<void()> done;
  {
    const std::lock_guard lock(shared_->mutex);
    if (shared_->finished.empty()) return;
    done = std::move(shared_->finished.front());
    shared_->finished.pop_front();
  }
  DispatchEvent(nullptr, done);
}

}  // namespace kestrun
