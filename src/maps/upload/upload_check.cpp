#include "maps/upload/upload_check.h"

#include <algorithm>

#include "base/kilobytes.h"
#include "base/runtime_error.h"
#include "maps/map_picture.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

constexpr size_t kExtensionBytes = 4;

uint64_t FileBytes(const std::string& path) { return platform().files().Open(path, OpenMode::kRead)->Size(); }

// What the site takes for a picture. A bitmap is too large for it.
bool IsSitePicture(int32_t kind) {
  return kind != image_kind::kMissing && kind != image_kind::kBitmap && kind != image_kind::kOther;
}

// One walk over the zips: what is missing is logged and counted.
class UploadCheck {
 public:
  UploadCheck(const std::string& folder, const UploadLog& log) : folder_(folder), log_(log) {}

  void Look(const std::string& zip) {
    const std::string base = UploadBase(zip);
    const std::string path = folder_ + "\\" + base;
    if (FileBytes(folder_ + "\\" + zip) > kMostZipBytes) log_("Warning map '" + base + ".zip' is larger than 51 KB.");
    LookAtPicture(base, path);
    if (!FileExists(path + ".txt")) {
      log_("Warning comments file '" + base + ".txt' not found.");
      ++comments_;
    }
    ++files_;
  }

  [[nodiscard]] bool Conclude(Comments comments) const {
    if (pictures_ > 0) {
      log_("Unable to continue " + std::to_string(pictures_) + " screen shot(s) not found!");
      return false;
    }
    if (comments_ > 0) {
      log_("Warning " + std::to_string(comments_) + " comments file(s) not found.");
      if (comments == Comments::kWanted) {
        log_("Check the 'allow missing comments files' checkbox to upload maps without comments.");
        return false;
      }
    }
    log_(std::to_string(files_) + " files checked no missing screen shots.");
    return true;
  }

 private:
  void LookAtPicture(const std::string& base, const std::string& path) {
    const std::string picture = path + ".jpg";
    if (!FileExists(picture)) {
      if (IsSitePicture(ImageKind(GetMapPath(path + ".bms")))) return;
      log_("Warning screenshot '" + base + ".jpg' not found. JPG file required.");
      ++pictures_;
    } else if (FileBytes(picture) > kMostPictureBytes) {
      log_("Warning screenshot '" + base + ".jpg' is larger than 100 KB.");
      ++pictures_;
    }
  }

  const std::string& folder_;
  const UploadLog& log_;
  int files_ = 0;
  int pictures_ = 0;
  int comments_ = 0;
};

}  // namespace

std::string UploadBase(const std::string& zip) {
  return zip.substr(0, zip.size() - std::min(kExtensionBytes, zip.size()));
}

std::string UploadPicture(const std::string& base_path) {
  const std::string beside = base_path + ".jpg";
  return FileExists(beside) ? beside : GetMapPath(base_path + ".bms");
}

bool CheckUploadFiles(const std::string& folder, const std::vector<std::string>& zips, Comments comments,
                      const UploadLog& log) {
  UploadCheck check(folder, log);
  const std::string folder_part = folder + "\\";
  for (const std::string& zip : zips) {
    if (FileExists(folder_part + zip)) check.Look(zip);
  }
  return check.Conclude(comments);
}

// ---- the overview --------------------------------------------------------------------------------------------------

UploadOverview::UploadOverview() : settings_(ReadSettingsSnapshot()) {}

MapParts UploadOverview::PartsOf(const std::string& folder, const std::string& zip_name) {
  MapParts parts;
  const FolderEntry* const zip = files_.Find(folder, zip_name);
  if (!zip) return parts;
  const std::string base = UploadBase(zip_name);
  parts.zip = InKilobytes(zip->size) + (zip->size > kMostZipBytes ? ", large" : "");
  parts.picture = PictureWords(folder, base);
  parts.comments = files_.Find(folder, base + ".txt") ? "comments" : "no comments";
  return parts;
}

std::string UploadOverview::PictureWords(const std::string& folder, const std::string& base) {
  const FolderEntry* const picture = files_.Find(folder, base + ".jpg");
  if (!picture) return LinkedPictureWords(folder + "\\" + base + ".bms");
  return picture->size > kMostPictureBytes ? "large picture" : "picture";
}

// One on the web is not fetched for a list.
std::string UploadOverview::LinkedPictureWords(const std::string& map) const {
  const std::string stored = StoredPicture(settings_, map);
  if (IsUrl(stored)) return "web picture";
  bool is_picture = false;
  Attempt([&] { is_picture = !stored.empty() && IsSitePicture(ImageKind(stored)); });
  return is_picture ? "linked picture" : "no picture";
}

}  // namespace kestrun
