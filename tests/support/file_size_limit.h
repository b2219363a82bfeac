// A full disk, nearly.
#pragma once

#include <csignal>

#include <sys/resource.h>

namespace support {

/// While it lives writes beyond `bytes` of any file fail, for root too, the last one that still fits coming
/// up short.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes = 0) : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_old);
    const rlimit limit{bytes, m_old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_old);
    std::signal(SIGXFSZ, m_oldHandler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit m_old{};
  void (*m_oldHandler)(int);
};

}  // namespace support
