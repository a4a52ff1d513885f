// The cipher of zip members: what it encrypts it decrypts, and any bytes are decrypted in their own length.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "formats/zip/cls_encrypt.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kHeader = 12;
  const kestrun::ByteView input(data, size);
  const size_t password_bytes = size == 0 ? 0 : std::min<size_t>(input[0] % 16, size - 1);
  const auto password_view = kestrun::AsChars(input.subspan(size == 0 ? 0 : 1, password_bytes));
  const kestrun::ByteView plain = input.subspan(std::min(size, password_bytes + 1));
  const auto cipher = kestrun::MakeRef<kestrun::Cls_Encrypt>();

  kestrun::Bytes buffer(plain.begin(), plain.end());
  cipher->ZipEncryptArray(buffer, password_view);
  if (buffer.size() != plain.size() + kHeader) std::abort();
  cipher->ZipPrepareKey(buffer, password_view);
  buffer.erase(buffer.begin(), buffer.begin() + kHeader);
  cipher->ZipDecryptArray(buffer);
  if (!std::equal(buffer.begin(), buffer.end(), plain.begin(), plain.end())) std::abort();

  if (plain.size() < kHeader) return 0;
  kestrun::Bytes foreign(plain.begin(), plain.end());
  cipher->ZipPrepareKey(foreign, password_view);
  cipher->ZipDecryptArray(kestrun::MutableByteView(foreign).subspan(kHeader));
  return 0;
}
