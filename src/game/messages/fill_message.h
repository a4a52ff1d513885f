// Words in a message that stand for what the server plays, filled in when the message is sent.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// What the words are filled in with; an empty one is not known.
struct MessageFacts {
  std::string map;   // %map%: what plays now
  std::string next;  // %next%: what comes next
  std::string left;  // %left%: how long until then
  std::string time;  // %time%: the time of day here
};

// Each of the words, in any case, gives way to its fact, and to "?" where that is not known. What a fact holds is not
// looked through again; every other text stays.
[[nodiscard]] std::string FillMessage(std::string_view message, const MessageFacts& facts);

}  // namespace kestrun
