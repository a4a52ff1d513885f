// The batch command: one file, or every file of a zip, into a named archive.
#pragma once

#include <string>
#include <vector>

namespace kestrun {

// -pack "archive" "name" "source"[/z]
// Packs and then appends the line `source --> archive:name ~>OK` to kestrun.log in the program's folder; the line does
// not record success. Notes before it name what was skipped, and an earlier change of the archive that was cut short.
// "/z" counts only directly behind the last quote. A text with fewer than six quotes ends silently
// with nothing packed and nothing logged.
void PackCommand(const std::string& command);

// Packs Source under Name into the archive, or with IsZip every file of the zip that is not empty under its own base
// name: all of them, or on a failure none. Another process that changes the archive, or uses the folder of the unpacked
// files, is waited for up to 5 s, and then named in an error. %GAMEDIR%,
// %APPDIR% and %TEMPDIR% in Source and ArchivePath are filled in. A web address is fetched into the temporary folder,
// and its text is then read as a path, which fails. A Name that would lead out of that folder is an error. Failures are
// reported by ShowError with the context "packfile ". Always gives false.
bool packfile(std::string Source, const std::string& Name, std::string ArchivePath, bool IsZip);

// The text with %GAMEDIR%, %APPDIR% and %TEMPDIR% filled in.
[[nodiscard]] std::string FillCommandMacros(const std::string& text);

// Gives a command line typed in a shell the form that the batch commands read: each word behind -pack, -restore or
// -checklist in double quotes, and the "/z" of a last word that ends in ".zip/z" directly behind the last quote, where
// it counts. A last word "/z" keeps its blank, and so does not. For any other command the words joined by blanks.
[[nodiscard]] std::string JoinCommandWords(const std::vector<std::string>& words);

}  // namespace kestrun
