// The small services of Windows: the program, settings, shell, processes, internet, clipboard, and the code page.
#pragma once

#include "base/code_page.h"
#include "platform/platform.h"

namespace kestrun {

// The system's ANSI code page, or the one of that number.
class SystemCodePage final : public CodePage {
 public:
  SystemCodePage();
  explicit SystemCodePage(unsigned page) : page_(page) {}
  [[nodiscard]] std::string Encode(std::string_view utf8) const override;
  [[nodiscard]] std::string Decode(std::string_view bytes) const override;

 private:
  unsigned page_;
};

class Win32Program final : public Program {
 public:
  [[nodiscard]] std::string Folder() override;
  [[nodiscard]] std::string ExeName() override;
  [[nodiscard]] std::string CommandLine() override;
  [[nodiscard]] Version ProgramVersion() override;
  [[nodiscard]] static int32_t InstanceNumber();
  [[nodiscard]] Bytes Resource(std::string_view type, int number) override;
};

// The branch of the user's registry where GetSetting and SaveSetting have always kept their values.
class Win32UserSettings final : public UserSettings {
 public:
  [[nodiscard]] std::optional<std::string> Get(std::string_view application, std::string_view section,
                                               std::string_view key) override;
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;
  void Delete(std::string_view application, std::string_view section, std::string_view key) override;
};

class Win32Registry final : public Registry {
 public:
  [[nodiscard]] std::optional<RegistryValue> ReadValue(RegistryRoot root, std::string_view key,
                                                       std::string_view name) override;
  bool WriteValue(RegistryRoot root, std::string_view key, std::string_view name, const RegistryValue& value) override;
  [[nodiscard]] bool HasKey(RegistryRoot root, std::string_view key) override;
  bool CreateKey(RegistryRoot root, std::string_view key) override;
  bool DeleteKey(RegistryRoot root, std::string_view key) override;
};

class Win32Shell final : public Shell {
 public:
  int Open(std::string_view operation, std::string_view file, std::string_view parameters, std::string_view directory,
           int show_command) override;
  bool WriteShortcut(std::string_view link, const Shortcut& shortcut) override;
  [[nodiscard]] std::string TemporaryFolder() override;
  [[nodiscard]] std::string WindowsFolder() override;
  [[nodiscard]] std::string SystemFolder() override;
  [[nodiscard]] std::string ShellFolder(int csidl) override;
};

class Win32Processes final : public Processes {
 public:
  [[nodiscard]] std::vector<std::string> RunningNames() override;
  [[nodiscard]] std::vector<std::string> HoldersOf(std::string_view path) override;
  void EndProcess() override;
};

class Win32Internet final : public Internet {
 public:
  [[nodiscard]] bool IsUrl(std::string_view text) override;
  [[nodiscard]] bool IsConnected() override;
  [[nodiscard]] int DownloadToFile(std::string_view url, std::string_view path) override;
  [[nodiscard]] std::unique_ptr<HttpSession> OpenSession() override;
};

class Win32Clipboard final : public Clipboard {
 public:
  [[nodiscard]] std::string Text() override;
  // Error 521 when another program keeps the clipboard to itself, here and below.
  void SetText(std::string_view text) override;
  [[nodiscard]] static std::optional<DecodedPicture> Picture();
  static void SetPicture(const DecodedPicture& picture);
  static void Clear();
};

}  // namespace kestrun
