// JavaScript whose loops and functions ask for the time: for engines that nobody can stop from outside.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrun {

// Whether the name is one of JavaScript's as script engines register it. Without regard to case.
[[nodiscard]] bool IsJavaScript(std::string_view language);

class GuardedSource {
 public:
  // Puts the call, such as "Clock.Check()", before the condition of each loop that may run for ever, and at the
  // beginning of each function, since functions that call themselves may take for ever too. Lines stay lines.
  GuardedSource(std::string_view source, std::string_view call);

  [[nodiscard]] const std::string& text() const { return text_; }
  // The column of the source for a place in the text; both from 1, in characters.
  [[nodiscard]] int OriginalColumn(int line, int column) const;

 private:
  struct Insertion {
    int line;
    int column;  // in the text
    int length;
  };
  void Insert(std::string_view what);
  void Copy(std::string_view what);

  std::string text_;
  int line_ = 1;
  int column_ = 1;
  std::vector<Insertion> insertions_;
};

}  // namespace kestrun
