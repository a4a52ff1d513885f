#include "program/fetch_line.h"

#include <utility>

namespace kestrun {

FetchLine::FetchLine(ProgressBar* bar, std::function<void(const std::string& words)> show, std::function<void()> end)
    : bar_(bar), show_(std::move(show)), end_(std::move(end)) {
  if (bar_) bar_->Visible = false;
}

void FetchLine::ShowFetch(const FetchState& state) {
  if (bar_) MoveBar(state);
  show_(DescribeFetch(state));
}

void FetchLine::EndFetch() {
  if (bar_) {
    bar_->Visible = false;
    bar_->Value = 0;
  }
  end_();
}

void FetchLine::MoveBar(const FetchState& state) {
  constexpr int kWhole = 100;
  constexpr int kStep = 7;
  const std::optional<int> percent = PercentOf(state);
  place_ = (place_ + kStep) % kWhole;
  bar_->ShowPercent = percent.has_value();
  bar_->Value = percent.value_or(place_);
  bar_->Visible = true;
}

}  // namespace kestrun
