// The files of a folder that go to the Mapping Center: for each zip a picture and a text file of its name. What there
// is of them, for a list, and whether an upload can begin.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "formats/profile/profile_snapshot.h"
#include "maps/update/map_comparison.h"
#include "maps/upload/mission_check.h"

namespace kestrun {

// What the site takes, in bytes.
inline constexpr uint64_t kMostZipBytes = 51200;
inline constexpr uint64_t kMostPictureBytes = 102400;

// What stands beside a zip, in words for the columns of a list: "34 KB", "picture", "no comments".
struct MapParts {
  std::string zip;
  std::string picture;
  std::string comments;
};

// Reads the folder and the settings when it is made; the folder again when a second has gone by.
class UploadOverview {
 public:
  UploadOverview();
  [[nodiscard]] MapParts PartsOf(const std::string& folder, const std::string& zip_name);

 private:
  [[nodiscard]] std::string PictureWords(const std::string& folder, const std::string& base);
  [[nodiscard]] std::string LinkedPictureWords(const std::string& map) const;

  ListedFolder files_;
  ProfileSnapshot settings_;
};

// The name, or path, of a map's zip without its extension.
[[nodiscard]] std::string UploadBase(const std::string& zip);

// The picture that goes with a map: the one of its name, or else the one that the settings hold for it, which may have
// to be fetched. Empty when there is none.
[[nodiscard]] std::string UploadPicture(const std::string& base_path);

// Walks the zips and logs what is missing or too large. False when the upload is not to begin: pictures have to be
// there, comments unless they may be missing.
enum class Comments { kWanted, kMayBeMissing };
[[nodiscard]] bool CheckUploadFiles(const std::string& folder, const std::vector<std::string>& zips, Comments comments,
                                    const UploadLog& log);

}  // namespace kestrun
