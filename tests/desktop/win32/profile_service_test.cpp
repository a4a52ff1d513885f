// Our profile reader and writer beside the service of the system, on a few thousand generated files. The differences
// that are meant are listed in docs/formats/profile.md; the generator makes none of them, or the comparison levels
// them.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdio>
#include <memory>

#include "base/code_page.h"
#include "formats/profile/profile_file.h"
#include "formats/profile/profile_lines.h"
#include "formats/profile/profile_text.h"
#include "formats/seeded_draw.h"

namespace kestrun {
namespace {

constexpr int kFiles = 3000;

constexpr std::array kSections{"a", "B", "a b", "launcher", "x]y", ""};
constexpr std::array kKeys{"k", "Key", "a b", "#k", "DFLWDEM.EXE", "'q'", "[z", "n1"};
constexpr std::array kBlanks{"", "", "", " ", "\t", "  "};
constexpr std::array kValues{"v",    "",   "one two", "'v'", "\"v\"", "\" v \"", "\"\"v\"\"", "\"v",     "'",    "\"\"",
                             ";v",   "v;", "a=b",     "=",   "[v]",   "C:\\x y", "True",      "'v\"",    "%1",   "v'",
                             "\"'v", "0",  "-1",      "#",   "]",     "/",       "\\",        "x\ty\tz", "''v''"};
constexpr std::array kLineEnds{"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\n\r\n"};

std::string Mixed(SeededDraw& draw, std::string text) {
  for (char& c : text)
    if (draw.Below(3) == 0) c = static_cast<char>(draw.Below(2) != 0 ? std::toupper(c) : std::tolower(c));
  return text;
}

std::string Value(SeededDraw& draw) {
  switch (draw.Below(12)) {
    case 0: return std::string(250 + draw.Below(10), 'x');
    case 1: return "\xE4\xF6\xFC \xDF";
    default: return draw.One(kValues);
  }
}

std::string Line(SeededDraw& draw) {
  const std::string before = draw.One(kBlanks);
  const std::string behind = draw.One(kBlanks);
  switch (draw.Below(10)) {
    case 0:
    case 1: return before + "[" + Mixed(draw, draw.One(kSections)) + "]" + behind;
    case 2: return before + ";" + draw.One(kKeys) + "=" + Value(draw);
    case 3: return before + draw.One(kKeys) + behind;
    case 4: return before;
    default:
      return before + Mixed(draw, draw.One(kKeys)) + behind + "=" + draw.One(kBlanks) + Value(draw) + draw.One(kBlanks);
  }
}

std::string Content(SeededDraw& draw) {
  std::string content = draw.Below(4) != 0 ? "[" + draw.One(kSections) + "]\r\n" : "";
  const uint32_t lines = draw.Below(32);
  for (uint32_t i = 0; i < lines; ++i) {
    content += Line(draw);
    if (i + 1 < lines || draw.Below(4) != 0) content += draw.One(kLineEnds);
  }
  return content;
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

// A file that the service is asked about.
class ServiceFile {
 public:
  ServiceFile() {
    std::array<char, MAX_PATH> folder{};
    std::array<char, MAX_PATH> name{};
    GetTempPathA(folder.size(), folder.data());
    GetTempFileNameA(folder.data(), "kes", 0, name.data());
    path_ = name.data();
  }
  ~ServiceFile() { DeleteFileA(path_.c_str()); }
  ServiceFile(const ServiceFile&) = delete;
  ServiceFile& operator=(const ServiceFile&) = delete;

  void Put(const std::string& content) {
    const OpenFile file(std::fopen(path_.c_str(), "wb"));
    std::fwrite(content.data(), 1, content.size(), file.get());
    Forget();
  }
  std::string Content() {
    Forget();
    const OpenFile file(std::fopen(path_.c_str(), "rb"));
    std::string content(1 << 20, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    return content;
  }
  std::string Read(const std::string& section, const std::string& key, const std::string& missing) {
    std::array<char, 256> buffer{};
    const DWORD count =
        GetPrivateProfileStringA(section.c_str(), key.c_str(), missing.c_str(), buffer.data(), 255, path_.c_str());
    return {buffer.data(), count};
  }
  void Write(const std::string& section, const std::string& key, const std::string& value) {
    WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), path_.c_str());
  }

 private:
  // Drops what the service keeps of the file.
  void Forget() { WritePrivateProfileStringA(nullptr, nullptr, nullptr, path_.c_str()); }

  std::string path_;
};

// Our answer, in bytes of the code page.
std::string OurRead(const std::string& content, const std::string& section, const std::string& key,
                    const std::string& missing) {
  const auto value = FindProfileValue(AsBytes(content), section, key, kProfileValueBytes);
  return EncodeText(value ? *value : ShapeProfileDefault(missing));
}

std::string OurWrite(const std::string& content, const std::string& section, const std::string& key,
                     const std::string& value) {
  const auto changed = WithProfileValue(AsBytes(content), section, key, DecodeText(value));
  return changed ? std::string(AsChars(*changed)) : content;
}

// The service writes every line of the file anew: without blank lines, blanks, and what stands behind a section.
std::string Levelled(const std::string& content) {
  std::string levelled;
  for (ProfileLineCursor cursor(content); cursor.Next();) {
    std::string_view text = TrimProfileBlanks(cursor.line());
    const bool is_comment = !text.empty() && text.front() == ';';
    const ProfileLine line = ParseProfileLine(is_comment ? text.substr(1) : text);
    if (line.kind == ProfileLineKind::kBlank) continue;
    if (line.kind == ProfileLineKind::kSection && line.name.empty()) continue;  // the service loses these
    if (is_comment) levelled += ";";
    if (line.kind == ProfileLineKind::kSection) {
      levelled += "[" + std::string(line.name) + "]\n";
    } else {
      levelled += std::string(line.name) + (line.has_value ? "=" + std::string(line.value) : "") + "\n";
    }
  }
  return levelled;
}

TEST(ProfileServiceTest, GeneratedFilesReadAsTheSystemsServiceReadsThem) {
  SeededDraw draw(20240229);
  ServiceFile file;
  int found = 0;
  for (int i = 0; i < kFiles; ++i) {
    const std::string content = Content(draw);
    file.Put(content);
    for (int question = 0; question < 4; ++question) {
      const std::string section = Mixed(draw, draw.One(kSections));
      const std::string key = draw.One(kBlanks) + Mixed(draw, draw.One(kKeys)) + draw.One(kBlanks);
      const std::string missing = question == 0 ? "  none  " : "none";
      const std::string expected = file.Read(section, key, missing);
      if (expected != "none" && expected != "  none") ++found;
      ASSERT_EQ(OurRead(content, section, key, missing), expected)
          << "file " << i << ", [" << section << "] <" << key << ">\n"
          << content;
    }
  }
  // Enough of the questions have an answer other than the default.
  EXPECT_GT(found, kFiles / 6);
}

TEST(ProfileServiceTest, GeneratedFilesAreWrittenAsTheSystemsServiceWritesThem) {
  SeededDraw draw(20240229);
  ServiceFile file;
  for (int i = 0; i < kFiles; ++i) {
    const std::string content = Content(draw);
    const std::string section = Mixed(draw, draw.One(kSections));
    const std::string key = Mixed(draw, draw.One(kKeys));
    const std::string value = Value(draw);
    file.Put(content);
    file.Write(section, key, value);
    const std::string ours = OurWrite(content, section, key, value);
    ASSERT_EQ(Levelled(ours), Levelled(file.Content()))
        << "file " << i << ", [" << section << "] <" << key << "> = <" << value << ">\n"
        << content;
    // And each reads what the other wrote.
    const std::string expected = file.Read(section, key, "none");
    file.Put(ours);
    EXPECT_EQ(file.Read(section, key, "none"), expected) << "file " << i;
    EXPECT_EQ(OurRead(ours, section, key, "none"), expected) << "file " << i;
  }
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
