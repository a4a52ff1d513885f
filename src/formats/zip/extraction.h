// One call of Cls_Zip's UnPack: the chosen members of an archive, one after the other, each whole in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/ref.h"
#include "formats/zip/cls_crc32.h"
#include "formats/zip/cls_encrypt.h"
#include "formats/zip/zip_walk.h"
#include "platform/files.h"

namespace kestrun::zip {

inline constexpr int16_t kDone = 0;
inline constexpr int16_t kNoPassword = -1;
inline constexpr int16_t kUnsupported = -10;

class Extraction {
 public:
  // Opens the archive; raises the file layer's error when it cannot. Closed at the end, however that comes.
  Extraction(const std::string& path, std::shared_ptr<const Directory> directory, std::string destination);
  // Indexed from 1 to the number of members. Gives the status. Error 6 before anything is unpacked when one of them
  // has more than 2 GB.
  int16_t Run(const std::vector<bool>& selection);

 private:
  enum class Next { kMember, kEnd };

  void RefuseTooLarge(const Item& item) const;
  Next ExtractMember(const Item& item);
  // Reads the stored bytes; false when they are not where the directory says.
  [[nodiscard]] bool ReadData(const Item& item);
  Next Decrypt(const Item& item);
  Next RefusePassword();
  void Expand(const Item& item);
  // Says what does not fit the directory, and writes all the same.
  void Write(const Item& item);

  std::shared_ptr<const Directory> directory_;
  std::string destination_;
  std::unique_ptr<File> file_;
  // Not shared between extractions: a box can let events in that extract another member.
  Bytes data_;
  Bytes reduced_;  // what the last reduced member holds
  std::string password_;
  Ref<Cls_Encrypt> cipher_ = MakeRef<Cls_Encrypt>();
  Cls_CRC32 checksum_;
  int16_t status_ = kDone;
};

}  // namespace kestrun::zip
