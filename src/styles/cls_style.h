// A style in use: its identity, its open archive, and the script engine that holds its modules.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/ref.h"
#include "formats/pff/cls_pff.h"
#include "forms/form.h"
#include "script/hosting_engine.h"
#include "script/script_engine.h"
#include "styles/cls_system.h"
#include "styles/style_archive.h"

namespace kestrun {

// A line of an entry of a style's file; no entry and line 0 for no place.
struct StylePlace {
  std::string entry;
  int line = 0;
  friend bool operator==(const StylePlace&, const StylePlace&) = default;
};

// What went wrong in a style's scripts.
struct StyleScriptFault {
  std::string file;  // as the error dialogue names it: empty for what runs when a window loads
  ScriptError error;
  StylePlace place;
};

class ClsStyle final : public RefCounted {
 public:
  using EngineMaker = std::function<std::unique_ptr<ScriptEngine>()>;
  using ArchiveLoader = std::function<bool(ClsPFF& archive, const std::string& file)>;
  explicit ClsStyle(EngineMaker make_engine = &MakeHostingEngine, ArchiveLoader load_archive = &ClsPFF::LoadPff)
      : make_engine_(std::move(make_engine)), load_archive_(std::move(load_archive)) {}

  std::string designer;
  std::string sitelink;
  std::string version;

  // What is done about an error of the scripts; false when the user wants no more of it. The error dialogue at first.
  std::function<bool(const StyleScriptFault& fault)> ScriptFailed = &ShowScriptError;

  // Asked before each control of a window: false leaves the rest of them alone. Always true at first.
  std::function<bool()> GoesOn = [] { return true; };

  // How long one call into the scripts may take.
  int64_t script_timeout_ms = kScriptTimeoutMs;

  // Loads the style file, adds its modules and makes the style active. What fails is told in boxes.
  void InitStyle(const std::string& file);
  // Hands the window to the style's Form_Load, and each of its controls to Control_Load. Errors of the scripts are told
  // in the style's error dialogue.
  void FormLoad(Form& form);
  // For what a script has called: the line that calls.
  [[nodiscard]] StylePlace CallingPlace() const;
  // False for a language whose engine tells the places of failures only.
  [[nodiscard]] bool KnowsCallingPlace() const { return !engine_ || engine_->KnowsCallingPlace(); }

 private:
  struct Directive;
  static const Directive kDirectives[];

  void Load(const std::string& file);
  void AddObjects();
  // The bytes of an entry as text, widened from the code page. False for an entry that cannot be read.
  [[nodiscard]] bool ReadText(int32_t number, std::string& text);
  [[nodiscard]] bool ReadAssembly(int32_t number);
  [[nodiscard]] bool ParseAssembly(const std::string& text);
  bool IncludeFile(const std::string& name);
  // Runs a procedure of the scripts; false when the user wants no more of a style that had to be stopped.
  bool Run(const char* procedure, std::vector<Variant> arguments);
  // True when the user pressed OK, or when there was no error.
  bool CheckScriptError(const std::string& file);
  [[nodiscard]] static bool ShowScriptError(const StyleScriptFault& fault);
  [[nodiscard]] StylePlace PlaceIn(int module, int line) const;

  EngineMaker make_engine_;
  ArchiveLoader load_archive_;
  std::unique_ptr<ScriptEngine> engine_;
  std::vector<std::string> modules_;  // in the order of their adding
  int manifest_line_ = 0;             // that is being read
  Ref<ClsPFF> PFF;
  Ref<StyleArchive> archive_;  // PFF as the scripts see it
  Ref<ClsSystem> system_;
};

}  // namespace kestrun
