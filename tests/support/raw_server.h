// A server on 127.0.0.1 that says exactly what a test tells it to, byte for byte, so that it can misbehave.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace support {

/// A file descriptor, closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : m_number(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

  int number() const { return m_number; }

 private:
  int m_number;
};

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

/// Likewise, and without the body where the request is a HEAD.
std::string rawAnswerTo(const RawRequest& request, std::string_view status, std::string_view headers,
                        std::string_view body);

class RawServer;

/// One accepted connection, used on its handler's thread. It closes when the handler returns. No call
/// outlasts the server: when that goes, each returns at once and says that the connection is over.
class RawConnection {
 public:
  /// The next request's head, nothing when there is none to come. Its body, if any, is not looked for.
  std::optional<RawRequest> readRequest();
  /// What comes next, whatever it is; empty when the client is gone.
  std::string receive();
  /// False when the client is gone. Blocks while the client does not read.
  bool send(std::string_view bytes);
  /// Sends the same again and again until the client is gone.
  void sendForever(std::string_view bytes, std::chrono::milliseconds pauseBetween = {});
  /// Says nothing more. Returns when the client is gone.
  void waitForClose();
  /// From 1 in the order of accepting.
  int number() const { return m_number; }

 private:
  friend class RawServer;
  RawConnection(RawServer& server, Descriptor socket, int number);
  bool waitFor(short event, int milliseconds);  // false on a stop; also true when the time is over
  bool readMore();                              // to m_unread; false when the client is gone

  RawServer& m_server;
  Descriptor m_socket;
  int m_number;
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

  /// A handler that answers every request of a connection with what `answer` makes of it, and keeps it open.
  static Handler answering(std::function<std::string(const RawRequest&)> answer);

  int port() const { return m_port; }
  /// "http://127.0.0.1:PORT" and `path`.
  std::string url(std::string_view path = "/") const;

  // All of these count from the start and may be asked at any time.
  int connectionCount() const { return m_connectionCount; }
  int requestCount() const;
  std::vector<RawRequest> requests() const;

 private:
  friend class RawConnection;
  struct Worker {
    std::atomic<bool> done = false;
    std::thread thread;
  };
  void acceptConnections();
  void serve(Descriptor socket);

  Handler m_handler;
  Descriptor m_listener;
  Descriptor m_stop;  // readable for good once the server is to stop
  int m_port = 0;
  std::atomic<int> m_connectionCount = 0;
  mutable std::mutex m_mutex;
  std::vector<RawRequest> m_requests;  // guarded by m_mutex
  std::list<Worker> m_workers;         // of the accepting thread, until that is joined
  std::thread m_acceptor;
};

}  // namespace support
