#include "maps/upload/upload_post.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun {
namespace {

constexpr const char* kParameterType = "file";
constexpr bool kPlain = false;
constexpr bool kEncoded = true;
constexpr std::string_view kUploaded = "[UPLOAD SUCCESS]";
constexpr std::string_view kGamesFollow = "OK";
constexpr size_t kMostGames = 1000;
constexpr size_t kLongestGame = 200;
constexpr size_t kLeastCoveredCharacters = 4;
constexpr std::string_view kCover = "****";

}  // namespace

void SetUploadParameters(ClsHTTP& http, const MapUpload& upload) {
  http.ClearParameters();
  const auto add = [&](std::string_view name, std::string_view value, bool encode) {
    http.AddParameter(name, value, encode, kParameterType);
  };
  add("action", "upload", kPlain);
  add("kestrun", "1", kPlain);
  add("user", upload.user, kEncoded);
  add("pwd", upload.password, kEncoded);
  add("mapname", upload.mission_name, kPlain);
  add("designer", upload.designer, kPlain);
  add("gametype", std::to_string(upload.game_type), kPlain);
  add("comments", upload.words.comments, kPlain);
  add("addons", upload.words.addons, kPlain);
  http.AddFile("map", upload.zip, kParameterType);
  http.AddFile("image", upload.picture, kParameterType);
  add("game", upload.game, kPlain);
  add("autorename", upload.may_be_renamed ? "true" : "false", kPlain);
  add("scrshotisurl", "false", kPlain);
}

void SetGamesParameters(ClsHTTP& http) {
  http.ClearParameters();
  http.AddParameter("action", "enumgames", kPlain, kParameterType);
  http.AddParameter("output", "2", kPlain, kParameterType);
}

std::string UploadPage(const std::string& service) { return service + "/upload.php"; }

std::string GamesPage(const std::string& service) { return service + "/script.php"; }

bool IsUploaded(std::string_view reply) { return reply.find(kUploaded) != std::string_view::npos; }

// Line by line: a reply of millions of lines is not cut up whole.
std::vector<std::string> GamesOf(std::string_view reply) {
  std::vector<std::string> games;
  bool is_first = true;
  while (!reply.empty() && games.size() < kMostGames) {
    const size_t end = std::min(reply.find('\n'), reply.size());
    const std::string_view line = reply.substr(0, end);
    reply.remove_prefix(std::min(end + 1, reply.size()));
    if (is_first && line != kGamesFollow) return {};
    if (!is_first && !line.empty() && line.size() <= kLongestGame) games.emplace_back(line);
    is_first = false;
  }
  return games;
}

std::string WithoutPassword(const std::string& reply, const std::string& password) {
  if (CharacterCount(password) < kLeastCoveredCharacters) return reply;
  const std::string encoded = MakeRef<ClsHTTP>()->EncodeBase64(password);
  return ReplaceAll(ReplaceAll(reply, password, kCover), encoded, kCover);
}

}  // namespace kestrun
