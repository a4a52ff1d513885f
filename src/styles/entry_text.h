// The text of an entry in the editor: a text box knows lines that end in CR LF only.
#pragma once

#include <string>

namespace kestrun {

class EntryText {
 public:
  EntryText() = default;
  explicit EntryText(std::string stored);

  // With CR LF at the end of each line.
  [[nodiscard]] const std::string& Shown() const { return shown_; }
  // What is to be stored for the text in the box: what was stored where nothing was typed; otherwise lines end as they
  // did, or in CR LF where they ended in several ways.
  [[nodiscard]] std::string StoredFor(const std::string& typed) const;
  // From now on every line is stored with CR LF at its end, if anything is typed.
  void EndLinesInCrLf() { has_bare_ends_ = false; }

 private:
  std::string stored_;
  std::string shown_;
  bool has_bare_ends_ = false;  // every line ends in LF alone
};

}  // namespace kestrun
