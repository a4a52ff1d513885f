// A stand-in for the site of the maps: a real web server on this machine that reads requests as strictly as the site
// does and keeps what it got.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/http.h"
#include "support/loopback_server.h"

namespace kestrun {

// One part of a posted form, as it stood on the wire.
struct PostedPart {
  std::string name;
  std::string type;
  std::string value;
};

// A map that the site has taken, with what came in base64 decoded.
struct TakenMap {
  std::map<std::string, std::string> fields;
  [[nodiscard]] const std::string& operator[](const std::string& name) const { return fields.at(name); }
};

// Takes a form apart that has each of its parts closed. Where it is not of that form, `fault` says how and nothing is
// given.
[[nodiscard]] std::vector<PostedPart> ReadPostedParts(const std::string& body, std::string& fault);
// Strictly: the usual alphabet, no "=", no line break, no bits left over. Nothing else than `fault` on any other text.
[[nodiscard]] std::string ReadBase64(const std::string& text, std::string& fault);

class MappingCenter {
 public:
  static constexpr const char* kTaken = "[UPLOAD SUCCESS] Thank you.";

  MappingCenter();

  // What the site says of itself, and its list of games.
  std::string site_file;
  std::string games = "OK\nDelta Force Land Warrior\nDelta Force 2\n";
  // Answers an upload that is well formed in the place of kTaken; runs on the server's thread.
  std::function<std::string(const TakenMap& map)> answer;
  // The first request of this number, from 0, and all behind it are left without an answer.
  int uploads_until_death = -1;

  // What was wrong with requests, one line each.
  [[nodiscard]] std::vector<std::string> Faults() const;
  [[nodiscard]] std::vector<TakenMap> Taken() const;
  // The posted requests for that page, as they came.
  [[nodiscard]] std::vector<ServedRequest> PostsTo(const std::string& page) const;

  // A way to the web on which the program's own site stands here. The session is the platform's own.
  [[nodiscard]] std::unique_ptr<HttpSession> OpenSession(std::unique_ptr<HttpSession> real) const;
  [[nodiscard]] std::string Address() const { return server_.Url("/center"); }

 private:
  void ServeSiteFile(ServedConnection& connection);
  void ServeGames(ServedConnection& connection);
  void ServeUpload(ServedConnection& connection);
  [[nodiscard]] std::vector<PostedPart> TakeForm(std::string& fault) const;
  void Blame(const std::string& fault);

  mutable std::mutex mutex_;
  std::vector<std::string> faults_;
  std::vector<TakenMap> taken_;
  int uploads_ = 0;
  LoopbackServer server_;  // last: its thread ends before what it uses
};

}  // namespace kestrun
