// From a page's bytes to its title and links.
#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "crawler/page_contents.h"
#include "platform/text.h"
#include "sample_pages.h"
#include "sax_reader.h"

namespace {

void countBytes(benchmark::State& state, const std::vector<std::string>& pages) {
  std::int64_t bytes = 0;
  for (const std::string& page : pages) bytes += static_cast<std::int64_t>(page.size());
  state.SetBytesProcessed(state.iterations() * bytes);
}

void readPageContents(benchmark::State& state) {
  const std::vector<std::string>& pages = bench::samplePages();
  for (auto _ : state) {
    for (const std::string& page : pages) benchmark::DoNotOptimize(crawler::readPageContents(page));
  }
  countBytes(state, pages);
}
BENCHMARK(readPageContents)->Unit(benchmark::kMillisecond);

void readBySax(benchmark::State& state) {
  const std::vector<std::string>& pages = bench::samplePages();
  for (auto _ : state) {
    for (const std::string& page : pages) benchmark::DoNotOptimize(bench::readBySax(page));
  }
  countBytes(state, pages);
}
BENCHMARK(readBySax)->Unit(benchmark::kMillisecond);

void decodePage(benchmark::State& state, const char* contentType) {
  const std::vector<std::string>& pages = bench::samplePages();
  for (auto _ : state) {
    for (const std::string& page : pages) benchmark::DoNotOptimize(platform::decodePage(page, contentType));
  }
  countBytes(state, pages);
}
BENCHMARK_CAPTURE(decodePage, utf8, "text/html; charset=utf-8")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodePage, windows1252, "text/html; charset=windows-1252")->Unit(benchmark::kMillisecond);

}  // namespace
