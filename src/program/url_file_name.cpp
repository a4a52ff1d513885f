// Lets the server of a web address say what the file behind it is called: joined to the path routines when the program
// starts.
#include "program/path_text.h"
#include "web/cls_http.h"

namespace kestrun {
namespace {

[[maybe_unused]] const bool is_joined = [] {
  SetUrlFileNameSource([](const std::string& url) { return MakeRef<ClsHTTP>()->GetURLFileName(url, "GET"); });
  return true;
}();

}  // namespace
}  // namespace kestrun
