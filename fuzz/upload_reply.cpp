// Any bytes as the site's answer to an upload and to the question for its games, and as the comments beside a map.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/text.h"
#include "base/text_file.h"
#include "desktop/headless/headless_platform.h"
#include "fuzz_files.h"
#include "maps/upload/mission_check.h"
#include "maps/upload/upload_post.h"

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

// Every line of the comments ends with CR LF, and nothing else stands between them.
bool IsOfWholeLines(const std::string& text) {
  const std::string lines = kestrun::ReplaceAll(text, kestrun::kCrLf, "");
  return lines.find_first_of(kestrun::kCrLf) == std::string::npos && (text.empty() || text.ends_with(kestrun::kCrLf));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const std::string reply(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> games = kestrun::GamesOf(reply);
  Check(games.size() <= 1000);
  for (const std::string& game : games) Check(!game.empty() && game.find('\n') == std::string::npos);
  const std::string covered = kestrun::WithoutPassword(reply, "sesame");
  Check(covered.find("sesame") == std::string::npos && covered.find("c2VzYW1l") == std::string::npos);
  Check(kestrun::IsUploaded(reply) == (reply.find("[UPLOAD SUCCESS]") != std::string::npos));
  const kestrun::MapComments words = kestrun::SplitComments(kestrun::DecodeTextFile(reply));
  Check(IsOfWholeLines(words.comments) && IsOfWholeLines(words.addons));
  const std::string name = kestrun::ServiceMissionName(words.comments);
  Check(kestrun::CharacterCount(name) <= 32 && name.find_first_of("?'*\\/[]\"") == std::string::npos);
  static_cast<void>(kestrun::FileNamesMission(words.comments, words.addons));
  return 0;
}
