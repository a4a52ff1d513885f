#include "styles/mod_style.h"

#include <utility>

#include "platform/platform.h"
#include "program/path_text.h"
#include "program/style_hook.h"
#include "styles/check/style_check.h"
#include "styles/style_active.h"

namespace kestrun::ModStyle {
namespace {

Ref<ClsStyle>& Current() {
  static Ref<ClsStyle> style;
  return style;
}

StyleIdentity Identity() {
  const Ref<ClsStyle>& style = Current();
  return style ? StyleIdentity{style->designer, style->sitelink, style->version} : StyleIdentity{};
}

std::vector<std::string> CheckFile(const std::string& path) {
  std::vector<std::string> lines;
  const StyleCheckResult result = CheckStyle(path);
  for (const StyleFault& fault : result.faults) lines.push_back(LineOf(fault));
  if (!result.rest.empty()) lines.push_back(result.rest);
  return lines;
}

struct Installation {
  Installation() { Install(); }
};
const Installation installation;

}  // namespace

void Install() {
  InstallStyleRuntime({.is_active = &IsStyleActive,
                       .load_file = &ModStyle::LoadStyleFile,
                       .apply = &ModStyle::FormLoadStyle,
                       .identity = &Identity,
                       .check = &CheckFile});
}

const Ref<ClsStyle>& CurrentStyle() { return Current(); }

void LoadStyleFile(const std::string& path) {
  if (!FileExists(path)) {
    MsgBox("unable to load " + path);
    return;
  }
  const Ref<ClsStyle> style = MakeRef<ClsStyle>();
  Current() = style;
  style->InitStyle(path);
}

void FormLoadStyle(Form& form) {
  const Ref<ClsStyle> style = Current();
  if (style) style->FormLoad(form);
}

void Forget() {
  SetStyleActive(false);
  Current() = nullptr;
}

}  // namespace kestrun::ModStyle
