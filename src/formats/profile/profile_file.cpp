#include "formats/profile/profile_file.h"

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text_file.h"
#include "base/to_size.h"
#include "formats/profile/profile_text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// The present content, read through a handle that may write: a file that refuses it is left alone, since its folder
// might still let another file take its place.
Bytes ReadForChange(std::string_view path) {
  FileSystem& files = platform().files();
  if (!files.Exists(path)) return {};
  const std::unique_ptr<File> file = files.Open(path, OpenMode::kReadWrite);
  Bytes content(ToSize(file->Size()));
  if (file->ReadAt(0, content) != content.size()) Raise(error::kInputPastEnd);
  return content;
}

void ReplaceContent(std::string_view path, ByteView content) {
  FileSystem& files = platform().files();
  const std::string beside = std::string(path) + ".new";
  try {
    files.WriteAll(beside, content);
    files.Replace(beside, path);
  } catch (const std::exception&) {
    Attempt([&] { files.Delete(beside); });
    throw;
  }
}

// A text that the code page cannot hold, such as the folder of a player in another country, turns the file into UTF-8
// with its mark; everything that stood in it reads as before.
Bytes InFittingEncoding(Bytes content, std::string_view section, std::string_view key, std::string_view value) {
  const bool fits = !FirstUnencodable(section) && !FirstUnencodable(key) && !FirstUnencodable(value);
  if (fits || DetectProfileEncoding(content) != ProfileEncoding::kCodePage) return content;
  const std::string text = std::string(kUtf8Mark) + DecodeText(AsChars(content));
  return Bytes(text.begin(), text.end());
}

}  // namespace

std::optional<std::string> ReadProfileValue(std::string_view path, std::string_view section, std::string_view key) {
  std::optional<std::string> value;
  Attempt([&] { value = FindProfileValue(platform().files().ReadAll(path), section, key, kProfileValueBytes); });
  return value;
}

std::string ShapeProfileDefault(std::string_view text) {
  std::string shaped = CutToCodePageBytes(text.substr(0, text.find('\0')), kProfileValueBytes);
  shaped.erase(shaped.find_last_not_of(' ') + 1);
  return shaped;
}

bool WriteProfileValue(std::string_view path, std::string_view section, std::string_view key, std::string_view value) {
  return Attempt([&] {
    const Bytes content = InFittingEncoding(ReadForChange(path), section, key, value);
    const std::optional<Bytes> changed = WithProfileValue(content, section, key, value);
    if (changed) ReplaceContent(path, *changed);
  });
}

ProfileSnapshot ReadProfileSnapshot(std::string_view path) {
  Bytes content;
  Attempt([&] { content = platform().files().ReadAll(path); });
  return ProfileSnapshot(std::move(content));
}

bool WriteProfileValues(std::string_view path, const ProfileRows& rows, const std::vector<ProfileValue>& values) {
  return Attempt([&] {
    ProfileDocument document(ReadForChange(path));
    document.SetRows(rows);
    for (const ProfileValue& one : values) document.Set(one.section, one.key, one.value);
    if (document.has_changed()) ReplaceContent(path, document.ToBytes());
  });
}

}  // namespace kestrun
