#include "program/link_guard.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "base/url_escapes.h"
#include "platform/platform.h"
#include "program/commands.h"
#include "program/path_text.h"
#include "web/redirect.h"

namespace kestrun {
namespace {

// No browser makes a longer one.
constexpr size_t kLongestLink = 2083;
constexpr size_t kLongestShown = 300;
constexpr std::string_view kPackWord = "-pack ";
constexpr std::string_view kRestoreWord = "-restore ";

// A link may be escaped more than once. What stands in any of the layers counts.
template <class Test>
bool HoldsInAnyLayer(std::string text, Test&& test) {
  constexpr int kMostLayers = 5;
  for (int layer = 0; layer < kMostLayers; ++layer) {
    if (test(text)) return true;
    std::string next = WithoutUrlEscapes(text);
    if (next == text) return false;
    text = std::move(next);
  }
  return true;  // nobody needs so many
}

// Control characters, and those that turn the direction of the text around them (Unicode, 9: U+200E, U+200F, U+202A to
// U+202E, U+2066 to U+2069): what is shown would not be what is done.
bool HidesSomething(std::string_view text) {
  for (size_t at = 0; at < text.size(); ++at) {
    const auto c = static_cast<unsigned char>(text[at]);
    if (c < 0x20 || c == 0x7F) return true;
    const std::string_view next = text.substr(at, 3);
    const auto is_in = [&](std::string_view first, std::string_view last) { return next >= first && next <= last; };
    if (is_in("\xE2\x80\x8E", "\xE2\x80\x8F") || is_in("\xE2\x80\xAA", "\xE2\x80\xAE") ||
        is_in("\xE2\x81\xA6", "\xE2\x81\xA9")) {
      return true;
    }
  }
  return false;
}

// The program that opens links puts one pair of quotes around them.
std::string_view WithoutOuterQuotes(std::string_view text) {
  text = TrimBlanks(text);
  const bool is_quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return is_quoted ? text.substr(1, text.size() - 2) : text;
}

bool IsSlash(char c) { return c == '\\' || c == '/'; }

// Two slashes of whatever kind side by side, as in "\\\\host\\share", name another computer, wherever a command's path
// begins. Not behind the scheme of an address, but that of files with a computer's name: "file:///C:/a" is here. And
// the system's own way around such names ("\\??\\UNC").
bool NamesNetworkPath(std::string_view text) {
  constexpr std::string_view kFile = "file:";
  if (text.find("\\??") != std::string_view::npos) return true;
  for (size_t at = 0; at + 1 < text.size(); ++at) {
    if (!IsSlash(text[at]) || !IsSlash(text[at + 1])) continue;
    const std::string_view before = text.substr(0, at);
    const bool is_third = at + 2 < text.size() && IsSlash(text[at + 2]);
    const bool is_fourth = at + 3 < text.size() && IsSlash(text[at + 3]);
    const bool is_scheme = before.size() > 2 && before.ends_with(':');
    if (!is_scheme) return true;
    const bool is_file =
        before.size() >= kFile.size() && EqualsNoCase(before.substr(before.size() - kFile.size()), kFile);
    if (is_file ? !is_third || is_fourth : is_third) return true;
    at += is_file ? 2 : 1;
  }
  return false;
}

// Words whose parts stand in quotes: nothing else may follow them.
bool IsWholeQuotedCommand(std::string_view text) {
  const auto quotes = std::count(text.begin(), text.end(), '"');
  const std::string tail = ToLower(TrimBlanks(text.substr(text.rfind('"') + 1)));
  if (StartsWith(text, kPackWord)) return quotes == 6 && (tail.empty() || tail == "/z");
  return StartsWith(text, kRestoreWord) && (quotes == 2 || quotes == 4) && tail.empty();
}

bool HasQuote(std::string_view text) { return text.find('"') != std::string_view::npos; }

std::optional<std::string_view> ReasonToRefuse(const std::string& text) {
  const std::string_view inside = WithoutOuterQuotes(text);
  if (text.size() > kLongestLink) return "It is too long for a link.";
  if (HoldsInAnyLayer(std::string(inside), HidesSomething)) return "It holds characters that cannot be shown.";
  if (HoldsInAnyLayer(std::string(inside),
                      [](std::string_view layer) { return FindNoCase(layer, kLinkPrefix) != std::string::npos; })) {
    return "It holds another link.";
  }
  if (IsHttpUrl(inside)) {
    return HasQuote(inside) ? std::optional<std::string_view>("It holds more than one command.") : std::nullopt;
  }
  if (HoldsInAnyLayer(std::string(inside), NamesNetworkPath)) return "It leads to another computer's files.";
  if (HoldsInAnyLayer(std::string(inside), HasQuote) && !IsWholeQuotedCommand(TrimBlanks(text))) {
    return "It holds more than one command.";
  }
  return std::nullopt;
}

// What the link says, as far as it can be shown.
std::string Shown(const std::string& text) {
  std::string shown = WithoutUrlEscapes(WithoutOuterQuotes(text));
  std::replace_if(
      shown.begin(), shown.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
  if (shown.size() <= kLongestShown) return shown;
  return shown.substr(0, kLongestShown) + " ...";
}

}  // namespace

bool IsLink(const std::string& raw_command_line) {
  std::string_view text = TrimBlanks(raw_command_line);
  if (text.starts_with('"')) text.remove_prefix(1);
  return EqualsNoCase(text.substr(0, kLinkPrefix.size()), kLinkPrefix);
}

LinkJudgement JudgeLink(const std::string& text) {
  const std::string inside(WithoutOuterQuotes(text));
  if (inside.empty()) return {};
  if (const auto reason = ReasonToRefuse(text)) return {LinkVerdict::kRefuse, *reason};
  if (IsHttpUrl(inside)) return {};
  const std::string_view warning = LinkWarning(inside);
  if (warning.empty()) return {};
  if (inside.size() > kLongestShown) return {LinkVerdict::kRefuse, "It is too long to be shown whole."};
  return {LinkVerdict::kAsk, warning};
}

bool MayFollowLink(const std::string& text) {
  const LinkJudgement judgement = JudgeLink(text);
  if (judgement.verdict == LinkVerdict::kFollow) return true;
  const std::string gap = std::string(kCrLf) + std::string(kCrLf);
  MessageBoxRequest request;
  request.icon = BoxIcon::kWarning;
  if (judgement.verdict == LinkVerdict::kRefuse) {
    request.text = "This link was not followed:" + gap + Shown(text) + gap + std::string(judgement.why);
    static_cast<void>(platform().dialogs().ShowMessage(request));
    return false;
  }
  request.text = "A link wants Kestrun to do this:" + gap + Shown(text) + gap + std::string(judgement.why) +
                 " Anybody can write a link. Do you want to follow this one?";
  request.buttons = BoxButtons::kYesNo;
  request.default_button = 2;
  return platform().dialogs().ShowMessage(request) == BoxAnswer::kYes;
}

}  // namespace kestrun
