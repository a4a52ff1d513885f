// Reading of dates: the text is cut into numbers, names and marks; the time is taken out; what is left is the date.
#include <algorithm>
#include <ctime>
#include <vector>

#include "base/calendar.h"
#include "base/text.h"

namespace kestrun {
namespace {

// No date has more parts than this; anything longer is not looked at.
constexpr size_t kMostTokens = 32;
constexpr int kLargestNumber = 99999;

enum class TokenKind { kNumber, kMonth, kWeekday, kMorning, kAfternoon, kMark };

struct Token {
  TokenKind kind;
  int value;   // the number, the month, or the mark's character
  int digits;  // of a number
};

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool IsLetter(char character) { return (character | 0x20) >= 'a' && (character | 0x20) <= 'z'; }

bool IsBlank(char character) { return character == ' ' || character == '\t' || character == '\r' || character == '\n'; }

using NameOf = std::string_view (*)(int, bool);

// The place of a full name or its three letters, 0 when it is none.
int FindName(std::string_view word, int count, NameOf name_of) {
  for (int at = 1; at <= count; ++at) {
    if (EqualsNoCase(word, name_of(at, false)) || EqualsNoCase(word, name_of(at, true))) return at;
  }
  return 0;
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view text) : text_(text) {}

  bool Run(std::vector<Token>& tokens) {
    while (at_ < text_.size()) {
      if (tokens.size() > kMostTokens || !Next(tokens)) return false;
    }
    return true;
  }

 private:
  bool Next(std::vector<Token>& tokens) {
    const char character = text_[at_];
    if (IsBlank(character)) return ++at_, true;
    if (IsDigit(character)) return ReadNumber(tokens);
    if (IsLetter(character)) return ReadWord(tokens);
    if (std::string_view("/-:.,").find(character) == std::string_view::npos) return false;
    tokens.push_back({TokenKind::kMark, character, 0});
    return ++at_, true;
  }

  bool ReadNumber(std::vector<Token>& tokens) {
    Token token{TokenKind::kNumber, 0, 0};
    for (; at_ < text_.size() && IsDigit(text_[at_]); ++at_, ++token.digits) {
      token.value = token.value * 10 + (text_[at_] - '0');
      if (token.value > kLargestNumber) return false;
    }
    tokens.push_back(token);
    return true;
  }

  bool ReadWord(std::vector<Token>& tokens) {
    const size_t from = at_;
    while (at_ < text_.size() && IsLetter(text_[at_])) ++at_;
    const std::string_view word = text_.substr(from, at_ - from);
    if (EqualsNoCase(word, "AM") || EqualsNoCase(word, "A")) {
      tokens.push_back({TokenKind::kMorning, 0, 0});
    } else if (EqualsNoCase(word, "PM") || EqualsNoCase(word, "P")) {
      tokens.push_back({TokenKind::kAfternoon, 0, 0});
    } else if (const int month = FindName(word, 12, MonthText)) {
      tokens.push_back({TokenKind::kMonth, month, 0});
    } else if (FindName(word, 7, WeekdayText) != 0) {
      tokens.push_back({TokenKind::kWeekday, 0, 0});
    } else {
      return false;
    }
    return true;
  }

  std::string_view text_;
  size_t at_ = 0;
};

class DateReader {
 public:
  DateReader(std::vector<Token> tokens, int current_year) : tokens_(std::move(tokens)), current_year_(current_year) {}

  std::optional<double> Read() {
    if (!TakeTime() || !CollectDate()) return std::nullopt;
    if (numbers_.empty() && month_ == 0) return has_time_ ? std::optional(JoinDate(0, seconds_)) : std::nullopt;
    std::optional<CalendarDate> date = month_ != 0 ? NamedMonthDate() : NumericDate();
    if (!date) return std::nullopt;
    return JoinDate(DayNumber(date->year, date->month, date->day), seconds_);
  }

 private:
  [[nodiscard]] bool IsKind(size_t at, TokenKind kind) const { return at < tokens_.size() && tokens_[at].kind == kind; }
  [[nodiscard]] bool IsMark(size_t at, char mark) const {
    return IsKind(at, TokenKind::kMark) && tokens_[at].value == mark;
  }
  [[nodiscard]] bool IsHalfOfDay(size_t at) const {
    return IsKind(at, TokenKind::kMorning) || IsKind(at, TokenKind::kAfternoon);
  }
  [[nodiscard]] bool IsTimeMark(size_t at) const { return IsMark(at, ':') || IsMark(at, '.'); }

  // Finds "hour:minute[:second] [AM|PM]" or "hour AM|PM", at most once, and takes it out.
  bool TakeTime() {
    for (size_t at = 0; at < tokens_.size(); ++at) {
      if (!IsKind(at, TokenKind::kNumber)) continue;
      if (!IsTimeMark(at + 1) && !IsHalfOfDay(at + 1)) continue;
      return TakeTimeAt(at);
    }
    return true;
  }

  bool TakeTimeAt(size_t from) {
    int parts[3] = {tokens_[from].value, 0, 0};
    size_t count = 1;
    size_t at = from + 1;
    while (count < 3 && IsTimeMark(at)) {
      if (!IsKind(at + 1, TokenKind::kNumber)) return false;
      parts[count++] = tokens_[at + 1].value;
      at += 2;
    }
    if (IsHalfOfDay(at)) {
      if (!ApplyHalfOfDay(parts[0], IsKind(at, TokenKind::kAfternoon))) return false;
      ++at;
    } else if (count < 2) {
      return false;
    }
    if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59) return false;
    seconds_ = parts[0] * 3600 + parts[1] * 60 + parts[2];
    has_time_ = true;
    RemoveTime(from, at);
    return true;
  }

  static bool ApplyHalfOfDay(int& hour, bool afternoon) {
    if (hour > 23) return false;
    if (afternoon && hour < 12) hour += 12;
    if (!afternoon && hour == 12) hour = 0;
    return true;
  }

  // With the comma that may stand between date and time.
  void RemoveTime(size_t from, size_t to) {
    if (from > 0 && IsMark(from - 1, ',')) --from;
    tokens_.erase(tokens_.begin() + static_cast<std::ptrdiff_t>(from),
                  tokens_.begin() + static_cast<std::ptrdiff_t>(to));
  }

  // Numbers and month with at most one mark between two of them; weekday names say nothing.
  bool CollectDate() {
    bool mark_allowed = false;
    for (const Token& token : tokens_) {
      switch (token.kind) {
        case TokenKind::kMark:
          if (!mark_allowed || token.value == ':' || token.value == '.') return false;
          mark_allowed = false;
          continue;
        case TokenKind::kNumber: numbers_.push_back(token); break;
        case TokenKind::kMonth:
          if (month_ != 0) return false;
          month_ = token.value;
          break;
        case TokenKind::kWeekday: break;
        default: return false;
      }
      mark_allowed = true;
    }
    return mark_allowed || tokens_.empty();
  }

  static std::optional<CalendarDate> Valid(int year, int month, int day) {
    if (month < 1 || month > 12 || year < 100 || year > 9999) return std::nullopt;
    if (day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
    return CalendarDate{year, month, day};
  }

  static int YearOf(const Token& token) { return token.digits > 2 ? token.value : FullYear(token.value); }

  static std::optional<CalendarDate> Combine(const Token& year, const Token& month, const Token& day) {
    if (month.digits > 2 || day.digits > 2) return std::nullopt;
    return Valid(YearOf(year), month.value, day.value);
  }

  [[nodiscard]] std::optional<CalendarDate> NumericDate() const {
    if (numbers_.size() == 3) return ThreeNumbers(numbers_[0], numbers_[1], numbers_[2]);
    return numbers_.size() == 2 ? TwoNumbers(numbers_[0], numbers_[1]) : std::nullopt;
  }

  static std::optional<CalendarDate> ThreeNumbers(const Token& first, const Token& second, const Token& third) {
    if (const auto date = Combine(third, first, second)) return date;
    if (const auto date = Combine(first, second, third)) return date;
    return Combine(third, second, first);
  }

  // Month and day of this year, then month and year.
  [[nodiscard]] std::optional<CalendarDate> TwoNumbers(const Token& first, const Token& second) const {
    const Token day_one{TokenKind::kNumber, 1, 1};
    const Token this_year{TokenKind::kNumber, current_year_, 4};
    if (const auto date = Combine(this_year, first, second)) return date;
    if (const auto date = Combine(this_year, second, first)) return date;
    if (const auto date = Combine(second, first, day_one)) return date;
    return Combine(first, second, day_one);
  }

  [[nodiscard]] std::optional<CalendarDate> NamedMonthDate() const {
    const Token month{TokenKind::kNumber, month_, 1};
    const Token day_one{TokenKind::kNumber, 1, 1};
    const Token this_year{TokenKind::kNumber, current_year_, 4};
    if (numbers_.size() == 1) {
      if (const auto date = Combine(this_year, month, numbers_[0])) return date;
      return Combine(numbers_[0], month, day_one);
    }
    if (numbers_.size() != 2) return std::nullopt;
    if (const auto date = Combine(numbers_[1], month, numbers_[0])) return date;
    return Combine(numbers_[0], month, numbers_[1]);
  }

  std::vector<Token> tokens_;
  std::vector<Token> numbers_;
  int current_year_;
  int month_ = 0;
  bool has_time_ = false;
  int seconds_ = 0;
};

int CurrentYear() {
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  return local ? local->tm_year + 1900 : 1970;
}

}  // namespace

std::optional<double> ParseDate(std::string_view text, int current_year) {
  std::vector<Token> tokens;
  if (!Tokenizer(text).Run(tokens)) return std::nullopt;
  return DateReader(std::move(tokens), current_year).Read();
}

std::optional<double> ParseDate(std::string_view text) { return ParseDate(text, CurrentYear()); }

}  // namespace kestrun
