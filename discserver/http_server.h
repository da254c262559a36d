// The HTTP front: the pages, the gateway and the web service on one port, as web site and as proxy.
#ifndef TAGRIX_DISCSERVER_HTTP_SERVER_H
#define TAGRIX_DISCSERVER_HTTP_SERVER_H

#include <memory>
#include <string>

namespace discserver {

// Answers from its construction to its end, on threads of its own.
class HttpServer {
 public:
  // `address` is numeric; port 0 is the first free one from 18080. Throws std::runtime_error when the address can't be
  // had or the database can't be read.
  HttpServer(const std::string& database, const std::string& address, int port);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  int Port() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace discserver

#endif
