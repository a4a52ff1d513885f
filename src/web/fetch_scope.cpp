#include "web/fetch_scope.h"
#include "base/kilobytes.h"

#include <algorithm>

namespace kestrun {
namespace {

FetchScope* innermost = nullptr;

// The part of an address between "//" and the next "/", without a user's name or a password before "@".
std::string HostOf(const std::string& url) {
  const size_t slashes = url.find("//");
  if (slashes == std::string::npos) return {};
  const std::string authority = url.substr(slashes + 2, url.find_first_of("/?#", slashes + 2) - slashes - 2);
  return authority.substr(authority.find('@') + 1);
}

// What stands behind the last slash of the path; empty for the root of a site.
std::string PageOf(const std::string& url) {
  const std::string path = url.substr(0, url.find_first_of("?#"));
  const size_t slashes = path.find("//");
  const size_t name = path.rfind('/') + 1;
  return slashes != std::string::npos && name <= slashes + 2 ? std::string() : path.substr(name);
}

// A long name loses its middle: the amount behind it and the way to cancel have to be seen.
std::string Shortened(const std::string& text) {
  constexpr size_t kMostBytes = 40;
  if (text.size() <= kMostBytes) return text;
  const auto is_inside_a_character = [&](size_t at) { return (static_cast<uint8_t>(text[at]) & 0xC0) == 0x80; };
  size_t head = kMostBytes / 2;
  while (is_inside_a_character(head)) --head;
  size_t tail = text.size() - kMostBytes / 2;
  while (tail < text.size() && is_inside_a_character(tail)) ++tail;
  return text.substr(0, head) + "..." + text.substr(tail);
}

std::string AmountOf(const FetchState& state) {
  if (state.received_bytes == 0 && !state.total_bytes) return "waiting for the server";
  std::string amount = InKilobytes(state.received_bytes);
  if (state.total_bytes) amount += " of " + InKilobytes(*state.total_bytes);
  if (const std::optional<int> percent = PercentOf(state)) amount += " (" + std::to_string(*percent) + " %)";
  return amount;
}

}  // namespace

std::string DescribeFetch(const FetchState& state) {
  const std::string page = PageOf(state.url);
  const std::string host = HostOf(state.url);
  std::string line = "Fetching " + Shortened(page.empty() ? state.url : page);
  if (!page.empty() && !host.empty()) line += " from " + Shortened(host);
  return line + ": " + AmountOf(state) + ". Esc cancels.";
}

std::optional<int> PercentOf(const FetchState& state) {
  if (!state.total_bytes || *state.total_bytes == 0) return std::nullopt;
  constexpr int kWhole = 100;
  const double share = static_cast<double>(state.received_bytes) / static_cast<double>(*state.total_bytes);
  return std::min(kWhole, static_cast<int>(share * kWhole));
}

FetchScope::FetchScope(FetchDisplay* display)
    : outer_(innermost), display_(display || !innermost ? display : innermost->display_) {
  innermost = this;
}

FetchScope::~FetchScope() {
  innermost = outer_;
  if (has_shown_) display_->EndFetch();
}

bool FetchScope::IsShown() { return innermost && innermost->display_; }

void FetchScope::Show(const FetchState& state) {
  if (!IsShown()) return;
  innermost->has_shown_ = true;
  innermost->display_->ShowFetch(state);
}

void FetchScope::Cancel() {
  for (FetchScope* scope = innermost; scope; scope = scope->outer_) scope->is_cancelled_ = true;
}

bool FetchScope::IsAnyCancelled() { return innermost && innermost->is_cancelled_; }

}  // namespace kestrun
