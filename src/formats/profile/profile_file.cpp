#include "formats/profile/profile_file.h"

#include <algorithm>
#include <cstring>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsBlank(char byte) { return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\v' || byte == '\f'; }

std::string_view TrimLine(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool SameName(std::string_view left, std::string_view right) {
  const auto& lower = SingleByteLower();
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(), [&lower](char a, char b) {
           return a == b || lower[static_cast<unsigned char>(a)] == lower[static_cast<unsigned char>(b)];
         });
}

std::string_view Unquoted(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// Walks the lines of a content, telling which section each stands in.
class LineWalk {
 public:
  explicit LineWalk(std::string_view content) : content_(content) {
    if (content.starts_with(kUtf8Mark)) next_ = kUtf8Mark.size();
  }

  bool Next() {
    if (next_ >= content_.size()) return false;
    begin_ = next_;
    const void* found = std::memchr(content_.data() + begin_, '\n', content_.size() - begin_);
    end_ = found ? static_cast<size_t>(static_cast<const char*>(found) - content_.data()) : content_.size();
    next_ = found ? end_ + 1 : end_;
    return true;
  }

  [[nodiscard]] size_t begin() const { return begin_; }
  // Behind the line's own end.
  [[nodiscard]] size_t next() const { return next_; }
  // Without the line feed.
  [[nodiscard]] std::string_view line() const { return content_.substr(begin_, end_ - begin_); }
  // First character that is no blank, NUL for a blank line.
  [[nodiscard]] char Kind() const {
    for (size_t at = begin_; at < end_; ++at) {
      if (!IsBlank(content_[at])) return content_[at];
    }
    return '\0';
  }

 private:
  std::string_view content_;
  size_t begin_ = 0;
  size_t end_ = 0;
  size_t next_ = 0;
};

// The name of a section line, "[name]"; the closing bracket may be missing.
std::string_view SectionName(std::string_view line) {
  line = TrimLine(line);
  line.remove_prefix(1);
  const size_t close = line.rfind(']');
  return TrimLine(line.substr(0, close));
}

// Where the key's line stands, or where its section ends.
struct Place {
  bool has_section = false;
  size_t insert_at = 0;  // behind the last line of the first such section that is not blank
  size_t line_begin = std::string_view::npos;
  size_t value_begin = 0;  // behind the "="
  size_t value_end = 0;    // before the line's end
};

Place FindPlace(std::string_view content, std::string_view section, std::string_view key) {
  Place place;
  bool inside = false;
  bool first_section = true;
  for (LineWalk walk(content); walk.Next();) {
    const char kind = walk.Kind();
    if (kind == '[') {
      if (inside) first_section = false;
      inside = SameName(SectionName(walk.line()), section);
    }
    if (!inside || kind == '\0') continue;
    place.has_section = true;
    if (first_section) place.insert_at = walk.next();
    if (kind == '[' || kind == ';') continue;
    const std::string_view line = walk.line();
    const size_t equals = line.find('=');
    if (!SameName(TrimLine(line.substr(0, equals)), key)) continue;
    place.line_begin = walk.begin();
    place.value_begin = walk.begin() + (equals == std::string_view::npos ? line.size() : equals + 1);
    place.value_end = walk.begin() + line.size();
    return place;
  }
  return place;
}

std::string_view LineEndOf(std::string_view content) {
  const size_t feed = content.find('\n');
  const bool bare = feed != std::string_view::npos && (feed == 0 || content[feed - 1] != '\r');
  return bare ? std::string_view("\n") : kCrLf;
}

void InsertLine(std::string& content, size_t at, std::string_view line, std::string_view line_end) {
  std::string inserted;
  if (at > 0 && content[at - 1] != '\n') inserted = line_end;
  inserted.append(line).append(line_end);
  content.insert(at, inserted);
}

bool LooksLikeUtf8(std::string_view bytes) {
  const bool ascii =
      std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<signed char>(byte) >= 0; });
  return !ascii && ToUtf8(ToUtf16(bytes)) == bytes;
}

// At most `limit` bytes; a UTF-8 character at the end is not cut in two.
std::string_view CutValue(std::string_view value, size_t limit) {
  if (value.size() <= limit) return value;
  const bool utf8 = LooksLikeUtf8(value);
  value = value.substr(0, limit);
  if (!utf8) return value;
  size_t tail = value.size();
  while (tail > 0 && (static_cast<unsigned char>(value[tail - 1]) & 0xC0) == 0x80) --tail;
  if (tail > 0 && !LooksLikeUtf8(value.substr(tail - 1)) && static_cast<signed char>(value[tail - 1]) < 0) {
    value = value.substr(0, tail - 1);
  }
  return value;
}

std::string ReadContent(const std::string& path) { return std::string(AsChars(platform().files().ReadAll(path))); }

}  // namespace

std::optional<std::string_view> FindProfileValue(std::string_view content, std::string_view section,
                                                 std::string_view key) {
  const Place place = FindPlace(content, section, key);
  if (place.line_begin == std::string_view::npos) return std::nullopt;
  return Unquoted(TrimLine(content.substr(place.value_begin, place.value_end - place.value_begin)));
}

std::string WithProfileValue(std::string_view content, std::string_view section, std::string_view key,
                             std::string_view value) {
  const Place place = FindPlace(content, section, key);
  const std::string_view line_end = LineEndOf(content);
  std::string result(content);
  const std::string line = std::string(key) + "=" + std::string(value);
  if (place.line_begin != std::string_view::npos) {
    size_t end = place.value_end;
    if (end > place.line_begin && content[end - 1] == '\r') --end;
    const bool has_equals = place.value_begin > place.line_begin && content[place.value_begin - 1] == '=';
    const size_t begin = has_equals ? place.value_begin : end;
    result.replace(begin, end - begin, has_equals ? std::string(value) : "=" + std::string(value));
  } else if (place.has_section) {
    InsertLine(result, place.insert_at, line, line_end);
  } else {
    InsertLine(result, result.size(), "[" + std::string(section) + "]", line_end);
    InsertLine(result, result.size(), line, line_end);
  }
  return result;
}

std::string EncodeProfileText(std::string_view text) {
  std::string bytes = EncodeText(text);
  const bool comes_back = DecodeText(bytes) == text && !LooksLikeUtf8(bytes);
  return comes_back ? bytes : std::string(text);
}

std::string DecodeProfileText(std::string_view bytes) {
  return LooksLikeUtf8(bytes) ? std::string(bytes) : DecodeText(bytes);
}

std::optional<std::string> ReadProfileString(const std::string& path, std::string_view section, std::string_view key,
                                             size_t limit) {
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  std::string content(file->Size(), '\0');
  content.resize(file->ReadAt(0, {reinterpret_cast<uint8_t*>(content.data()), content.size()}));
  const auto value = FindProfileValue(content, EncodeProfileText(section), EncodeProfileText(key));
  if (!value) return std::nullopt;
  return DecodeProfileText(CutValue(*value, limit));
}

void WriteProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value) {
  FileSystem& files = platform().files();
  const bool exists = files.Exists(path);
  const std::string content = exists ? ReadContent(path) : std::string();
  const std::string changed =
      WithProfileValue(content, EncodeProfileText(section), EncodeProfileText(key), EncodeProfileText(value));
  if (exists && changed == content) return;
  // A file that may not be written must not be replaced by the back door either.
  if (exists) static_cast<void>(files.Open(path, OpenMode::kReadWrite));
  const std::string temporary = path + ".new";
  try {
    files.WriteAll(temporary, AsBytes(changed));
    files.Replace(temporary, path);
  } catch (const std::exception&) {
    Attempt([&] { files.Delete(temporary); });
    throw;
  }
}

}  // namespace kestrun
