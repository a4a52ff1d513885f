#include "platform/files.h"

#include <algorithm>
#include <charconv>

#include "base/runtime_error.h"
#include "platform/file_error.h"

namespace kestrun {
namespace {

// Holders name themselves in far less.
constexpr size_t kMostHolderBytes = 512;

bool IsControl(char one) { return static_cast<unsigned char>(one) < ' ' || one == '\x7F'; }

}  // namespace

void File::ReserveByZeros(uint64_t bytes) {
  constexpr uint64_t kBlock = uint64_t{256} * 1024;
  const uint64_t before = Size();
  if (bytes <= before) return;
  const Bytes zeros(static_cast<size_t>(std::min(kBlock, bytes - before)));
  try {
    for (uint64_t at = before; at < bytes; at += zeros.size()) {
      WriteAt(at, ByteView(zeros).first(static_cast<size_t>(std::min<uint64_t>(zeros.size(), bytes - at))));
    }
  } catch (const RuntimeError&) {
    Truncate(before);
    throw;
  }
}

std::string FormatLockHolder(const LockHolder& holder) {
  return std::to_string(holder.process) + " " + holder.program + "\n";
}

LockHolder ParseLockHolder(std::string_view text) {
  LockHolder holder;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), holder.process);
  const auto digits = static_cast<size_t>(end - text.data());
  if (failure != std::errc() || text.size() < digits + 2 || text[digits] != ' ' || text.back() != '\n') return {};
  holder.program = text.substr(digits + 1, text.size() - digits - 2);
  const bool is_plain = std::none_of(holder.program.begin(), holder.program.end(), IsControl);
  return is_plain ? holder : LockHolder{};
}

std::string_view FolderPart(std::string_view path) {
  const size_t separator = path.find_last_of("\\/");
  if (separator == std::string_view::npos) return ".";
  return separator == 0 ? path.substr(0, 1) : path.substr(0, separator);
}

LockHolder FileSystem::ReadLockHolder(std::string_view path) {
  Bytes text(kMostHolderBytes);
  const bool was_read = Attempt([&] { text.resize(Open(path, OpenMode::kRead)->ReadAt(0, text)); });
  return was_read ? ParseLockHolder(AsChars(text)) : LockHolder{};
}

Bytes FileSystem::ReadAll(std::string_view path) {
  constexpr uint64_t kMostBytes = 0x7FFFFFFF;
  const std::unique_ptr<File> file = Open(path, OpenMode::kRead);
  const uint64_t size = file->Size();
  if (size > kMostBytes) {
    Raise(error::kOverflow,
          "The file '" + std::string(path) + "' has " + std::to_string(size) + " bytes. Files over 2 GB are refused.");
  }
  Bytes bytes(static_cast<size_t>(size));
  if (file->ReadAt(0, bytes) != bytes.size()) Raise(error::kInputPastEnd);
  return bytes;
}

void FileSystem::WriteAll(std::string_view path, ByteView bytes) {
  const std::unique_ptr<File> file = Open(path, OpenMode::kCreate);
  file->WriteAt(0, bytes);
  file->Close();
}

void FileSystem::WriteAllDurably(std::string_view path, ByteView bytes) {
  ReplaceDurably(path, bytes, [](const std::string&) {});
}

void FileSystem::ReplaceDurably(std::string_view path, ByteView bytes,
                                const std::function<void(const std::string& unfinished)>& finish) {
  const std::string unfinished = std::string(path) + ".new";
  const auto write = [&] {
    const std::unique_ptr<File> file = Open(unfinished, OpenMode::kCreate);
    file->WriteAt(0, bytes);
    file->Flush();
    file->Close();
    finish(unfinished);
    Replace(unfinished, path);
  };
  OnFailure(write, [&](const RuntimeError&) { Attempt([&] { Delete(unfinished); }); });
  FlushFolder(FolderPart(path));
}

void FileSystem::FlushFiles(const std::string& folder, const std::vector<std::string>& names) {
  const std::string in_folder = folder + "\\";
  for (const std::string& name : names) {
    const std::unique_ptr<File> file = Open(in_folder + name, OpenMode::kReadWrite);
    file->Flush();
    file->Close();
  }
}

void FileSystem::CopyDurably(std::string_view from, std::string_view to) {
  if (IsFolder(from)) throw FileError(error::kPathFileAccess, std::string(from));
  if (IsFolder(to)) throw FileError(error::kPathFileAccess, std::string(to));
  const Bytes bytes = ReadAll(from);
  const uint64_t time = WriteTime(from);
  // Where the target is a link, what it points at is replaced, not the link.
  const std::string target = TruePath(to);
  if (IsReadOnly(target) || TruePath(from) == target) throw FileError(error::kPermissionDenied, std::string(to));
  const auto write = [&] { ReplaceDurably(target, bytes, [&](const std::string& copy) { SetWriteTime(copy, time); }); };
  OnFailure(write, [&](const RuntimeError& failure) { throw FileError(failure, std::string(to)); });
}

void FileSystem::Append(std::string_view path, ByteView bytes) {
  const std::unique_ptr<File> file = Open(path, OpenMode::kReadWrite);
  file->WriteAt(file->Size(), bytes);
  file->Close();
}

}  // namespace kestrun
