#include "support/raw_server.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace support {

namespace {

int listenOnLoopback() {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener, SOMAXCONN) != 0) {
    throw std::runtime_error("cannot listen on 127.0.0.1");
  }
  return listener;
}

int portOf(int listener) {
  sockaddr_in address = {};
  socklen_t size = sizeof address;
  getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

}  // namespace

std::string_view RawRequest::method() const {
  return std::string_view(head).substr(0, head.find(' '));
}

std::string_view RawRequest::target() const {
  std::string_view rest = head;
  rest.remove_prefix(std::min(rest.find(' '), rest.size() - 1) + 1);
  return rest.substr(0, rest.find_first_of(" \r"));
}

std::string rawAnswer(std::string_view status, std::string_view headers, std::string_view body) {
  std::string answer = "HTTP/1.1 ";
  answer.append(status).append("\r\nContent-Length: ").append(std::to_string(body.size())).append("\r\n");
  return answer.append(headers).append("\r\n").append(body);
}

std::optional<RawRequest> RawConnection::readRequest() {
  std::size_t end = 0;
  while ((end = m_unread.find("\r\n\r\n")) == std::string::npos) {
    const std::string more = receive();
    if (more.empty()) return std::nullopt;
    m_unread += more;
  }
  RawRequest request{m_unread.substr(0, end + 4)};
  m_unread.erase(0, end + 4);
  const std::lock_guard lock(m_server.m_mutex);
  m_server.m_requests.push_back(request);
  return request;
}

std::string RawConnection::receive() {
  char buffer[4096];
  const ssize_t count = recv(m_socket, buffer, sizeof buffer, 0);
  return {buffer, static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

bool RawConnection::send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool RawConnection::answer(const RawRequest& request, std::string_view bytes) {
  return send(request.method() == "HEAD" ? bytes.substr(0, bytes.find("\r\n\r\n") + 4) : bytes);
}

void RawConnection::sendForever(std::string_view bytes, std::chrono::milliseconds pauseBetween) {
  while (send(bytes)) {
    // Not for anything to read, which would end the pause as soon as a client says something.
    pollfd over{m_socket, 0, 0};
    poll(&over, 1, static_cast<int>(pauseBetween.count()));
  }
}

void RawConnection::waitForClose() {
  while (!receive().empty()) {
  }
}

RawServer::RawServer(Handler handler)
    : m_handler(std::move(handler)),
      m_listener(listenOnLoopback()),
      m_port(portOf(m_listener)),
      m_acceptor([this] { acceptConnections(); }) {}

RawServer::~RawServer() {
  shutdown(m_listener, SHUT_RDWR);  // which ends what waits for it
  m_acceptor.join();
  close(m_listener);
  {
    const std::lock_guard lock(m_mutex);
    for (const int socket : m_open) shutdown(socket, SHUT_RDWR);
  }
  for (std::thread& worker : m_workers) worker.join();
}

RawServer::Handler RawServer::answering(std::function<std::string(const RawRequest&)> answer) {
  return [answer = std::move(answer)](RawConnection& connection) {
    while (const auto request = connection.readRequest()) {
      const std::string bytes = answer(*request);
      if (bytes.empty() || !connection.answer(*request, bytes)) return;
    }
  };
}

std::string RawServer::url(std::string_view path) const {
  return "http://127.0.0.1:" + std::to_string(m_port) + std::string(path);
}

std::vector<RawRequest> RawServer::requests() const {
  const std::lock_guard lock(m_mutex);
  return m_requests;
}

void RawServer::acceptConnections() {
  for (int socket = 0; (socket = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    ++m_connectionCount;
    const std::lock_guard lock(m_mutex);
    m_open.insert(socket);
    m_workers.emplace_back([this, socket] { serve(socket); });
  }
}

void RawServer::serve(int socket) {
  RawConnection connection(*this, socket);
  m_handler(connection);
  const std::lock_guard lock(m_mutex);
  m_open.erase(socket);
  close(socket);
}

}  // namespace support
