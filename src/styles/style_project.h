// A style project under edit. Its file is never edited: all work goes at once into a copy beside it, the working copy,
// whose name has "~$" in front. What the copy holds is whole after each save, whatever ends it; the file changes only
// when the copy is put in its place.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "formats/pff/cls_pff.h"
#include "platform/files.h"

namespace kestrun {

struct ProjectEntry {
  int32_t number;  // its position in the archive, from 0
  std::string name;
};

class StyleProject {
 public:
  // The working copy of a file, unless another program has it; of a project without one, for an empty name, a fixed
  // file in the program's folder.
  [[nodiscard]] static std::string WorkingCopyOf(const std::string& file);

  // Empty for a new project, and after ForgetFile.
  [[nodiscard]] const std::string& File() const { return file_; }
  [[nodiscard]] const std::string& WorkingFile() const { return working_file_; }
  // Null while no project was opened.
  [[nodiscard]] const Ref<ClsPFF>& archive() const { return archive_; }
  // The same; error 91 in place of null.
  Ref<ClsPFF> RequireArchive() const;
  // The project is asked for its name again when it is saved.
  void ForgetFile() { file_.clear(); }

  enum class Opened {
    kNew,         // for an empty name: a project with nothing in it but assembly.txt
    kMissing,     // no such file: nothing stands behind the project
    kLoaded,      // the working copy is open
    kUnreadable,  // it is no archive
  };
  // `takes_copy` is asked when there is a working copy already: true takes it as it is, false copies the file over it.
  // One that another program works on stays that program's: this project then has a copy of its own, "~2$" in front of
  // its name, and the answer says whether it is made of the other one or of the file. Of several copies that nobody
  // works on any more the one that was written last is taken; the others wait for the next opening.
  // A failure leaves no project, and the files as they were.
  Opened Open(const std::string& file, const std::function<bool()>& takes_copy);

  // Those that are not deleted, in the archive's order.
  [[nodiscard]] std::vector<ProjectEntry> Entries() const;
  // The bytes of the first entry of that name. Error 53 when there is none.
  [[nodiscard]] Bytes Read(const std::string& name) const;

  // Puts the working copy in the place of the target in one step; nothing for the working copy itself.
  void CopyTo(const std::string& target) const;
  // Removes the working copy, with all that was not copied.
  void RemoveWorkingCopy();

 private:
  Opened Load(const std::string& file, const std::function<bool()>& takes_copy);
  struct Copies;
  // `first` is the name that the first program's copy has.
  [[nodiscard]] static Copies FindCopies(const std::string& first);
  static void TakeNewCopy(const std::string& first, Copies& copies);
  void TakeCopy(const Copies& copies);
  void TakeFile(const std::string& file) const;
  void TakeOthers(const std::string& copy) const;

  std::string file_;
  std::string working_file_;
  Ref<ClsPFF> archive_;
  std::shared_ptr<FileLock> turn_;  // keeps other programs off the working copy
};

}  // namespace kestrun
