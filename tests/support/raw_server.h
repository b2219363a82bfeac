// A server on 127.0.0.1 that says exactly what a test tells it to, byte for byte, so that it can misbehave.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace support {

/// The head of a request as received, from the request line up to and including the blank line.
struct RawRequest {
  std::string head;

  std::string_view method() const;
  std::string_view target() const;  // as on the request line: path and query, not decoded
  /// Whether the head has this text anywhere: contains("Cookie: a=b").
  bool contains(std::string_view text) const { return head.find(text) != std::string::npos; }
};

/// A complete answer with its Content-Length: rawAnswer("200 OK", "Content-Type: text/html\r\n", "<p>").
std::string rawAnswer(std::string_view status, std::string_view headers, std::string_view body);

class RawServer;

/// One accepted connection, used on its handler's thread. It closes when the handler returns. No call
/// outlasts the server: when that goes, each returns at once and says that the connection is over.
class RawConnection {
 public:
  /// The next request's head, nothing when there is none to come. Its body, if any, is not looked for.
  std::optional<RawRequest> readRequest();
  /// What comes behind the last request that was read, whatever it is; empty when the client is gone.
  std::string receive();
  /// False when the client is gone. Blocks while the client does not read.
  bool send(std::string_view bytes);
  /// Sends a complete answer, without its body where the request is a HEAD.
  bool answer(const RawRequest& request, std::string_view bytes);
  /// Sends the same again and again until the client is gone.
  void sendForever(std::string_view bytes, std::chrono::milliseconds pauseBetween = {});
  /// Says nothing more. Returns when the client is gone.
  void waitForClose();

 private:
  friend class RawServer;
  RawConnection(RawServer& server, int socket) : m_server(server), m_socket(socket) {}

  RawServer& m_server;
  int m_socket;
  std::string m_unread;  // received, and not asked for yet
};

/// Listens from construction to destruction, with one thread for each connection. The destructor ends what
/// handlers wait for and joins them.
class RawServer {
 public:
  /// Called for each connection, for several at the same time. Must not throw.
  using Handler = std::function<void(RawConnection&)>;

  explicit RawServer(Handler handler);
  ~RawServer();
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;

  /// A handler that answers every request of a connection with what `answer` makes of it, as
  /// RawConnection::answer() does, and keeps it open; it is closed where that makes nothing.
  static Handler answering(std::function<std::string(const RawRequest&)> answer);

  /// "http://127.0.0.1:PORT" and `path`.
  std::string url(std::string_view path = "/") const;

  // Both count from the start and may be asked at any time.
  int connectionCount() const { return m_connectionCount; }
  std::vector<RawRequest> requests() const;

 private:
  friend class RawConnection;
  void acceptConnections();
  void serve(int socket);

  Handler m_handler;
  int m_listener;
  int m_port;
  std::atomic<int> m_connectionCount = 0;
  mutable std::mutex m_mutex;
  std::vector<RawRequest> m_requests;  // guarded by m_mutex
  std::set<int> m_open;                // sockets; guarded by m_mutex
  std::vector<std::thread> m_workers;  // of the accepting thread, until that is joined
  std::thread m_acceptor;
};

}  // namespace support
