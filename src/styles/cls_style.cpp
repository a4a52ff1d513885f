#include "styles/cls_style.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/script_globals.h"
#include "platform/platform.h"
#include "program/show_error.h"
#include "styles/style_active.h"

namespace kestrun {
namespace {

constexpr const char* kManifest = "assembly.txt";

}  // namespace

// A line of the manifest: the word with one blank behind it, and what its value is for.
struct ClsStyle::Directive {
  std::string_view keyword;
  void (*act)(ClsStyle& style, const std::string& value);
};

const ClsStyle::Directive ClsStyle::kDirectives[]{
    {"include ", [](ClsStyle& style, const std::string& value) { style.IncludeFile(value); }},
    {"designer ", [](ClsStyle& style, const std::string& value) { style.designer = value; }},
    {"sitelink ", [](ClsStyle& style, const std::string& value) { style.sitelink = value; }},
    {"language ", [](ClsStyle& style, const std::string& value) { style.engine_->SetLanguage(value); }},
    {"version ", [](ClsStyle& style, const std::string& value) { style.version = value; }},
};

void ClsStyle::InitStyle(const std::string& file) {
  const Ref<ClsStyle> keep(this);  // the modules' own code may load another style
  try {
    Load(file);
  } catch (const std::exception&) {
    ShowError("Errors loading Style file: ");
  }
}

void ClsStyle::Load(const std::string& file) {
  engine_ = make_engine_();
  engine_->SetAllowUI(true);
  engine_->SetTimeout(script_timeout_ms);
  PFF = MakeRef<ClsPFF>();
  bool is_open = true;
  const bool ran = Attempt([&] { is_open = load_archive_(*PFF, file); });
  if (!is_open) {
    MsgBox("Unable to open " + file);
    return;
  }
  if (!ran) MsgBox("Error loading PFF");
  archive_ = MakeRef<StyleArchive>(PFF, file);
  int32_t number = -1;
  if (!PFF->PFFFileExists(kManifest, number)) {
    MsgBox("Warning assembly.txt file not found");
  } else if (!ReadAssembly(number)) {
    return;
  }
  AddObjects();
  SetStyleActive(true);
}

void ClsStyle::AddObjects() {
  system_ = MakeRef<ClsSystem>([engine = engine_.get()] { engine->CheckTime(); });
  system_->SetPff(archive_);
  const std::array<std::pair<const char*, Ref<Object>>, 5> objects{{{"System", system_},
                                                                    {"Screen", MakeRef<ScreenObject>()},
                                                                    {"App", MakeRef<AppObject>()},
                                                                    {"Clipboard", MakeRef<ClipboardObject>()},
                                                                    {"PFF", archive_}}};
  for (const auto& [name, object] : objects) engine_->AddObject(name, object);
}

bool ClsStyle::ReadText(int32_t number, std::string& text) {
  Bytes bytes;
  if (!Attempt([&] { static_cast<void>(PFF->ExtractFile(number, bytes, "")); })) return false;
  text = DecodeText(AsChars(bytes));
  return true;
}

bool ClsStyle::ReadAssembly(int32_t number) {
  std::string text;
  return ReadText(number, text) && ParseAssembly(text);
}

// Only CR LF ends a line. Each directive acts at once, so that `language` counts for the modules behind it.
bool ClsStyle::ParseAssembly(const std::string& text) {
  if (text.empty()) return false;
  manifest_line_ = 0;
  for (size_t start = 0; start <= text.size();) {
    ++manifest_line_;
    const size_t end = std::min(text.find(kCrLf, start), text.size());
    const std::string line = ToLower(std::string_view(text).substr(start, end - start));
    for (const Directive& directive : kDirectives) {
      if (!StartsWith(line, directive.keyword)) continue;
      directive.act(*this, line.substr(directive.keyword.size()));
      break;
    }
    start = end + kCrLf.size();
  }
  return true;
}

bool ClsStyle::IncludeFile(const std::string& name) {
  const std::string file(TrimBlanks(name));
  int32_t number = -1;
  if (!PFF->PFFFileExists(file, number)) {
    ScriptError missing;
    missing.Description = "Including the file " + file + " failed!";
    static_cast<void>(ScriptFailed({"N/A", missing, {kManifest, manifest_line_}}));
    return false;
  }
  std::string text;
  if (!ReadText(number, text)) return false;
  engine_->Error().Clear();
  modules_.push_back(file);
  engine_->AddCode(text);
  CheckScriptError(file);
  return true;
}

// The list of controls is fixed before the first of them is handed over: scripts add and remove some. A window that a
// script closes takes its controls with it.
void ClsStyle::FormLoad(Form& form) {
  if (!engine_) return;
  const Ref<ClsStyle> keep(this);
  const Ref<Form> window(&form);
  engine_->Error().Clear();
  if (!Run("Form_Load", {window})) return;
  const std::vector<Ref<Control>> controls = form.controls();
  for (const Ref<Control>& control : controls) {
    if (!control->form()) continue;
    if (!GoesOn()) return;
    if (!Run("Control_Load", {control, window})) return;
  }
}

bool ClsStyle::Run(const char* procedure, std::vector<Variant> arguments) {
  static_cast<void>(engine_->Run(procedure, std::move(arguments)));
  const bool was_stopped = engine_->Error().Number == kScriptTimedOut;
  return CheckScriptError("") || !was_stopped;
}

bool ClsStyle::CheckScriptError(const std::string& file) {
  const ScriptError failure = std::exchange(engine_->Error(), ScriptError{});
  return failure.Number == 0 || ScriptFailed({file, failure, PlaceIn(failure.Module, failure.Line)});
}

StylePlace ClsStyle::PlaceIn(int module, int line) const {
  if (module < 0 || static_cast<size_t>(module) >= modules_.size()) return {};
  return {modules_[static_cast<size_t>(module)], line};
}

StylePlace ClsStyle::CallingPlace() const {
  if (!engine_) return {};
  const ScriptPlace place = engine_->CallingPlace();
  return PlaceIn(place.Module, place.Line);
}

bool ClsStyle::ShowScriptError(const StyleScriptFault& fault) {
  const ScriptError& failure = fault.error;
  const std::string line_break(kCrLf);
  const std::string text = "Style Script Error:" + line_break + "File Name: " + fault.file + line_break +
                           "Line: " + std::to_string(failure.Line) + line_break +
                           "Colum: " + std::to_string(failure.Column) + line_break +
                           "Error Number: " + std::to_string(failure.Number) + line_break +
                           "Description: " + failure.Description + line_break + "Code: " + failure.Text + line_break +
                           line_break + "Click OK to continue, Cancel to unload style file.";
  const bool goes_on = MsgBox(text, BoxButtons::kOkCancel, BoxIcon::kWarning) == BoxAnswer::kOk;
  if (!goes_on) SetStyleActive(false);
  return goes_on;
}

}  // namespace kestrun
