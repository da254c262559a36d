// A disc server for the loopback: a folder of records behind the two faces of a disc database, as web site and as
// proxy.
#include <httplib.h>

#include <charconv>
#include <exception>
#include <iostream>
#include <string>

#include "answers.h"
#include "record_store.h"

namespace {

// Clients may hold a port as a signed 16-bit integer.
constexpr int kFirstPort = 18080, kLastPort = 32767;

struct Options {
  int port = 0;  // 0: the first free one
  std::string folder;
};

bool ReadOptions(int count, char** arguments, Options& options) {
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--port" && i + 1 < count) {
      const std::string number = arguments[++i];
      const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), options.port);
      if (error != std::errc() || *end != '\0' || options.port < 0 || options.port > 65535) return false;
    } else if (options.folder.empty() && !argument.starts_with("-")) {
      options.folder = argument;
    } else {
      return false;
    }
  }
  return !options.folder.empty();
}

// The address that a request was sent to, "http://host": a proxy gets it in the request line, a web site by the header.
std::string WebSite(const httplib::Request& request) {
  const std::string scheme = "http://";
  if (request.path.starts_with(scheme)) return request.path.substr(0, request.path.find('/', scheme.size()));
  return scheme + request.get_header_value("Host");
}

void Serve(httplib::Server& server, const std::vector<discserver::Record>& records) {
  const std::string anyHost = "(?:http://[^/]*)?";
  server.Get(anyHost + R"(/freedb_search\.php)", [&](const httplib::Request& request, httplib::Response& response) {
    response.set_content(discserver::SearchPage(records, WebSite(request), request.get_param_value("words")),
                         "text/html; charset=ISO-8859-1");
  });
  server.Get(anyHost + R"(/~cddb/cddb\.cgi)", [&](const httplib::Request& request, httplib::Response& response) {
    response.set_content(
        discserver::CddbReply(records, request.get_param_value("cmd"), request.get_param_value("hello")),
        "text/plain; charset=ISO-8859-1");
  });
}

// Binds the port asked for, or the first free one. Returns it, 0 when it is taken.
int Bind(httplib::Server& server, const std::string& host, int port) {
  // Without the library's own option, by which two servers may share a port.
  server.set_socket_options([](socket_t socket) {
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  });
  if (port != 0) return server.bind_to_port(host, port) ? port : 0;
  for (port = kFirstPort; port <= kLastPort; ++port) {
    if (server.bind_to_port(host, port)) return port;
  }
  return 0;
}

int Run(const Options& options) {
  const std::vector<discserver::Record> records = discserver::LoadRecords(options.folder);
  httplib::Server server;
  Serve(server, records);
  server.set_keep_alive_max_count(1);
  const std::string host = "127.0.0.1";
  const int port = Bind(server, host, options.port);
  if (port == 0) {
    std::cerr << "discserver: port " << options.port << " is not free\n";
    return 1;
  }
  std::cout << records.size() << " records on http://" << host << ":" << port << std::endl;
  return server.listen_after_bind() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  Options options;
  if (!ReadOptions(count, arguments, options)) {
    std::cerr << "usage: discserver [--port NUMBER] FOLDER\n"
                 "Serves FOLDER/CATEGORY/DISCID on the loopback; prints the address.\n";
    return 2;
  }
  try {
    return Run(options);
  } catch (const std::exception& error) {
    std::cerr << "discserver: " << error.what() << "\n";
    return 1;
  }
}
