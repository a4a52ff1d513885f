// What screen readers are told of the rows of a list beside their texts, so that each is told once and taken back when
// it is no longer so.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace kestrun {

class RowNotes {
 public:
  // `tell` hands the note of a row to the readers; an empty one takes it back.
  explicit RowNotes(std::function<void(int row, const std::string& note)> tell) : tell_(std::move(tell)) {}

  // What is known of a row that is shown. True when that is news.
  bool Note(int row, const std::string& note);
  // The rows are others now.
  void Forget() { notes_.clear(); }
  // What was known of the rows outside may not be so any more. True when there were any.
  bool ForgetOutside(int first, int last);
  // Brings the readers up to what is known; the meaning of the mark belongs to the marked row, -1 for none.
  void Tell(int marked_row, const std::string& mark_meaning);

 private:
  std::function<void(int row, const std::string& note)> tell_;
  std::map<int, std::string> notes_;
  std::map<int, std::string> told_;
};

}  // namespace kestrun
