// Files as the logic sees them. Paths are UTF-8 with either separator; on Linux "\" is read as "/".
// Every failure is a RuntimeError: 53 file not found, 76 path not found, 70 permission denied (locked or read-only),
// 75 path/file access, 58 file already exists, 61 disk full, 57 device I/O.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace kestrun {

enum class OpenMode {
  kRead,       // the file must exist
  kReadWrite,  // created when missing, never truncated
  kCreate,     // created or emptied
};

// One open file; closed by its destructor. Offsets and sizes in bytes.
class File {
 public:
  virtual ~File() = default;
  [[nodiscard]] virtual uint64_t Size() = 0;
  // Reads up to buffer.size() bytes at the offset; gives the number read, less than asked only at the end of the file.
  [[nodiscard]] virtual size_t ReadAt(uint64_t offset, MutableByteView buffer) = 0;
  // Writes all bytes at the offset, extending the file as needed.
  virtual void WriteAt(uint64_t offset, ByteView bytes) = 0;
  // What was written so far survives a power cut once this returns.
  virtual void Flush() = 0;
  // Cuts the file at that length.
  virtual void Truncate(uint64_t bytes) = 0;
  // Takes the room on the disk that the file needs to be of that length: writing within it no longer meets a full disk.
  // What the file holds stays; where the system has no other way it is made longer by zeros. Error 61 when there is no
  // room: the file's length is then as before.
  virtual void Reserve(uint64_t bytes) = 0;
  // Closes and reports what closing reports. The file is not used afterwards.
  virtual void Close() = 0;

 protected:
  // Reserve for systems and disks that know no other way.
  void ReserveByZeros(uint64_t bytes);
};

// A turn at something that only one process may use at a time: ends with this object, and with its process, however
// that ends.
class FileLock {
 public:
  virtual ~FileLock() = default;
  // The file that stands for the turn is not removed when the turn ends, but waits for the next one: making and
  // removing a file takes longer than all else of a turn.
  void LetFileStay() { file_stays_ = true; }

 protected:
  [[nodiscard]] bool FileStays() const { return file_stays_; }

 private:
  bool file_stays_ = false;
};

// Who has a turn, as far as it is known: a process number of 0 and no name when it is not.
struct LockHolder {
  uint32_t process = 0;
  std::string program;
};

// Moments in local time: 100-nanosecond units since 1601-01-01, as the clock on the wall counts them.
struct LocalFileTimes {
  uint64_t creation = 0;
  uint64_t access = 0;
  uint64_t write = 0;
};

struct FolderEntry {
  std::string name;
  bool is_folder = false;
  uint64_t size = 0;
  uint64_t write_time = 0;  // as WriteTime gives it
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  [[nodiscard]] virtual std::unique_ptr<File> Open(std::string_view path, OpenMode mode) = 0;
  // True for files and folders alike.
  [[nodiscard]] virtual bool Exists(std::string_view path) = 0;
  [[nodiscard]] virtual bool IsFolder(std::string_view path) = 0;
  // Replaces an existing target. A file that cannot be copied whole leaves an existing target as it was where the
  // system allows it.
  virtual void Copy(std::string_view from, std::string_view to) = 0;
  virtual void Delete(std::string_view path) = 0;
  // True for a file with a mark that keeps it from being changed. Never raises.
  [[nodiscard]] virtual bool IsReadOnly(std::string_view path) { return static_cast<void>(path), false; }
  // Where files have a mark that keeps them from being deleted: takes it away. Never raises.
  virtual void ClearReadOnly(std::string_view path) { static_cast<void>(path); }
  // Error 58 when the target exists.
  virtual void Rename(std::string_view from, std::string_view to) = 0;
  // Puts `from` in the place of `to` in one step.
  virtual void Replace(std::string_view from, std::string_view to) = 0;
  virtual void MakeFolder(std::string_view path) = 0;
  // Error 75 when the folder is not empty.
  virtual void RemoveFolder(std::string_view path) = 0;
  // Entries without "." and "..", sorted by name without regard to case.
  [[nodiscard]] virtual std::vector<FolderEntry> List(std::string_view folder) = 0;
  // Last write time: 100-nanosecond units since 1601-01-01 UTC.
  [[nodiscard]] virtual uint64_t WriteTime(std::string_view path) = 0;
  virtual void SetWriteTime(std::string_view path, uint64_t file_time) = 0;
  // All times of a file; a system that cannot set the creation time leaves that one as it is.
  virtual void SetLocalTimes(std::string_view path, const LocalFileTimes& times) = 0;
  [[nodiscard]] virtual std::string CurrentFolder() = 0;
  // Files that were made, renamed or deleted in the folder stay so after a power cut once this returns. Never raises:
  // some systems do it unasked and some disks cannot.
  virtual void FlushFolder(std::string_view folder) = 0;
  // What was written to these files of one folder, by whoever, survives a power cut once this returns. Many at once
  // cost less than one after the other where the system allows.
  virtual void FlushFiles(const std::string& folder, const std::vector<std::string>& names);
  // One path for a file that several paths lead to: links followed and names in the case that they have on the disk, as
  // far as the system tells. What is not there keeps its name, in the folder's one path.
  [[nodiscard]] virtual std::string TruePath(std::string_view path) = 0;
  // Takes the turn that the file `path` stands for; null while somebody else has it, in this process or another, under
  // Wine or beside it. The file is made for the turn, names its holder (ReadLockHolder), and is removed with it.
  [[nodiscard]] virtual std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) = 0;

  // Who has the turn that TryLock did not give. Never raises.
  [[nodiscard]] LockHolder ReadLockHolder(std::string_view path);

  // Whole-file forms of the above.
  [[nodiscard]] Bytes ReadAll(std::string_view path);
  void WriteAll(std::string_view path, ByteView bytes);
  // Makes the bytes the file's whole content in one step that also survives a power cut: there is the old content or
  // the new one at any moment. What is half written stands in `path` + ".new" meanwhile; a failure takes it away.
  void WriteAllDurably(std::string_view path, ByteView bytes);
  // Copy that survives a power cut: the target is as before or the whole copy at any moment, and a failure leaves it as
  // it was. What is half written stands in `to` + ".new" meanwhile, where the next copy writes over what a kill left.
  // The caller sees to it that nobody else copies there at the same time.
  void CopyDurably(std::string_view from, std::string_view to);
  // Writes behind the present end, creating the file when it is missing.
  void Append(std::string_view path, ByteView bytes);

 private:
  // WriteAllDurably; `finish` is called before the file that was written takes its place.
  void ReplaceDurably(std::string_view path, ByteView bytes,
                      const std::function<void(const std::string& unfinished)>& finish);
};

// Where in its file TryLock locks one byte: behind any text.
inline constexpr int64_t kLockedByte = int64_t{1} << 30;

// What TryLock writes into its file, and back. Anything else than such a text gives an unknown holder.
[[nodiscard]] std::string FormatLockHolder(const LockHolder& holder);
[[nodiscard]] LockHolder ParseLockHolder(std::string_view text);

// The folder part of a path, up to and without its last separator: "C:" for "C:\a", "." where there is none.
[[nodiscard]] std::string_view FolderPart(std::string_view path);

}  // namespace kestrun
