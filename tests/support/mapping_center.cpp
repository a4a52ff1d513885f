#include "support/mapping_center.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "formats/http/http_syntax.h"
#include "web/site.h"

namespace kestrun {
namespace {

constexpr std::string_view kOpening = "--Xu02=$\r\n";
constexpr std::string_view kClosing = "\r\n--Xu02=$--\r\n";
constexpr const char* kFormType = "multipart/form-data; boundary=Xu02=$";

struct ExpectedPart {
  std::string_view name;
  bool is_encoded;
};
constexpr std::array<ExpectedPart, 14> kUploadParts{{{"action", false},
                                                     {"kestrun", false},
                                                     {"user", true},
                                                     {"pwd", true},
                                                     {"mapname", false},
                                                     {"designer", false},
                                                     {"gametype", false},
                                                     {"comments", false},
                                                     {"addons", false},
                                                     {"map", true},
                                                     {"image", true},
                                                     {"game", false},
                                                     {"autorename", false},
                                                     {"scrshotisurl", false}}};

void WritePage(ServedConnection& connection, const std::string& body) {
  connection.Write("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) +
                   "\r\nConnection: close\r\n\r\n" + body);
}

// A form that is read from its front.
class FormReader {
 public:
  FormReader(std::string_view body, std::string& fault) : rest_(body), fault_(fault) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  bool Expect(std::string_view text) {
    if (!StartsWith(rest_, text)) {
      fault_ = "expected \"" + std::string(text) + "\" at \"" + std::string(rest_.substr(0, 40)) + "\"";
      return false;
    }
    rest_.remove_prefix(text.size());
    return true;
  }
  bool TakeUntil(std::string_view end, std::string& text) {
    text = rest_.substr(0, rest_.find(end));
    rest_.remove_prefix(text.size());
    return Expect(end);
  }
  bool TakeBytes(size_t count, std::string& bytes) {
    bytes = rest_.substr(0, count);
    if (bytes.size() < count) fault_ = "the value is shorter than its length";
    rest_.remove_prefix(bytes.size());
    return bytes.size() == count;
  }

 private:
  std::string_view rest_;
  std::string& fault_;
};

bool ReadPart(FormReader& form, PostedPart& part, std::string& fault) {
  std::string length;
  if (!form.Expect(kOpening) || !form.Expect("Content-Disposition: form-data; name=\"") ||
      !form.TakeUntil("\"\r\n", part.name) || !form.Expect("Content-type: ") || !form.TakeUntil("\r\n", part.type) ||
      !form.Expect("Content-Length: ") || !form.TakeUntil("\r\n\r\n", length)) {
    return false;
  }
  const std::optional<uint64_t> bytes = ParseLength(length);
  if (!bytes) fault = "\"" + length + "\" is no length";
  return bytes && form.TakeBytes(static_cast<size_t>(*bytes), part.value) && form.Expect(kClosing);
}

}  // namespace

std::vector<PostedPart> ReadPostedParts(const std::string& body, std::string& fault) {
  std::vector<PostedPart> parts;
  FormReader form(body, fault);
  while (!form.AtEnd()) {
    if (!ReadPart(form, parts.emplace_back(), fault)) return {};
  }
  return parts;
}

std::string ReadBase64(const std::string& text, std::string& fault) {
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  uint32_t bits = 0;
  int bit_count = 0;
  for (const char letter : text) {
    const size_t value = kLetters.find(letter);
    if (value == std::string_view::npos) return fault = std::string("no base64 letter: ") + letter, "";
    bits = (bits << 6 | static_cast<uint32_t>(value)) & 0xFFFF;
    bit_count += 6;
    if (bit_count < 8) continue;
    bit_count -= 8;
    bytes += static_cast<char>(bits >> bit_count & 0xFF);
  }
  const bool is_whole = bit_count < 6 && (bits & ((1U << bit_count) - 1)) == 0;
  if (!is_whole) fault = "the base64 text has bits left over";
  return bytes;
}

MappingCenter::MappingCenter() {
  site_file = "[launcher]\r\nMAPCENTER=" + Address() + "\r\n";
  server_.Handle("/MAPS.INI", [this](ServedConnection& connection) { ServeSiteFile(connection); });
  server_.Handle("/center/script.php", [this](ServedConnection& connection) { ServeGames(connection); });
  server_.Handle("/center/upload.php", [this](ServedConnection& connection) { ServeUpload(connection); });
}

void MappingCenter::Blame(const std::string& fault) {
  const std::lock_guard lock(mutex_);
  faults_.push_back(fault);
}

void MappingCenter::ServeSiteFile(ServedConnection& connection) { WritePage(connection, site_file); }

// The form of the request that is being served.
std::vector<PostedPart> MappingCenter::TakeForm(std::string& fault) const {
  const ServedRequest request = server_.Requests().back();
  if (!StartsWith(request.line, "POST ")) fault = "not posted: " + request.line;
  if (request.Header("Content-Type") != kFormType) fault = "the type is " + request.Header("Content-Type");
  if (request.Header("Content-Length") != std::to_string(request.body.size())) fault = "the body has another length";
  std::vector<PostedPart> parts = ReadPostedParts(request.body, fault);
  for (const PostedPart& part : parts) {
    if (part.type != "file") fault = part.name + " is of type " + part.type;
  }
  return parts;
}

void MappingCenter::ServeGames(ServedConnection& connection) {
  std::string fault;
  const std::vector<PostedPart> parts = TakeForm(fault);
  const bool is_question = parts.size() == 2 && parts[0].name == "action" && parts[0].value == "enumgames" &&
                           parts[1].name == "output" && parts[1].value == "2";
  if (fault.empty() && !is_question) fault = "no question for the games";
  if (!fault.empty()) Blame(fault);
  WritePage(connection, fault.empty() ? games : fault);
}

void MappingCenter::ServeUpload(ServedConnection& connection) {
  if (uploads_until_death >= 0 && uploads_++ >= uploads_until_death) return;
  std::string fault;
  const std::vector<PostedPart> parts = TakeForm(fault);
  if (parts.size() != kUploadParts.size()) fault = std::to_string(parts.size()) + " parts";
  TakenMap map;
  for (size_t at = 0; at < parts.size() && fault.empty(); ++at) {
    if (parts[at].name != kUploadParts[at].name) fault = parts[at].name + " at place " + std::to_string(at);
    map.fields[parts[at].name] = kUploadParts[at].is_encoded ? ReadBase64(parts[at].value, fault) : parts[at].value;
  }
  if (!fault.empty()) {
    Blame(fault);
    return WritePage(connection, fault);
  }
  const std::string reply = answer ? answer(map) : kTaken;
  {
    const std::lock_guard lock(mutex_);
    taken_.push_back(std::move(map));
  }
  WritePage(connection, reply);
}

std::vector<std::string> MappingCenter::Faults() const {
  const std::lock_guard lock(mutex_);
  return faults_;
}

std::vector<TakenMap> MappingCenter::Taken() const {
  const std::lock_guard lock(mutex_);
  return taken_;
}

std::vector<ServedRequest> MappingCenter::PostsTo(const std::string& page) const {
  std::vector<ServedRequest> posts;
  for (ServedRequest& request : server_.Requests()) {
    if (request.line == "POST /center" + page + " HTTP/1.1") posts.push_back(std::move(request));
  }
  return posts;
}

namespace {

// The platform's own session, with the program's site moved to this machine.
class MovedSession final : public HttpSession {
 public:
  MovedSession(std::unique_ptr<HttpSession> real, std::string place)
      : real_(std::move(real)), place_(std::move(place)) {}

  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override {
    real_->Exchange(Moved(request), receiver);
  }
  [[nodiscard]] std::unique_ptr<HttpExchange> Start(const HttpRequest& request) override {
    return real_->Start(Moved(request));
  }

 private:
  [[nodiscard]] HttpRequest Moved(HttpRequest request) const {
    const std::string site = SiteUrl("");
    if (StartsWith(request.url, site)) request.url = place_ + request.url.substr(site.size());
    return request;
  }

  std::unique_ptr<HttpSession> real_;
  std::string place_;
};

}  // namespace

std::unique_ptr<HttpSession> MappingCenter::OpenSession(std::unique_ptr<HttpSession> real) const {
  return std::make_unique<MovedSession>(std::move(real), server_.Url("/"));
}

}  // namespace kestrun
