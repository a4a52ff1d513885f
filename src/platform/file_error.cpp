#include "platform/file_error.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr size_t kMostNameCharacters = 255;
constexpr int kArchiveFileNotFound = 1033;  // as archives number it

struct Advice {
  int number;
  std::string_view text;
};

// What the number alone says. What is known about the file goes before it.
constexpr std::array kAdvice{
    Advice{error::kSubscriptOutOfRange, "Choose another file, or get this one again."},
    Advice{error::kBadFileName, "A file cannot have this name. Choose another one."},
    Advice{kArchiveFileNotFound, "It is not there any more, or its name is misspelled. Check the name and the folder."},
    Advice{error::kFileNotFound, "It is not there any more, or its name is misspelled. Check the name and the folder."},
    Advice{error::kFileAlreadyOpen, "Another program has it open. Close that program, then try again."},
    Advice{error::kDeviceIo, "The disk or the network failed while it was used. Check the connection, then try again."},
    Advice{error::kFileAlreadyExists, "A file of this name is there already. Choose another name."},
    Advice{error::kDiskFull, "Make room on this disk, then try again."},
    Advice{error::kInputPastEnd, "It ends too early: it is damaged, or still being written. Get it again."},
    Advice{
        error::kPermissionDenied,
        "You may not change it: another program has it open, or you lack the rights. Close the game and other programs "
        "that use it, or choose a folder of your own."},
    Advice{error::kDiskNotReady, "Put the disk in, or check the connection, then try again."},
    Advice{error::kPathFileAccess,
           "It cannot be used as a file here: it is a folder, or the folder does not let you write. Check the name, or "
           "choose a folder of your own."},
    Advice{error::kPathNotFound, "There is no such folder. Check its name, and that its disk is connected."},
};

std::string_view AdviceFor(int number) {
  const auto* found =
      std::find_if(kAdvice.begin(), kAdvice.end(), [number](const Advice& row) { return row.number == number; });
  return found == kAdvice.end() ? std::string_view() : found->text;
}

std::string Listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  return list;
}

bool IsDenied(int number) {
  return number == error::kPermissionDenied || number == error::kPathFileAccess || number == error::kFileAlreadyOpen;
}

// The first part of a path that is longer than any disk takes; empty when all are short enough.
std::string TooLongPart(const std::string& path) {
  const std::vector<std::string> parts = Split(ReplaceAll(path, "/", "\\"), "\\");
  const auto found = std::find_if(parts.begin(), parts.end(),
                                  [](const std::string& part) { return CodePointCount(part) > kMostNameCharacters; });
  return found == parts.end() ? std::string() : *found;
}

// What the system tells about this file now; empty when that explains nothing.
std::string FactAbout(const FileError& failure) {
  const std::string& path = failure.path();
  if (const std::string part = TooLongPart(path); !part.empty()) {
    return "The name is too long: it has " + std::to_string(CodePointCount(part)) +
           " characters, and no more than 255 are possible. Choose a shorter one.";
  }
  if (!IsDenied(failure.number())) return {};
  if (platform().files().IsFolder(path)) return "It is a folder, not a file. Choose another name.";
  if (platform().files().IsReadOnly(path)) {
    return "It is marked read-only. Take that mark away in its properties, then try again.";
  }
  const std::vector<std::string> holders = platform().processes().HoldersOf(path);
  if (holders.empty()) return {};
  return "It is open in " + Listed(holders) + ". Close that program, then try again.";
}

RuntimeError Explained(const FileError& failure) {
  std::string advice;
  Attempt([&] { advice = FactAbout(failure); });
  if (advice.empty()) advice = AdviceFor(failure.number());
  std::string text = failure.description();
  // A sentence of its own that names the file already says what a standard text cannot.
  if (text.find(failure.path()) == std::string::npos) {
    if (text.ends_with('.')) text.pop_back();
    text += ": " + failure.path();
  }
  if (!advice.empty()) text += std::string(kCrLf) + advice;
  return RuntimeError(failure.number(), text);
}

}  // namespace

void RaiseEmptyFile(const std::string& path) {
  throw FileError(RuntimeError(error::kSubscriptOutOfRange, "The file is empty"), path);
}

RuntimeError ExplainedError() {
  try {
    throw;
  } catch (const FileError& failure) {
    return Explained(failure);
  } catch (...) {
    return CurrentError();
  }
}

}  // namespace kestrun
