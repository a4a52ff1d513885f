#include "styles/check/unseen_desktop.h"

#include <utility>

#include "base/runtime_error.h"

namespace kestrun {
namespace {

// A window that asks until it gets an answer is broken off.
constexpr int kMostQuestions = 1000;

class UnseenDialogs final : public Dialogs {
 public:
  BoxAnswer ShowMessage(const MessageBoxRequest& request) override {
    if (hear) hear(request.text);
    CountQuestion();
    switch (request.buttons) {
      case BoxButtons::kOk: return BoxAnswer::kOk;
      case BoxButtons::kAbortRetryIgnore: return BoxAnswer::kAbort;
      case BoxButtons::kYesNo: return BoxAnswer::kNo;
      default: return BoxAnswer::kCancel;
    }
  }
  std::optional<std::string> AskText(std::string_view, std::string_view, std::string_view) override {
    return Nothing();
  }
  std::optional<std::string> PickFile(const FileDialogRequest&) override { return Nothing(); }
  std::optional<std::string> PickFolder(std::string_view, int, std::string_view) override { return Nothing(); }
  std::optional<uint32_t> PickColor(uint32_t) override {
    CountQuestion();
    return std::nullopt;
  }

  void StartCounting() { questions_ = 0; }
  std::function<void(const std::string& text)> hear;

 private:
  void CountQuestion() {
    if (++questions_ > kMostQuestions) Raise(error::kPermissionDenied);
  }
  std::optional<std::string> Nothing() {
    CountQuestion();
    return std::nullopt;
  }

  int questions_ = 0;
};

class UnseenClipboard final : public Clipboard {
 public:
  std::string Text() override { return text_; }
  void SetText(std::string_view text) override { text_ = text; }

 private:
  std::string text_;
};

// A machine on which nothing is installed and nothing runs.
class UnseenSettings final : public UserSettings {
 public:
  std::optional<std::string> Get(std::string_view, std::string_view, std::string_view) override { return std::nullopt; }
  void Save(std::string_view, std::string_view, std::string_view, std::string_view) override {}
  void Delete(std::string_view, std::string_view, std::string_view) override {}
};

class UnseenRegistry final : public Registry {
 public:
  std::optional<RegistryValue> ReadValue(RegistryRoot, std::string_view, std::string_view) override {
    return std::nullopt;
  }
  bool WriteValue(RegistryRoot, std::string_view, std::string_view, const RegistryValue&) override { return false; }
  bool HasKey(RegistryRoot, std::string_view) override { return false; }
  bool CreateKey(RegistryRoot, std::string_view) override { return false; }
  bool DeleteKey(RegistryRoot, std::string_view) override { return false; }
};

class UnseenShell final : public Shell {
 public:
  int Open(std::string_view, std::string_view, std::string_view, std::string_view, int) override { return 0; }
  bool WriteShortcut(std::string_view, const Shortcut&) override { return false; }
  std::string TemporaryFolder() override { return "C:\\unseen"; }
  std::string WindowsFolder() override { return {}; }
  std::string SystemFolder() override { return {}; }
  std::string ShellFolder(int) override { return {}; }
};

class UnseenProcesses final : public Processes {
 public:
  std::vector<std::string> RunningNames() override { return {}; }
  std::vector<std::string> HoldersOf(std::string_view) override { return {}; }
  void EndProcess() override {}
};

class UnseenSession final : public HttpSession {
 public:
  void Exchange(const HttpRequest&, HttpReceiver&) override { RefuseExchange("There is no connection."); }
  std::unique_ptr<HttpExchange> Start(const HttpRequest&) override { RefuseExchange("There is no connection."); }
};

class UnseenInternet final : public Internet {
 public:
  explicit UnseenInternet(Internet& real) : real_(real) {}
  bool IsUrl(std::string_view text) override { return real_.IsUrl(text); }
  bool IsConnected() override { return false; }
  int DownloadToFile(std::string_view, std::string_view) override { return 1; }
  std::unique_ptr<HttpSession> OpenSession() override { return std::make_unique<UnseenSession>(); }

 private:
  Internet& real_;
};

class UnseenGame final : public GameMemory {
 public:
  uint8_t ReadByteAt(int32_t) override { return 0; }
  int32_t ReadLongAt(int32_t) override { return 0; }
  void PressKey(int32_t) override {}
  void WriteTextAt(int32_t, std::string_view) override {}
  bool AttachToWindow(std::string_view) override { return false; }
  std::string Refusal() override { return {}; }
};

class UnseenGames final : public RunningGames {
 public:
  std::unique_ptr<GameMemory> MakeMemory(KeyDeliverySource) override { return std::make_unique<UnseenGame>(); }
};

}  // namespace

// What a window may learn without changing anything comes from the program's own platform.
class UnseenDesktop::Services final : public Platform {
 public:
  explicit Services(Platform& real)
      : real_(real),
        files_(real.program().Folder()),
        internet_(real.internet()),
        clock_(real.clock()),
        windowing_(real.windowing()) {}

  UnseenFiles& files() override { return files_; }
  Program& program() override { return real_.program(); }
  UserSettings& user_settings() override { return settings_; }
  Registry& registry() override { return registry_; }
  Shell& shell() override { return shell_; }
  Processes& processes() override { return processes_; }
  Internet& internet() override { return internet_; }
  UnseenDialogs& dialogs() override { return dialogs_; }
  Clipboard& clipboard() override { return clipboard_; }
  Pictures& pictures() override { return real_.pictures(); }
  UnseenClock& clock() override { return clock_; }
  UnseenWindowing& windowing() override { return windowing_; }
  RunningGames& running_games() override { return games_; }

 private:
  Platform& real_;
  UnseenFiles files_;
  UnseenSettings settings_;
  UnseenRegistry registry_;
  UnseenShell shell_;
  UnseenProcesses processes_;
  UnseenInternet internet_;
  UnseenDialogs dialogs_;
  UnseenClipboard clipboard_;
  UnseenClock clock_;
  UnseenWindowing windowing_;
  UnseenGames games_;
};

// Notes gradients; all else that styles do to windows needs a screen.
class UnseenDesktop::Effects final : public WindowEffects {
 public:
  void SetOpacity(WindowNumber, uint8_t) override {}
  void FillGradient(ContextNumber context, const std::array<GradientVertex, 2>& vertices) override {
    gradients[context] = {vertices[1].y, ColorOf(vertices[0]), ColorOf(vertices[1])};
  }
  std::optional<BitmapPixels> ReadBitmap(BitmapNumber, ContextNumber) override { return std::nullopt; }
  RegionNumber CreateRegion(std::span<const RegionRect>) override { return 0; }
  void UniteRegions(RegionNumber, RegionNumber) override {}
  void DeleteRegion(RegionNumber) override {}
  void PictureWindow(WindowNumber, const std::function<void(BitmapNumber, ContextNumber)>&) override {}
  void SetWindowRegion(WindowNumber, RegionNumber) override {}
  void PlaySoundAndWait(ByteView) override {}
  void StartSound(Bytes) override {}

  std::map<ContextNumber, DrawnGradient> gradients;

 private:
  static Color ColorOf(const GradientVertex& vertex) {
    const auto eight_bits = [](uint16_t channel) { return static_cast<uint8_t>(channel >> 8); };
    return Rgb(eight_bits(vertex.red), eight_bits(vertex.green), eight_bits(vertex.blue));
  }
};

namespace {

// The clipboard takes no picture and has none.
ScriptSystem UnseenScriptSystem() {
  ScriptSystem system;
  system.clipboard_picture = [] { return std::nullopt; };
  system.set_clipboard_picture = [](const DecodedPicture&) {};
  system.clear_clipboard = [] { platform().clipboard().SetText(""); };
  return system;
}

}  // namespace

UnseenDesktop::UnseenDesktop()
    : services_(std::make_unique<Services>(platform())),
      effects_(std::make_unique<Effects>()),
      installation_(*services_),
      effects_before_(InstallWindowEffects(effects_.get())),
      system_before_(InstallScriptSystem(UnseenScriptSystem())),
      background_before_(InstallBackgroundWork(nullptr)),
      rotation_before_(PresentRotation()) {}

// Windows go while their own clock is there.
UnseenDesktop::~UnseenDesktop() {
  services_->dialogs().hear = nullptr;
  services_->windowing().on_change = nullptr;
  Clear();
  SetPresentRotation(rotation_before_);
  InstallBackgroundWork(background_before_);
  InstallScriptSystem(std::move(system_before_));
  InstallWindowEffects(effects_before_);
}

UnseenFiles& UnseenDesktop::files() { return services_->files(); }
UnseenClock& UnseenDesktop::clock() { return services_->clock(); }
UnseenWindowing& UnseenDesktop::windowing() { return services_->windowing(); }

void UnseenDesktop::OnBox(std::function<void(const std::string& text)> hear) {
  services_->dialogs().hear = std::move(hear);
}

const DrawnGradient* UnseenDesktop::GradientOn(ContextNumber context) const {
  const auto found = effects_->gradients.find(context);
  return found == effects_->gradients.end() ? nullptr : &found->second;
}

void UnseenDesktop::Clear() {
  CloseAllWindows();
  services_->clock().Clear();
  services_->files().Clear();
  services_->dialogs().StartCounting();
  effects_->gradients.clear();
}

}  // namespace kestrun
