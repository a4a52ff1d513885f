// An archive on disk, a Cls_Zip that reads it, and a folder for what it extracts.
#pragma once

#include <string>
#include <vector>

#include "formats/zip/cls_zip.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"
#include "support/zip_builder.h"

namespace kestrun {

class ZipTest : public HeadlessTest {
 protected:
  void WriteZip(const std::vector<ZipMember>& members, const ZipEnd& end = {}) {
    WriteFile(zip_path, BuildZip(members, end));
  }
  void Load() { ASSERT_EQ(zip->Get_Contents(zip_path), 0); }
  void LoadZip(const std::vector<ZipMember>& members, const ZipEnd& end = {}) {
    WriteZip(members, end);
    Load();
  }

  [[nodiscard]] Cls_Zip::Selection All() const {
    return Cls_Zip::Selection(static_cast<size_t>(zip->FileCount()) + 1, true);
  }
  int16_t UnPackAll() { return zip->UnPack(All(), out); }
  int16_t UnPackOnly(int32_t member) {
    Cls_Zip::Selection selection(static_cast<size_t>(zip->FileCount()) + 1);
    selection[static_cast<size_t>(member)] = true;
    return zip->UnPack(selection, out);
  }

  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int32_t at = 1; at <= zip->FileCount(); ++at) names.push_back(zip->FileName(at));
    return names;
  }
  [[nodiscard]] std::string Out(std::string_view name) const { return out + "\\" + std::string(name); }
  [[nodiscard]] std::string Extracted(std::string_view name) { return ReadFile(Out(name)); }
  [[nodiscard]] bool IsThere(std::string_view name) { return FileIsThere(Out(name)); }
  // Names of what lies in the folder of extracted files.
  [[nodiscard]] std::vector<std::string> OutEntries() {
    std::vector<std::string> names;
    if (!native_files.IsFolder(out)) return names;
    for (const FolderEntry& entry : native_files.List(out)) names.push_back(entry.name);
    return names;
  }
  void ExpectBox(const std::string& text) { desktop.dialogs().ExpectBox(text); }
  ExpectedDialog& ExpectPassword(std::optional<std::string> answer) {
    return desktop.dialogs().ExpectInput("Give Password", std::move(answer)).WithTitle("Password requered");
  }

  const std::string zip_path = Path("maps.zip");
  const std::string out = Path("out");
  const Ref<Cls_Zip> zip = MakeRef<Cls_Zip>();
};

}  // namespace kestrun
