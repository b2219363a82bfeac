#include "support/run_program.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support {

namespace {

int checked(int returned, const char* what) {
  if (returned == -1) throw std::system_error(errno, std::generic_category(), what);
  return returned;
}

int memoryFile(std::string_view text = {}) {
  const int file = checked(memfd_create("program", MFD_CLOEXEC), "memfd_create");
  if (pwrite(file, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error("memory file not written");
  }
  return file;
}

/// From the start, without moving the position at which the program writes on.
std::string contentOf(int file) {
  std::ifstream stream("/proc/self/fd/" + std::to_string(file), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Our side and the program's of a terminal on which `input` was typed.
std::pair<int, int> terminalWith(std::string_view input) {
  const int ours = checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt");
  checked(grantpt(ours), "grantpt");
  checked(unlockpt(ours), "unlockpt");
  const int theirs = checked(open(ptsname(ours), O_RDWR | O_NOCTTY | O_CLOEXEC), "terminal");
  if (write(ours, input.data(), input.size()) != static_cast<ssize_t>(input.size())) {
    throw std::runtime_error("terminal not written");
  }
  return {ours, theirs};
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

pid_t spawn(std::vector<std::string> arguments, const int (&standardFiles)[3]) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (int target = 0; target < 3; ++target) {
    posix_spawn_file_actions_adddup2(&actions, standardFiles[target], target);
  }
  pid_t process = -1;
  const int error =
      posix_spawn(&process, arguments[0].c_str(), &actions, nullptr, pointersTo(arguments).data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), arguments[0]);
  return process;
}

}  // namespace

RunningProgram::RunningProgram(const std::filesystem::path& program,
                               const std::vector<std::string>& arguments, const ProgramOptions& options)
    : m_output(memoryFile()), m_errors(memoryFile()) {
  int input = -1;
  if (options.inputFrom == StandardInput::terminal) {
    std::tie(m_terminal, input) = terminalWith(options.input);
  } else {
    input = memoryFile(options.input);
  }
  std::vector<std::string> command = {"/usr/bin/env"};
  for (const auto& [name, value] : options.environment) command.push_back(name + "=" + value);
  command.push_back(program);
  command.insert(command.end(), arguments.begin(), arguments.end());
  m_process = spawn(std::move(command), {input, m_output, m_errors});
  close(input);
}

RunningProgram::~RunningProgram() {
  if (m_process > 0) {
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
  }
  for (const int file : {m_output, m_errors, m_terminal}) {
    if (file >= 0) close(file);
  }
}

void RunningProgram::sendSignal(int number) const {
  if (m_process > 0) kill(m_process, number);
}

std::string RunningProgram::errors() const {
  return contentOf(m_errors);
}

ProgramResult RunningProgram::wait() {
  ProgramResult result;
  int status = 0;
  checked(waitpid(m_process, &status, 0), "waitpid");
  m_process = -1;
  result.exitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  result.output = contentOf(m_output);
  result.errors = errors();
  return result;
}

ProgramResult runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         const ProgramOptions& options) {
  return RunningProgram(program, arguments, options).wait();
}

}  // namespace support
