// Links of the form kestrun://... come from web pages and letters, and anybody can write them. One that only opens a
// window or a web address is followed; one that would do more is shown to the user first; one that hides what it does
// is not followed at all.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

inline constexpr std::string_view kLinkPrefix = "kestrun://";

// Whether a raw command line has come by a link: the system puts nothing before it but a quote.
[[nodiscard]] bool IsLink(const std::string& raw_command_line);

enum class LinkVerdict { kFollow, kAsk, kRefuse };
struct LinkJudgement {
  LinkVerdict verdict = LinkVerdict::kFollow;
  std::string_view why;  // a sentence for the user, but for kFollow
};
// `text` is the command line without the first prefix.
[[nodiscard]] LinkJudgement JudgeLink(const std::string& text);

// The judgement, carried out: asks or tells the user where it says so. True when the link is to be followed.
[[nodiscard]] bool MayFollowLink(const std::string& text);

}  // namespace kestrun
