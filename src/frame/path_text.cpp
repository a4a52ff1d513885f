#include "frame/path_text.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"
#include "frame/web_paths.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

UrlFileNameSource& Source() {
  static UrlFileNameSource source;
  return source;
}

// Byte offset of a character position counted from 1; the end for positions past it.
size_t OffsetOf(const std::string& text, int32_t position) {
  size_t offset = 0;
  for (int32_t at = 1; at < position && offset < text.size(); ++at) static_cast<void>(NextCodePoint(text, offset));
  return offset;
}

std::string NameInAddress(const std::string& address) {
  size_t slash = address.rfind('/');
  if (slash == std::string::npos) slash = address.rfind('\\');
  const size_t begin = slash == std::string::npos ? 0 : slash + 1;
  const size_t query = address.rfind('?');
  const size_t end = query == std::string::npos || query < begin ? address.size() : query;
  return address.substr(begin, end - begin);
}

}  // namespace

bool FileExists(const std::string& Path) {
  bool exists = false;
  Attempt([&] { exists = platform().files().Exists(Path); });
  return exists;
}

std::string ParentFolder(const std::string& Path) {
  const size_t separator = Path.rfind('\\');
  if (separator == std::string::npos) Raise(error::kInvalidProcedureCall);
  return Path.substr(0, separator);
}

std::string GetFileName(const std::string& Path, bool NoServer) {
  if (!IsUrl(Path)) return Path.substr(Path.find_last_of("\\/") + 1);
  if (!NoServer && Source()) {
    std::string told = Source()(Path);
    if (!told.empty()) return told;
  }
  return NameInAddress(Path);
}

std::string GetExtension(const std::string& Path) {
  const size_t dot = Path.rfind('.');
  return dot == std::string::npos ? std::string() : Path.substr(dot + 1);
}

std::string MidRange(const std::string& Text, int32_t First, int32_t Last) {
  if (First < 1 || Last < First - 1) Raise(error::kInvalidProcedureCall);
  const size_t begin = OffsetOf(Text, First);
  return Text.substr(begin, OffsetOf(Text, Last + 1) - begin);
}

std::string FillPlaceholders(std::string Template, const std::vector<std::string>& Arguments) {
  for (size_t at = 0; at < Arguments.size(); ++at) {
    Template = ReplaceAll(Template, "%" + std::to_string(at + 1), Arguments[at]);
  }
  return Template;
}

void SetUrlFileNameSource(UrlFileNameSource source) { Source() = std::move(source); }

}  // namespace kestrun
