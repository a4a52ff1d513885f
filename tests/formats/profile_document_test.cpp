// Many values set at once beside the same values set one after the other.
#include "formats/profile/profile_document.h"

#include <gtest/gtest.h>

#include <array>

#include "base/code_page.h"
#include "formats/profile/profile_snapshot.h"
#include "formats/profile/profile_text.h"
#include "formats/seeded_draw.h"

namespace kestrun {
namespace {

constexpr size_t kNoLimit = std::string::npos;

struct Change {
  std::string section;
  std::string key;
  std::string value;
};

Bytes Content(std::string_view text) { return {text.begin(), text.end()}; }

// What one write after the other gives, the turn to UTF-8 included, which the writer of files makes.
Bytes OneByOne(Bytes content, const std::vector<Change>& changes) {
  for (const auto& [section, key, value] : changes) {
    Bytes base = content;
    const bool fits = !FirstUnencodable(section) && !FirstUnencodable(key) && !FirstUnencodable(value);
    if (!fits && DetectProfileEncoding(base) == ProfileEncoding::kCodePage) {
      base = Content("\xEF\xBB\xBF" + DecodeText(AsChars(base)));
    }
    if (const auto changed = WithProfileValue(base, section, key, value)) content = *changed;
  }
  return content;
}

Bytes AtOnce(const Bytes& content, const std::vector<Change>& changes) {
  ProfileDocument document(content);
  for (const auto& [section, key, value] : changes) document.Set(section, key, value);
  return document.has_changed() ? document.ToBytes() : content;
}

TEST(ProfileDocumentTest, AFreshFileHoldsSectionsAndKeysInTheOrderInWhichTheyWereSet) {
  EXPECT_EQ(AsChars(AtOnce({}, {{"LIST", "MAP0", "C:\\a.bms"}, {"LIST", "TOTAL", "1"}, {"INFO", "VERSION", "128"}})),
            "[LIST]\r\nMAP0=C:\\a.bms\r\nTOTAL=1\r\n[INFO]\r\nVERSION=128\r\n");
}

TEST(ProfileDocumentTest, NothingHasChangedWhenEveryValueIsThereAlready) {
  ProfileDocument document(Content("[a]\r\nk = 1\r\n"));
  document.Set("A", "K", "1");
  EXPECT_FALSE(document.has_changed());
}

TEST(ProfileDocumentTest, AKeyThatCannotBeFoundAgainIsNotSetAndTurnsNothingIntoUtf8) {
  ProfileDocument document(Content("[a]\r\nk=1\r\n"));
  document.Set("a", "x=y", "地図");
  EXPECT_FALSE(document.has_changed());
}

constexpr std::array kSections{"a", "A", "LIST", "x]y", "", "é", "地", " b "};
constexpr std::array kKeys{"MAP0", "map0", "MAP1", "k", "[z", "É", "é", "a=b", ";c", "", " q "};
constexpr std::array kValues{"v",   "",   "two words", "v]", "Ã©",  "é",    "地図", "a\r\nMAP1=b",        "a\n[LIST]",
                             "'q'", "\"", " blank ",   ";c", "a=b", "v]\r", "Ã",    "C:\\maps\\Oasis.bms"};
constexpr std::array kLineEnds{"\r\n", "\r\n", "\r\n", "\n", "\r"};
constexpr std::array kFileBytes{"v", "x y", "\xE9", "\xC3\xA9", "\xE5\x9C\xB0", "v]", "=", ""};

std::string Line(SeededDraw& draw) {
  switch (draw.Below(8)) {
    case 0: return "[" + draw.One(kSections) + "]";
    case 1: return draw.One(kKeys);
    case 2: return "  ";
    case 3: return "; " + draw.One(kFileBytes);
    case 4: return "";
    default: return draw.One(kKeys) + "=" + draw.One(kFileBytes);
  }
}

Bytes File(SeededDraw& draw) {
  std::string text;
  for (uint32_t left = draw.Below(12); left > 0; --left) {
    text += Line(draw);
    if (left > 1 || draw.Below(3) != 0) text += draw.One(kLineEnds);
  }
  switch (draw.Below(5)) {
    case 0: return Content("\xEF\xBB\xBF" + text);
    case 1: return ProfileBytes(ProfileEncoding::kUtf16LittleEndian, text);
    default: return Content(text);
  }
}

TEST(ProfileDocumentTest, GeneratedFilesGetTheBytesOfOneWriteAfterTheOther) {
  SeededDraw draw(20261121);
  int turned = 0;
  for (int file = 0; file < 20000; ++file) {
    const Bytes content = File(draw);
    std::vector<Change> changes(1 + draw.Below(6));
    for (Change& change : changes) change = {draw.One(kSections), draw.One(kKeys), draw.One(kValues)};
    const Bytes expected = OneByOne(content, changes);
    std::string told;
    for (const auto& [section, key, value] : changes) told += "[" + section + "] <" + key + "> = <" + value + ">\n";
    ASSERT_EQ(AsChars(AtOnce(content, changes)), AsChars(expected)) << "file " << file << "\n"
                                                                    << AsChars(content) << "\n"
                                                                    << told;
    if (DetectProfileEncoding(content) != DetectProfileEncoding(expected)) ++turned;
  }
  EXPECT_GT(turned, 1000);
}

TEST(ProfileDocumentTest, RowsOfGeneratedFilesAreSetAsOneKeyAfterTheOther) {
  SeededDraw draw(20261122);
  int turned = 0;
  for (int file = 0; file < 20000; ++file) {
    std::string text = draw.Below(4) == 0 ? "" : "[List]\r\n";
    for (uint32_t left = draw.Below(8); left > 0; --left) {
      const std::string number = std::to_string(draw.Below(6));
      const std::array<std::string, 4> names{"map" + number, "MAP" + number, "MAP0" + number, "MAP" + number + "x"};
      text += names[draw.Below(4)] + (draw.Below(8) != 0 ? "=" : "") + draw.One(kFileBytes) + draw.One(kLineEnds);
      if (draw.Below(10) == 0) text += "[other]\r\n";
    }
    const Bytes content = Content(text);
    std::vector<std::string> values(draw.Below(6));
    std::vector<Change> changes;
    for (size_t row = 0; row < values.size(); ++row) {
      values[row] = draw.One(kValues);
      changes.push_back({"LIST", "MAP" + std::to_string(row), values[row]});
    }
    const Bytes expected = OneByOne(content, changes);
    ProfileDocument document(content);
    document.SetRows({"LIST", "MAP", values});
    const Bytes set = document.has_changed() ? document.ToBytes() : content;
    ASSERT_EQ(AsChars(set), AsChars(expected)) << "file " << file << "\n" << text;
    if (DetectProfileEncoding(content) != DetectProfileEncoding(expected)) ++turned;
  }
  EXPECT_GT(turned, 1000);
}

TEST(ProfileSnapshotTest, GeneratedFilesReadAsOneKeyAfterTheOther) {
  SeededDraw draw(20261121);
  int found = 0;
  for (int file = 0; file < 20000; ++file) {
    std::string text = "[LIST]\r\n";
    for (uint32_t left = draw.Below(10); left > 0; --left) {
      const std::string number = std::to_string(draw.Below(6));
      const std::array<std::string, 5> names{"MAP" + number, "map" + number, "MAP0" + number, "MAP",
                                             "MAP" + number + "x"};
      text += names[draw.Below(5)] + (draw.Below(8) != 0 ? "=" : "") + draw.One(kFileBytes) + draw.One(kLineEnds);
      if (draw.Below(12) == 0) text += "[other]\r\n";
    }
    const Bytes content = Content(text);
    const NumberedKeys keys{"MAP", draw.Below(3), draw.Below(6)};
    ProfileSnapshot snapshot(content);
    const auto values = snapshot.NumberedValues("list", keys, kNoLimit, "missing");
    ASSERT_EQ(values.size(), keys.count);
    for (size_t at = 0; at < keys.count; ++at) {
      const std::string key = "MAP" + std::to_string(keys.first + at);
      const auto expected = FindProfileValue(content, "list", key, kNoLimit);
      ASSERT_EQ(snapshot.Value("LIST", key, kNoLimit), expected) << "file " << file << ", " << key << "\n" << text;
      ASSERT_EQ(values[at], expected.value_or("missing")) << "file " << file << ", number " << keys.first + at << "\n"
                                                          << text;
      if (expected) ++found;
    }
  }
  EXPECT_GT(found, 5000);
}

}  // namespace
}  // namespace kestrun
