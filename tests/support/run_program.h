// Runs a built program as its users do, and catches everything it says.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace support {

enum class StandardInput { file, terminal };

struct ProgramOptions {
  std::map<std::string, std::string> environment = {};  // beside, or instead of, what this process has
  std::string input = {};                               // what the program reads
  StandardInput inputFrom = StandardInput::file;
};

struct ProgramResult {
  int exitCode = -1;   // 128 + signal for one that was killed
  std::string output;  // stdout
  std::string errors;  // stderr
};

/// A program that runs. What it writes lands in memory, so it is never held up by a full pipe.
class RunningProgram {
 public:
  /// `program` is looked up in PATH where it has no slash. The exit code is 127 when it cannot be started.
  RunningProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                 const ProgramOptions& options = {});
  /// Kills the program when nobody waited for its end.
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  void sendSignal(int number) const;

  /// What it has written to stderr so far.
  std::string errors() const;

  /// Waits for its end, however long that takes. Call once.
  ProgramResult wait();

 private:
  int m_output = -1;
  int m_errors = -1;
  int m_terminal = -1;  // our side of it
  pid_t m_process = -1;
};

ProgramResult runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         const ProgramOptions& options = {});

}  // namespace support
