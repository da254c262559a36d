// http_floor PORT COUNT: the same requests over blocking sockets.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string_view>

#include "bench/machine.h"

int main(int, char** arguments) {
  constexpr std::string_view kRequest =
      "GET http://www.freedb.org/freedb_search.php?words=paper+lanterns HTTP/1.0\r\n\r\n";
  sockaddr_in server{};
  server.sin_family = AF_INET;
  server.sin_port = htons(static_cast<in_port_t>(std::stoi(arguments[1])));
  server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  std::vector<char> buffer(65536);
  std::size_t received = 0;
  tagrix::TimeEach(std::vector<std::string>(std::stoul(arguments[2])), [&](const std::string&) {
    const int connection = socket(AF_INET, SOCK_STREAM, 0);
    if (connect(connection, reinterpret_cast<sockaddr*>(&server), sizeof server) != 0 ||
        send(connection, kRequest.data(), kRequest.size(), 0) < 0) {
      std::exit(1);
    }
    for (ssize_t got; (got = recv(connection, buffer.data(), buffer.size(), 0)) > 0;) {
      received += static_cast<std::size_t>(got);
    }
    close(connection);
  });
  std::printf("bytes %zu\n", received);
}
