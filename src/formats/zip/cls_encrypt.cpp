#include "formats/zip/cls_encrypt.h"

#include <algorithm>

#include "base/byte_array.h"
#include "base/code_page.h"
#include "base/crc32.h"
#include "base/member_rows.h"
#include "base/number.h"
#include "formats/zip/zip_layout.h"

namespace kestrun {
namespace {

constexpr std::array<uint32_t, 3> kFirstKeys{0x12345678, 0x23456789, 0x34567890};
constexpr uint32_t kMultiplier = 134775813;

}  // namespace

void Cls_Encrypt::UpdateKeys(uint8_t plain) {
  keys_[0] = crc32::Next(keys_[0], plain);
  keys_[1] = (keys_[1] + (keys_[0] & 255)) * kMultiplier + 1;
  keys_[2] = crc32::Next(keys_[2], static_cast<uint8_t>(keys_[1] >> 24));
}

uint8_t Cls_Encrypt::NextKeyByte() const {
  const uint32_t low = (keys_[2] & 0xFFFF) | 2;
  return static_cast<uint8_t>((low * (low ^ 1)) >> 8);
}

void Cls_Encrypt::StartKeys(std::string_view password) {
  keys_ = kFirstKeys;
  for (const char one : EncodeText(password)) UpdateKeys(static_cast<uint8_t>(one));
}

void Cls_Encrypt::ZipPrepareKey(MutableByteView buffer, std::string_view password) {
  if (buffer.size() < zip::kEncryptionHeaderBytes) Raise(error::kSubscriptOutOfRange);
  StartKeys(password);
  ZipDecryptArray(buffer.first(zip::kEncryptionHeaderBytes));
}

void Cls_Encrypt::ZipDecryptArray(MutableByteView buffer) {
  for (uint8_t& byte : buffer) {
    byte ^= NextKeyByte();
    UpdateKeys(byte);
  }
}

void Cls_Encrypt::ZipEncryptArray(Bytes& buffer, std::string_view password) {
  Bytes header(zip::kEncryptionHeaderBytes);
  std::generate(header.begin(), header.end(), [] { return static_cast<uint8_t>(RandomDraw() * 256); });
  buffer.insert(buffer.begin(), header.begin(), header.end());
  StartKeys(password);
  for (uint8_t& byte : buffer) {
    const uint8_t plain = byte;
    byte ^= NextKeyByte();
    UpdateKeys(plain);
  }
}

// ---- by name -----------------------------------------------------------------------------------------------------

namespace {

Cls_Encrypt& Self(Object& object) { return static_cast<Cls_Encrypt&>(object); }

Variant CallPrepareKey(Object& object, Arguments arguments) {
  Bytes buffer = FromByteArray(arguments[0]);
  Self(object).ZipPrepareKey(buffer, ToText(arguments[1]));
  arguments[0] = ToByteArray(buffer);
  return {};
}

Variant CallDecryptArray(Object& object, Arguments arguments) {
  Bytes buffer = FromByteArray(arguments[0]);
  Self(object).ZipDecryptArray(buffer);
  arguments[0] = ToByteArray(buffer);
  return {};
}

Variant CallEncryptArray(Object& object, Arguments arguments) {
  Bytes buffer = FromByteArray(arguments[0]);
  Self(object).ZipEncryptArray(buffer, ToText(arguments[1]));
  arguments[0] = ToByteArray(buffer);
  return {};
}

constexpr Member kRows[]{
    RawMethodRow("ZipPrepareKey", 2, 2, &CallPrepareKey),
    RawMethodRow("ZipDecryptArray", 1, 1, &CallDecryptArray),
    RawMethodRow("ZipEncryptArray", 2, 2, &CallEncryptArray),
};
constexpr MemberTable kTable{nullptr, kRows};

}  // namespace

const MemberTable& Cls_Encrypt::Members() const { return kTable; }

}  // namespace kestrun
