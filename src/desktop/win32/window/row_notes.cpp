#include "desktop/win32/window/row_notes.h"

namespace kestrun {

bool RowNotes::Note(int row, const std::string& note) {
  std::string& known = notes_[row];
  if (known == note) return false;
  known = note;
  return true;
}

bool RowNotes::ForgetOutside(int first, int last) {
  return std::erase_if(notes_, [&](const auto& note) { return note.first < first || note.first > last; }) != 0;
}

void RowNotes::Tell(int marked_row, const std::string& mark_meaning) {
  std::map<int, std::string> wanted;
  for (const auto& [row, note] : notes_) {
    if (!note.empty()) wanted[row] = note;
  }
  if (marked_row >= 0 && !mark_meaning.empty()) {
    const std::string badge = wanted[marked_row];
    wanted[marked_row] = badge.empty() ? mark_meaning : mark_meaning + ", " + badge;
  }
  for (const auto& [row, note] : wanted) {
    const auto told = told_.find(row);
    if (told == told_.end() || told->second != note) tell_(row, note);
  }
  for (const auto& [row, note] : told_) {
    if (!wanted.contains(row)) tell_(row, "");
  }
  told_ = std::move(wanted);
}

}  // namespace kestrun
