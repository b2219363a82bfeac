// veskel-example-server FOLDER: serves a website's folder on a free port of the loopback interface.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

#include <httplib.h>

#include "site_answer.h"

namespace {

void serve(httplib::Server& server, const std::filesystem::path& siteFolder) {
  // Both ends write headers and body separately: without this the two wait for each other on every request.
  server.set_tcp_nodelay(true);
  server.set_keep_alive_max_count(10'000);
  // A connection that is kept open occupies a thread.
  server.new_task_queue = [] { return new httplib::ThreadPool(16); };
  server.set_pre_routing_handler([&siteFolder](const httplib::Request& request, httplib::Response& response) {
    using enum httplib::Server::HandlerResponse;
    if (request.method != "GET" && request.method != "HEAD") return Unhandled;  // 404
    const std::size_t mark = request.target.find('?');
    const std::string query = mark == std::string::npos ? "" : request.target.substr(mark + 1);
    const example_server::Answer answer = example_server::answerRequest(siteFolder, request.path, query);
    response.status = answer.status;
    if (answer.lastModified) response.set_header("Last-Modified", *answer.lastModified);
    if (answer.location) response.set_header("Location", *answer.location);
    response.set_content(answer.body, answer.contentType);
    return Handled;
  });
}

/// Whoever started the server ends it by closing its standard input, as also happens when the starter is
/// killed.
void endWithStandardInput() {
  std::thread([] {
    while (std::cin.get() != std::char_traits<char>::eof()) {
    }
    // Nothing here needs an orderly end, and connections that are still open must not delay it.
    std::_Exit(EXIT_SUCCESS);
  }).detach();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2 || !std::filesystem::is_directory(arguments[1])) {
    std::cerr << "Usage: veskel-example-server FOLDER\n"
                 "Serves the website in FOLDER, prints its URL, and ends when standard input does.\n";
    return EXIT_FAILURE;
  }
  const std::filesystem::path siteFolder = arguments[1];

  httplib::Server server;
  serve(server, siteFolder);
  const int port = server.bind_to_any_port("127.0.0.1");
  if (port < 0) {
    std::cerr << "veskel-example-server: no port could be opened on 127.0.0.1\n";
    return EXIT_FAILURE;
  }
  // The port is open from here on: a request that comes before listening has begun waits for it.
  std::cout << "http://127.0.0.1:" << port << "/" << std::endl;
  endWithStandardInput();
  return server.listen_after_bind() ? EXIT_SUCCESS : EXIT_FAILURE;
}
