// What the headless desktop does when the program asks a question that nobody has laid an answer down for.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kestrun {

enum class QuestionKind { kMessage, kInput, kFile, kFolder, kColor, kModalWindow };

struct UnexpectedQuestion {
  QuestionKind kind;
  std::string text;    // what the user would have read: the box's text, the prompt, the window's name
  std::string detail;  // why no laid-down answer fits, for the reader of a test's output
};

// Called before the safe answer is taken. A test fails in it, the command line prints the text.
using UnexpectedHandler = std::function<void(const UnexpectedQuestion& question)>;

}  // namespace kestrun
