#include "app/script_objects/window_texts.h"

#include <array>
#include <optional>
#include <string_view>

#include "base/convert.h"
#include "base/sha256.h"
#include "base/text.h"
#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/window_registry.h"
#include "program/commands.h"

namespace kestrun {
namespace {

struct Caption {
  const char* kind;
  std::string text;
};

// A label with an access key names the field behind it.
std::optional<Caption> CaptionOf(Control& control) {
  if (auto* const item = dynamic_cast<MenuItem*>(&control)) return Caption{"menu", item->Caption};
  if (auto* const box = dynamic_cast<CheckBox*>(&control)) return Caption{"option", box->Caption};
  if (auto* const button = dynamic_cast<OptionButton*>(&control)) return Caption{"option", button->Caption};
  auto* const label = dynamic_cast<Label*>(&control);
  if (label && label->UseMnemonic && label->Caption.get().find('&') != std::string::npos)
    return Caption{"field", label->Caption};
  return std::nullopt;
}

std::string Bare(const std::string& caption) {
  std::string text = ReplaceAll(caption, "&", "");
  const size_t end = text.find_last_not_of(" .:");
  text.resize(end == std::string::npos ? 0 : end + 1);
  return text == "-" ? std::string() : text;
}

void AddLine(std::string& lines, std::string_view window, std::string_view kind, std::string_view text) {
  lines.append(window).append("|").append(kind).append("|").append(text).append("\n");
}

constexpr std::array kLook{"Left", "Top", "Width", "Height", "Caption", "Visible"};

std::string LookOf(Control& control) {
  std::string line = control.Name() + " " + control.TypeName();
  for (const char* name : kLook) {
    if (control.FindMember(name) != kNoMember) line += " " + ToText(GetMember(control, name));
  }
  return line + "\n";
}

}  // namespace

std::string WindowTexts() {
  std::string lines;
  for (const std::string& name : RegisteredWindows()) {
    Form& form = WindowBeforeLoad(name);
    std::string look = LookOf(form);
    for (const Ref<Control>& control : form.controls()) {
      look += LookOf(*control);
      const std::optional<Caption> caption = CaptionOf(*control);
      const std::string text = caption ? Bare(caption->text) : std::string();
      if (!text.empty()) AddLine(lines, name, caption->kind, text);
    }
    AddLine(lines, name, "look", Sha256Hex(AsBytes(look)));
  }
  for (const std::string& word : CommandWords()) AddLine(lines, "program", "word", word);
  return lines;
}

}  // namespace kestrun
