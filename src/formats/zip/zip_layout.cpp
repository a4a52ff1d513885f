#include "formats/zip/zip_layout.h"

namespace kestrun::zip {

Item ParseCentralHeader(ByteView record) {
  Item item;
  item.version_made_by = LoadU16(record, 4);
  item.version_needed = LoadU16(record, 6);
  item.flags = LoadU16(record, 8);
  item.method = LoadU16(record, 10);
  item.time = LoadU16(record, 12);
  item.date = LoadU16(record, 14);
  item.crc32 = LoadU32(record, 16);
  item.compressed_size = LoadU32(record, 20);
  item.uncompressed_size = LoadU32(record, 24);
  item.name_bytes = LoadU16(record, 28);
  item.extra_bytes = LoadU16(record, 30);
  item.comment_bytes = LoadU16(record, 32);
  item.disk_start = LoadU16(record, 34);
  item.internal_attributes = LoadU16(record, 36);
  item.external_attributes = LoadU32(record, 38);
  item.local_offset = LoadU32(record, 42);
  return item;
}

LocalHeader ParseLocalHeader(ByteView record) {
  return {LoadU32(record, 18), LoadU16(record, 26), LoadU16(record, 28)};
}

EndRecord ParseEndRecord(ByteView record) { return {LoadU16(record, 10), LoadU32(record, 16), LoadU16(record, 20)}; }

}  // namespace kestrun::zip
