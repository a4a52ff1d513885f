#include "formats/zip/mod_zip.h"

namespace kestrun::zip {

OpenArchive& TheOpenArchive() {
  static OpenArchive archive;
  return archive;
}

}  // namespace kestrun::zip
