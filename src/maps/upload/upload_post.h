// What is sent to the Mapping Center for one map and for its list of games, and what its answers say.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "maps/upload/map_comments.h"
#include "web/cls_http.h"

namespace kestrun {

// One map as it goes to the site.
struct MapUpload {
  std::string user;
  std::string password;
  std::string mission_name;  // as ServiceMissionName gives it
  std::string designer;
  int32_t game_type = 0;
  MapComments words;
  Bytes zip;
  Bytes picture;
  std::string game;
  bool may_be_renamed = false;  // by the site, when it has a map of that name
};

// Gives the request its parameters, in the order in which the site reads them.
void SetUploadParameters(ClsHTTP& http, const MapUpload& upload);
void SetGamesParameters(ClsHTTP& http);

// The two pages of the service whose address is that of the site file.
[[nodiscard]] std::string UploadPage(const std::string& service);
[[nodiscard]] std::string GamesPage(const std::string& service);

// Whether the site has taken the map.
[[nodiscard]] bool IsUploaded(std::string_view reply);
// The names of an answer that begins with the line "OK"; none of any other. At most a thousand are taken.
[[nodiscard]] std::vector<std::string> GamesOf(std::string_view reply);

// The reply for eyes and logs: a password in it, plain or encoded, is covered. One of less than four characters is left
// as it is, since it may be part of any word.
[[nodiscard]] std::string WithoutPassword(const std::string& reply, const std::string& password);

}  // namespace kestrun
