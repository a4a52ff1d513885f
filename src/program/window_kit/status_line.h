// The line at the foot of a window: words, and a bar beside them while the window fetches.
#pragma once

#include <string>

#include "controls/progress_bar/progress_bar.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "web/fetch_scope.h"

namespace kestrun {

inline constexpr int kStatusLineHeight = 330;

class StatusLine final : public FetchDisplay {
 public:
  // The strip holds the other two. The words are a text box, which screen readers read and follow.
  StatusLine(PictureBox& strip, TextBox& words, ProgressBar& bar) : strip_(strip), words_(words), bar_(bar) {}

  // Gives the controls their looks. `own_words` stand in the line while there is nothing else to say.
  void LayOut(const std::string& own_words);
  // At the foot of a client area of that size, in twips. A line that is switched off lies below it.
  void Place(int client_width, int client_height);

  void Say(const std::string& words);
  void SayOwnWords() { Say(own_words_); }
  // The line is on while its words are visible; a fetch brings one that is off to sight for its time.
  void Switch(bool on);

  void ShowFetch(const FetchState& state) override;
  void EndFetch() override;

 private:
  void MoveBar(const FetchState& state);
  void PlaceAgain();

  PictureBox& strip_;
  TextBox& words_;
  ProgressBar& bar_;
  std::string own_words_;
  int client_width_ = 0;
  int client_height_ = 0;
  bool is_fetching_ = false;
  bool was_on_ = true;  // before the fetch
  int place_ = 0;       // of a bar that only moves, since nobody knows the whole
};

}  // namespace kestrun
