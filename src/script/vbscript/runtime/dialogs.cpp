// MsgBox and InputBox go to the platform's dialogues while the host allows a script its own. Otherwise, and where there
// is no platform, error 70.
#include "base/text.h"
#include "platform/platform.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"

namespace kestrun::vbs {
namespace {

void RequireDialogs(const RuntimeContext& context) {
  if (!context.allow_ui() || !InstalledPlatform()) RaiseScript(error::kPermissionDenied);
}

std::string Utf8Argument(Arguments arguments, size_t index) {
  return IsGiven(arguments, index) ? ToUtf8(TextArgument(arguments[index]).view()) : std::string();
}

// A help file and its context come together or not at all.
void CheckHelp(Arguments arguments, size_t file_index) {
  if (IsGiven(arguments, file_index) != IsGiven(arguments, file_index + 1)) RaiseScript(error::kInvalidProcedureCall);
}

BoxIcon IconOf(int32_t style) {
  switch (style & 0x70) {
    case 16: return BoxIcon::kCritical;
    case 32: return BoxIcon::kQuestion;
    case 48: return BoxIcon::kWarning;
    case 64: return BoxIcon::kInformation;
    default: return BoxIcon::kNone;
  }
}

}  // namespace

// MsgBox(prompt[, buttons[, title[, helpfile, context]]]): the number of the button.
Variant MessageBoxFunction(RuntimeContext& context, Arguments arguments) {
  MessageBoxRequest request;
  request.text = Utf8Argument(arguments, 0);
  const int32_t style = LongArgument(arguments, 1, 0);
  const int32_t buttons = style & 0xF;
  if (buttons > static_cast<int32_t>(BoxButtons::kRetryCancel)) RaiseScript(error::kInvalidProcedureCall);
  request.buttons = static_cast<BoxButtons>(buttons);
  request.icon = IconOf(style);
  request.default_button = (style >> 8 & 3) + 1;
  request.title = Utf8Argument(arguments, 2);
  CheckHelp(arguments, 3);
  RequireDialogs(context);
  return static_cast<int16_t>(platform().dialogs().ShowMessage(request));
}

// InputBox(prompt[, title[, default[, x[, y[, helpfile, context]]]]]): the text, or Empty on Cancel. The dialogue
// chooses its own place.
Variant InputBox(RuntimeContext& context, Arguments arguments) {
  const std::string prompt = Utf8Argument(arguments, 0);
  const std::string title = Utf8Argument(arguments, 1);
  const std::string preset = Utf8Argument(arguments, 2);
  CheckHelp(arguments, 5);
  RequireDialogs(context);
  const std::optional<std::string> answer = platform().dialogs().AskText(prompt, title, preset);
  return answer ? Variant(*answer) : Variant();
}

}  // namespace kestrun::vbs
