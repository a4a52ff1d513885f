// The traditional stream cipher of zip archives (APPNOTE, "Traditional PKWARE Encryption"). It keeps nobody out for
// long; maps of that time come with it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "base/object.h"

namespace kestrun {

class Cls_Encrypt final : public TableObject {
 public:
  // Sets the keys by the password (UTF-8; its code page bytes count) and decrypts the 12 bytes of the header in place.
  // Error 9 when the buffer is shorter.
  void ZipPrepareKey(MutableByteView buffer, std::string_view password);
  // Decrypts all of the buffer in place, from the keys as they stand.
  void ZipDecryptArray(MutableByteView buffer);
  // Grows the buffer by a header of 12 random bytes in front and encrypts both.
  void ZipEncryptArray(Bytes& buffer, std::string_view password);

  [[nodiscard]] std::string TypeName() const override { return "Cls_Encrypt"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  void StartKeys(std::string_view password);
  void UpdateKeys(uint8_t plain);
  [[nodiscard]] uint8_t NextKeyByte() const;

  std::array<uint32_t, 3> keys_{};
};

}  // namespace kestrun
