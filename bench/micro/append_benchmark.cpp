// How a sitemap grows: the cost of a cell must not depend on what the document holds already.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "platform/files.h"

namespace {

/// A file of `size` bytes that goes with this object.
class SampleFile {
 public:
  explicit SampleFile(std::size_t size)
      : m_path(std::filesystem::temp_directory_path() / ("veskel-append-" + std::to_string(getpid()))),
        m_size(size) {
    m_made = platform::replaceFile(m_path, std::string(size, 'x'));
  }
  ~SampleFile() { static_cast<void>(platform::removeFile(m_path)); }
  SampleFile(const SampleFile&) = delete;
  SampleFile& operator=(const SampleFile&) = delete;

  bool made() const { return m_made.ok(); }
  const std::filesystem::path& path() const { return m_path; }

  void cutBack() const {
    std::error_code error;
    std::filesystem::resize_file(m_path, m_size, error);
  }

 private:
  std::filesystem::path m_path;
  std::size_t m_size;
  platform::FileResult m_made;
};

/// A cell of an all-links sitemap is some 3 KB for a page of 40 links.
void appendCell(benchmark::State& state) {
  const SampleFile file(static_cast<std::size_t>(state.range(0)));
  platform::FileAppender appender(file.path());
  const std::string cell(3'000, 'y');
  constexpr int kCellsUntilCut = 10'000;  // or a long run would fill the disk
  int cells = 0;
  for (auto _ : state) {
    if (!file.made() || !appender.append(cell).ok()) {
      state.SkipWithError("the file could not be written");
      break;
    }
    if (++cells % kCellsUntilCut != 0) continue;
    state.PauseTiming();
    file.cutBack();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(cell.size()));
}
BENCHMARK(appendCell)->Arg(1'000)->Arg(100'000'000);

}  // namespace
