#include "program/window_kit/status_line.h"

#include "forms/color.h"

namespace kestrun {
namespace {

constexpr int kMargin = 180;
constexpr int kWordsLeft = kMargin - 45;  // the text box keeps its text so far from its edge
constexpr int kWordsTop = 60;
constexpr int kWordsHeight = 240;
constexpr int kBarWidth = 1800;
constexpr int kBarTop = 45;
constexpr int kBarHeight = 225;

}  // namespace

void StatusLine::LayOut(const std::string& own_words) {
  strip_.BorderStyle = 0;
  strip_.TabStop = false;
  words_.SetContainer(strip_);
  words_.BorderStyle = 0;
  words_.BackColor = color::kButtonFace;
  words_.Locked = true;
  words_.TabStop = false;
  bar_.SetContainer(strip_);
  bar_.BorderStyle = 1;
  bar_.BackColor = color::kWindowBackground;
  bar_.Progresscolor = color::kHighlight;
  bar_.ShowPercent = false;  // the words say it, in a colour that can be read on every background
  bar_.ToolTipText = "Progress of the fetch";
  bar_.Visible = false;
  own_words_ = own_words;
  SayOwnWords();
}

void StatusLine::Place(int client_width, int client_height) {
  client_width_ = client_width;
  client_height_ = client_height;
  PlaceAgain();
}

void StatusLine::PlaceAgain() {
  const int bar_left = client_width_ - kMargin - kBarWidth;
  const int words_right = is_fetching_ ? bar_left - kMargin / 2 : client_width_ - kMargin;
  strip_.Move(0, words_.Visible ? client_height_ - kStatusLineHeight : client_height_, client_width_,
              kStatusLineHeight);
  words_.Move(kWordsLeft, kWordsTop, words_right - kWordsLeft, kWordsHeight);
  bar_.Move(bar_left, kBarTop, kBarWidth, kBarHeight);
}

void StatusLine::Say(const std::string& words) {
  if (words_.Text.get() != words) words_.Text = words;
}

void StatusLine::Switch(bool on) {
  words_.Visible = on;
  PlaceAgain();
}

void StatusLine::ShowFetch(const FetchState& state) {
  if (!is_fetching_) {
    is_fetching_ = true;
    was_on_ = words_.Visible;
    words_.Visible = true;
    strip_.ZOrder(0);  // a notice may stand in its place
    PlaceAgain();
  }
  MoveBar(state);
  Say(DescribeFetch(state));
}

void StatusLine::EndFetch() {
  is_fetching_ = false;
  words_.Visible = was_on_;
  bar_.Visible = false;
  bar_.Value = 0;
  strip_.ZOrder(1);
  SayOwnWords();
  PlaceAgain();
}

void StatusLine::MoveBar(const FetchState& state) {
  constexpr int kWhole = 100;
  constexpr int kStep = 7;
  const std::optional<int> percent = PercentOf(state);
  place_ = (place_ + kStep) % kWhole;
  bar_.TellsValue = percent.has_value();
  bar_.Value = percent.value_or(place_);
  bar_.Visible = true;
}

}  // namespace kestrun
