#include "discserver/http_server.h"

#include <microhttpd.h>
#include <netdb.h>
#include <sys/socket.h>

#include <algorithm>
#include <charconv>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <iostream>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <vector>

#include "discserver/cddb.h"
#include "discserver/freedb_page.h"
#include "discserver/lucene.h"
#include "discserver/musicbrainz.h"
#include "discserver/store.h"

namespace discserver {
namespace {

// Clients may hold a port as a signed 16-bit integer.
constexpr int kFirstPort = 18080, kLastPort = 32767;

// A client that says nothing for so long is dropped; one address can't use up all connections. A request with its
// headers has to fit into a connection's memory.
constexpr unsigned kTimeout = 15;  // seconds
constexpr unsigned kMostConnections = 900, kMostPerAddress = 128;
constexpr std::size_t kConnectionMemory = 32768, kStack = std::size_t{1} << 19;

constexpr const char* kHtml = "text/html; charset=ISO-8859-1";
constexpr const char* kLatin1 = "text/plain; charset=ISO-8859-1";
constexpr const char* kUtf8 = "text/plain; charset=utf-8";
constexpr const char* kJson = "application/json; charset=utf-8";

struct Answer {
  unsigned status;
  const char* type;
  std::string body;
};

// One request: what was asked for, and how.
class Request {
 public:
  Request(MHD_Connection* connection, std::string_view url) : connection_(connection) {
    constexpr std::string_view kScheme = "http://";
    if (!url.starts_with(kScheme)) {
      path_ = url;
      host_ = Lookup(MHD_HEADER_KIND, MHD_HTTP_HEADER_HOST);
      return;
    }
    // A proxy gets the whole address.
    const std::size_t slash = std::min(url.find('/', kScheme.size()), url.size());
    host_ = url.substr(kScheme.size(), slash - kScheme.size());
    path_ = url.substr(slash);
  }

  std::string_view Path() const { return path_; }
  const std::string& Host() const { return host_; }
  std::string Parameter(const char* name) const { return Lookup(MHD_GET_ARGUMENT_KIND, name); }

 private:
  std::string Lookup(MHD_ValueKind kind, const char* name) const {
    const char* value = nullptr;
    std::size_t size = 0;
    MHD_lookup_connection_value_n(connection_, kind, name, std::string_view(name).size(), &value, &size);
    return value == nullptr ? std::string() : std::string(value, size);
  }

  MHD_Connection* connection_;
  std::string host_;
  std::string_view path_;
};

Answer Search(Store& store, const Request& request) {
  return {MHD_HTTP_OK, kHtml, SearchPage(store, "http://" + request.Host(), request.Parameter("words"))};
}

Answer Gateway(Store& store, const Request& request) {
  const CddbReply reply =
      AnswerCddb(store, {request.Parameter("cmd"), request.Parameter("hello"), request.Parameter("proto"),
                         request.Parameter("artist"), request.Parameter("album"), request.Host()});
  return {MHD_HTTP_OK, reply.utf8 ? kUtf8 : kLatin1, reply.text};
}

Answer WebService(Store& store, const Request& request, std::string_view releaseId) {
  if (request.Parameter("fmt") != "json")
    return {MHD_HTTP_NOT_ACCEPTABLE, kJson, ErrorJson("Only fmt=json is served.")};
  if (!releaseId.empty()) {
    auto release = Release(store, releaseId);
    if (!release) return {MHD_HTTP_NOT_FOUND, kJson, ErrorJson("Not Found")};
    return {MHD_HTTP_OK, kJson, std::move(*release)};
  }
  std::size_t limit = 25;
  const std::string asked = request.Parameter("limit");
  std::from_chars(asked.data(), asked.data() + asked.size(), limit);
  try {
    return {MHD_HTTP_OK, kJson, FindReleases(store, request.Parameter("query"), limit)};
  } catch (const QueryError& error) {
    return {MHD_HTTP_BAD_REQUEST, kJson, ErrorJson(error.what())};
  }
}

Answer AnswerTo(Store& store, const Request& request) {
  constexpr std::string_view kRelease = "/ws/2/release";
  std::string_view path = request.Path();
  if (path == "/freedb_search.php") return Search(store, request);
  if (path == "/~cddb/cddb.cgi") return Gateway(store, request);
  if (path == kRelease || (path.starts_with(kRelease) && path[kRelease.size()] == '/')) {
    path.remove_prefix(std::min(kRelease.size() + 1, path.size()));
    return WebService(store, request, path);
  }
  return {MHD_HTTP_NOT_FOUND, kLatin1, "There is no such page here.\r\n"};
}

// The database's connections, few enough for memory and processors; each serves one request at a time.
class Stores {
 public:
  explicit Stores(std::string path) : path_(std::move(path)) { free_.push_back(std::make_unique<Store>(path_)); }

  // Waits for one to be free.
  std::unique_ptr<Store> Take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !free_.empty() || taken_ < most_; });
    ++taken_;
    if (free_.empty()) return nullptr;
    auto store = std::move(free_.back());
    free_.pop_back();
    return store;
  }
  void GiveBack(std::unique_ptr<Store> store) {
    const std::lock_guard lock(mutex_);
    --taken_;
    if (store) free_.push_back(std::move(store));
    changed_.notify_one();
  }
  const std::string& Path() const { return path_; }

 private:
  const std::string path_;
  const unsigned most_ = std::max(4U, 2 * std::thread::hardware_concurrency());
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::unique_ptr<Store>> free_;
  unsigned taken_ = 0;
};

// After an error the connection to the database isn't used again.
Answer AnswerFrom(Stores& stores, const Request& request) {
  std::unique_ptr<Store> store = stores.Take();
  Answer answer{MHD_HTTP_INTERNAL_SERVER_ERROR, kLatin1, "The disc server can't answer at the moment.\r\n"};
  try {
    if (!store) store = std::make_unique<Store>(stores.Path());
    answer = AnswerTo(*store, request);
  } catch (const std::exception& error) {
    std::cerr << "discserver: " << error.what() << std::endl;
    store.reset();
  }
  stores.GiveBack(std::move(store));
  return answer;
}

// Whether the client has closed the connection, so that nothing is worked out for one that floods and cuts.
bool HungUp(MHD_Connection* connection) {
  const MHD_ConnectionInfo* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
  char byte = 0;
  return info != nullptr && recv(info->connect_fd, &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
}

MHD_Result Handle(void* stores, MHD_Connection* connection, const char* url, const char* method, const char*,
                  const char*, std::size_t* uploaded, void** state) {
  // The first call comes with the headers alone; what is uploaded is dropped.
  static char seen;
  if (*state == nullptr) {
    *state = &seen;
    return MHD_YES;
  }
  if (*uploaded != 0) {
    *uploaded = 0;
    return MHD_YES;
  }
  if (HungUp(connection)) return MHD_NO;
  const std::string_view verb = method;
  Answer answer{MHD_HTTP_METHOD_NOT_ALLOWED, kLatin1, "Only GET is answered here.\r\n"};
  if (verb == MHD_HTTP_METHOD_GET || verb == MHD_HTTP_METHOD_HEAD) {
    answer = AnswerFrom(*static_cast<Stores*>(stores), Request(connection, url));
  }
  MHD_Response* response =
      MHD_create_response_from_buffer(answer.body.size(), answer.body.data(), MHD_RESPMEM_MUST_COPY);
  if (response == nullptr) return MHD_NO;
  MHD_add_response_header(response, MHD_HTTP_HEADER_CONTENT_TYPE, answer.type);
  const MHD_Result queued = MHD_queue_response(connection, answer.status, response);
  MHD_destroy_response(response);
  return queued;
}

using Address = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

Address Resolve(const std::string& address, int port) {
  addrinfo hints{};
  hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) {
    throw std::runtime_error(address + ": is not a numeric address");
  }
  return {found, freeaddrinfo};
}

MHD_Daemon* Start(Stores& stores, const std::string& address, int port) {
  const Address resolved = Resolve(address, port);
  // A thread for each connection: one that is slow holds up no other, and the system shares the processors among them.
  unsigned flags = MHD_USE_INTERNAL_POLLING_THREAD | MHD_USE_THREAD_PER_CONNECTION | MHD_USE_POLL;
  if (resolved->ai_family == AF_INET6) flags |= MHD_USE_IPv6;
  return MHD_start_daemon(flags, 0, nullptr, nullptr, Handle, &stores, MHD_OPTION_SOCK_ADDR, resolved->ai_addr,
                          MHD_OPTION_THREAD_STACK_SIZE, kStack, MHD_OPTION_CONNECTION_TIMEOUT, kTimeout,
                          MHD_OPTION_CONNECTION_LIMIT, kMostConnections, MHD_OPTION_PER_IP_CONNECTION_LIMIT,
                          kMostPerAddress, MHD_OPTION_CONNECTION_MEMORY_LIMIT, kConnectionMemory, MHD_OPTION_END);
}

}  // namespace

struct HttpServer::Parts {
  Stores stores;
  std::unique_ptr<MHD_Daemon, decltype(&MHD_stop_daemon)> daemon{nullptr, MHD_stop_daemon};
  int port = 0;
};

HttpServer::HttpServer(const std::string& database, const std::string& address, int port)
    : parts_(new Parts{Stores(database)}) {
  const int first = port == 0 ? kFirstPort : port, last = port == 0 ? kLastPort : port;
  for (parts_->port = first; parts_->port <= last; ++parts_->port) {
    parts_->daemon.reset(Start(parts_->stores, address, parts_->port));
    if (parts_->daemon) return;
  }
  throw std::runtime_error("port " + std::to_string(last) + " of " + address + " is not free");
}

HttpServer::~HttpServer() = default;

int HttpServer::Port() const { return parts_->port; }

}  // namespace discserver
