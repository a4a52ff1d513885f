#include "styles/style_archive.h"

#include <algorithm>
#include <utility>

#include "base/convert.h"
#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// A style that is refused so often is not heard again: it could keep its user busy with questions for ever.
constexpr int kMostRefusals = 3;

bool IsSeparator(char letter) { return letter == '\\' || letter == '/'; }

// Names of devices and of other machines are taken as they stand: already looking at them would reach out.
bool IsOutside(std::string_view path) { return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]); }

std::string FullNameOf(const std::string& path) { return IsOutside(path) ? path : platform().files().TruePath(path); }

// No file has such a name, and in a box it would look like something else.
bool HasControlCharacters(std::string_view text) {
  return std::ranges::any_of(text, [](char letter) { return static_cast<unsigned char>(letter) < ' '; });
}

}  // namespace

// What a member needs before it runs. The file is an argument or, where that is kArchive, the archive's own.
struct StyleArchive::Door {
  static constexpr int kArchive = -1;
  std::string_view member;
  Access access;
  int path_argument = kArchive;
};

const StyleArchive::Door StyleArchive::kDoors[]{
    {"ExtractFile", Access::kRead},  {"ExtractFile", Access::kWrite, 2}, {"FileCRC32", Access::kRead},
    {"SavePffFile", Access::kWrite}, {"LoadPff", Access::kRead, 0},      {"FileBuffer", Access::kRead, 0},
};

StyleArchive::StyleArchive(Ref<ClsPFF> archive, std::string style_file)
    : archive_(std::move(archive)), style_file_(std::move(style_file)) {}

Bytes StyleArchive::Extract(int32_t number) {
  RequireAccess(archive_->OpenFileName(), Access::kRead);
  Bytes bytes;
  static_cast<void>(archive_->ExtractFile(number, bytes, ""));
  return bytes;
}

Variant StyleArchive::Get(MemberId member, Arguments arguments) {
  PassDoors(member, arguments);
  return archive_->Get(member, arguments);
}

void StyleArchive::Put(MemberId member, Arguments arguments, const Variant& value) {
  archive_->Put(member, arguments, value);
}

void StyleArchive::PassDoors(MemberId member, Arguments arguments) {
  for (const Door& door : kDoors) {
    if (archive_->FindMember(door.member) != member) continue;
    if (door.path_argument == Door::kArchive) {
      RequireAccess(archive_->OpenFileName(), door.access);
    } else if (static_cast<size_t>(door.path_argument) < arguments.size()) {
      RequireAccess(ToText(arguments[static_cast<size_t>(door.path_argument)]), door.access);
    }
  }
}

bool StyleArchive::IsOwn(const std::string& full_name) const {
  return EqualsNoCase(full_name, FullNameOf(style_file_));
}

// An empty name is no file: the archive tells that itself, and an extraction goes to no file then.
void StyleArchive::RequireAccess(const std::string& path, Access access) {
  if (path.empty()) return;
  if (HasControlCharacters(path)) Raise(error::kPermissionDenied);
  const std::string full_name = FullNameOf(path);
  if (access == Access::kRead && IsOwn(full_name)) return;
  const std::string key = ToLower(full_name);
  if (!answers_.contains(key)) answers_[key] = refusals_ < kMostRefusals && Ask(full_name);
  if (!answers_[key]) Raise(error::kPermissionDenied);
}

bool StyleArchive::Ask(const std::string& full_name) {
  MessageBoxRequest request;
  const std::string line_break(kCrLf);
  request.text = "The style '" + style_file_ + "' wants to use this file:" + line_break + full_name + line_break +
                 line_break + "Do you allow the style to read and change it?";
  request.buttons = BoxButtons::kYesNo;
  request.icon = BoxIcon::kWarning;
  request.default_button = 2;
  const bool allowed = platform().dialogs().ShowMessage(request) == BoxAnswer::kYes;
  if (!allowed) ++refusals_;
  return allowed;
}

}  // namespace kestrun
