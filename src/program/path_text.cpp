#include "program/path_text.h"

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/platform.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

// Position of the last such character counted from 1, 0 when there is none.
size_t LastPosition(const std::string& text, char wanted) { return text.rfind(wanted) + 1; }

// A "?" before the last slash belongs to no query, and the name then goes on to the end.
std::string NameInUrl(const std::string& url) {
  size_t slash = LastPosition(url, '/');
  if (slash == 0) slash = LastPosition(url, '\\');
  const size_t question_mark = LastPosition(url, '?');
  const size_t end = question_mark <= slash ? url.size() : question_mark - 1;
  return url.substr(slash, end - slash);
}

// Byte position of a character counted from 1; the end of the text for one that lies behind it.
size_t BytePosition(const std::string& text, int64_t character) {
  size_t position = 0;
  for (int64_t i = 1; i < character && position < text.size(); ++i) static_cast<void>(NextCodePoint(text, position));
  return position;
}

}  // namespace

bool FileExists(const std::string& Path) {
  bool exists = false;
  Attempt([&] { exists = platform().files().Exists(Path); });
  return exists;
}

std::string ParentFolder(const std::string& Path) {
  const size_t backslash = Path.rfind('\\');
  if (backslash == std::string::npos) Raise(error::kInvalidProcedureCall);
  return Path.substr(0, backslash);
}

std::string WithoutLastBackslash(std::string folder) {
  if (folder.ends_with('\\')) folder.pop_back();
  return folder;
}

std::string GetFileName(const std::string& Path, bool NoServer) {
  if (!IsUrl(Path)) return Path.substr(Path.find_last_of("\\/") + 1);
  const std::string name = NoServer ? std::string() : NameFromServer(Path);
  return name.empty() ? NameInUrl(Path) : name;
}

std::string GetExtension(const std::string& Path) {
  const size_t dot = Path.rfind('.');
  return dot == std::string::npos ? std::string() : Path.substr(dot + 1);
}

bool HasExtension(const std::string& path, std::string_view extension) {
  return EqualsNoCase(GetExtension(path), extension);
}

std::string MidRange(const std::string& Text, int32_t First, int32_t Last) {
  if (First < 1 || int64_t{Last} - First + 1 < 0) Raise(error::kInvalidProcedureCall);
  const size_t begin = BytePosition(Text, First);
  return Text.substr(begin, BytePosition(Text, int64_t{Last} + 1) - begin);
}

std::string FillPlaceholders(const std::string& Template, const std::vector<Variant>& Arguments) {
  std::string text = Template;
  size_t number = 0;
  for (const Variant& argument : Arguments) text = ReplaceAll(text, "%" + std::to_string(++number), ToText(argument));
  return text;
}

}  // namespace kestrun
