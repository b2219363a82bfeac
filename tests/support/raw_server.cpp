#include "support/raw_server.h"

#include <cerrno>
#include <iterator>
#include <stdexcept>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace support {

namespace {

constexpr int kForever = -1;

Descriptor listenOnLoopback() {
  Descriptor listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (bind(listener.number(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener.number(), SOMAXCONN) != 0) {
    throw std::runtime_error("cannot listen on 127.0.0.1");
  }
  return listener;
}

int portOf(const Descriptor& listener) {
  sockaddr_in address = {};
  socklen_t size = sizeof address;
  if (getsockname(listener.number(), reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    throw std::runtime_error("the listening socket has no port");
  }
  return ntohs(address.sin_port);
}

/// The text between the blanks number `index` and `index + 1` of the request line.
std::string_view requestLineField(std::string_view head, int index) {
  std::string_view line = head.substr(0, head.find("\r\n"));
  for (; index > 0; --index) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos) return {};
    line.remove_prefix(blank + 1);
  }
  return line.substr(0, line.find(' '));
}

}  // namespace

Descriptor::~Descriptor() {
  if (m_number >= 0) close(m_number);
}

std::string_view RawRequest::method() const {
  return requestLineField(head, 0);
}

std::string_view RawRequest::target() const {
  return requestLineField(head, 1);
}

std::string rawAnswer(std::string_view status, std::string_view headers, std::string_view body) {
  std::string answer = "HTTP/1.1 ";
  answer.append(status).append("\r\nContent-Length: ").append(std::to_string(body.size())).append("\r\n");
  answer.append(headers).append("\r\n").append(body);
  return answer;
}

std::string rawAnswerTo(const RawRequest& request, std::string_view status, std::string_view headers,
                        std::string_view body) {
  std::string answer = rawAnswer(status, headers, body);
  if (request.method() == "HEAD") answer.resize(answer.size() - body.size());
  return answer;
}

RawConnection::RawConnection(RawServer& server, Descriptor socket, int number)
    : m_server(server), m_socket(std::move(socket)), m_number(number) {}

bool RawConnection::waitFor(short event, int milliseconds) {
  pollfd watched[] = {{m_server.m_stop.number(), POLLIN, 0}, {m_socket.number(), event, 0}};
  int ready = 0;
  do {
    ready = poll(watched, std::size(watched), milliseconds);
  } while (ready < 0 && errno == EINTR);
  return ready >= 0 && watched[0].revents == 0;
}

std::optional<RawRequest> RawConnection::readRequest() {
  for (;;) {
    const std::size_t end = m_unread.find("\r\n\r\n");
    if (end != std::string::npos) {
      RawRequest request{m_unread.substr(0, end + 4)};
      m_unread.erase(0, end + 4);
      const std::lock_guard lock(m_server.m_mutex);
      m_server.m_requests.push_back(request);
      return request;
    }
    if (!readMore()) return std::nullopt;
  }
}

bool RawConnection::readMore() {
  if (!waitFor(POLLIN, kForever)) return false;
  char buffer[4096];
  const ssize_t count = recv(m_socket.number(), buffer, sizeof buffer, 0);
  if (count <= 0) return false;
  m_unread.append(buffer, static_cast<std::size_t>(count));
  return true;
}

std::string RawConnection::receive() {
  if (m_unread.empty()) readMore();
  return std::exchange(m_unread, {});
}

bool RawConnection::send(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!waitFor(POLLOUT, kForever)) return false;
    const ssize_t count = ::send(m_socket.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno != EAGAIN) return false;
    if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void RawConnection::sendForever(std::string_view bytes, std::chrono::milliseconds pauseBetween) {
  while (send(bytes)) {
    // Readiness to read would end the pause as soon as a client says something: errors alone are waited for.
    if (pauseBetween.count() > 0 && !waitFor(0, static_cast<int>(pauseBetween.count()))) return;
  }
}

void RawConnection::waitForClose() {
  char buffer[4096];
  while (waitFor(POLLIN, kForever) && recv(m_socket.number(), buffer, sizeof buffer, 0) > 0) {
  }
}

RawServer::RawServer(Handler handler)
    : m_handler(std::move(handler)),
      m_listener(listenOnLoopback()),
      m_stop(eventfd(0, EFD_CLOEXEC)),
      m_port(portOf(m_listener)),
      m_acceptor([this] { acceptConnections(); }) {}

RawServer::~RawServer() {
  eventfd_write(m_stop.number(), 1);
  m_acceptor.join();
  for (Worker& worker : m_workers) worker.thread.join();
}

RawServer::Handler RawServer::answering(std::function<std::string(const RawRequest&)> answer) {
  return [answer = std::move(answer)](RawConnection& connection) {
    while (const auto request = connection.readRequest()) {
      if (!connection.send(answer(*request))) return;
    }
  };
}

std::string RawServer::url(std::string_view path) const {
  return "http://127.0.0.1:" + std::to_string(m_port) + std::string(path);
}

int RawServer::requestCount() const {
  const std::lock_guard lock(m_mutex);
  return static_cast<int>(m_requests.size());
}

std::vector<RawRequest> RawServer::requests() const {
  const std::lock_guard lock(m_mutex);
  return m_requests;
}

void RawServer::acceptConnections() {
  for (;;) {
    pollfd watched[] = {{m_stop.number(), POLLIN, 0}, {m_listener.number(), POLLIN, 0}};
    if (poll(watched, std::size(watched), kForever) < 0 && errno != EINTR) return;
    if (watched[0].revents != 0) return;
    Descriptor socket(accept4(m_listener.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket.number() >= 0) serve(std::move(socket));
  }
}

void RawServer::serve(Descriptor socket) {
  // A long test makes thousands of connections: threads that are through go before the next one comes.
  m_workers.remove_if([](Worker& worker) {
    if (!worker.done) return false;
    worker.thread.join();
    return true;
  });
  const int number = ++m_connectionCount;
  Worker& worker = m_workers.emplace_back();
  worker.thread = std::thread([this, &worker, number, owned = std::move(socket)]() mutable {
    {
      RawConnection connection(*this, std::move(owned), number);
      m_handler(connection);
    }
    worker.done = true;
  });
}

}  // namespace support
