// What is done for every link of every page.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "crawler/exclusions.h"
#include "crawler/page_queue.h"
#include "crawler/simple_link_rules.h"
#include "sample_pages.h"
#include "web/url.h"

namespace {

const crawler::LinkBase& pageBase() {
  static const crawler::LinkBase base = {
      .siteBaseURL = "http://www.example.test/",
      .pageBaseURL = "http://www.example.test/part-01/topic-020/",
      .pageBaseURLUnchanged = "http://www.example.test/part-01/topic-020/page-005000.html"};
  return base;
}

std::vector<std::string> sampleLinks() {
  std::vector<std::string> links;
  for (const std::string& href : bench::sampleHrefs()) {
    links.push_back(crawler::rebuildHREF(href, pageBase()));
  }
  return links;
}

void countLinks(benchmark::State& state, std::size_t links) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(links));
}

void rebuildHREF(benchmark::State& state) {
  const std::vector<std::string>& hrefs = bench::sampleHrefs();
  for (auto _ : state) {
    for (const std::string& href : hrefs) benchmark::DoNotOptimize(crawler::rebuildHREF(href, pageBase()));
  }
  countLinks(state, hrefs.size());
}
BENCHMARK(rebuildHREF);

void parseUrl(benchmark::State& state) {
  const std::vector<std::string>& hrefs = bench::sampleHrefs();
  const std::optional<web::Url> page = web::parseUrl(pageBase().pageBaseURLUnchanged);
  for (auto _ : state) {
    for (const std::string& href : hrefs) benchmark::DoNotOptimize(web::parseUrl(href, &*page));
  }
  countLinks(state, hrefs.size());
}
BENCHMARK(parseUrl);

/// Each kind by itself, on the page above.
void parseUrlOfKind(benchmark::State& state, const char* href) {
  const std::optional<web::Url> page = web::parseUrl(pageBase().pageBaseURLUnchanged);
  for (auto _ : state) benchmark::DoNotOptimize(web::parseUrl(href, &*page));
  countLinks(state, 1);
}
BENCHMARK_CAPTURE(parseUrlOfKind, absolute,
                  "https://www.example.test/part-01/topic-020/page-000123.html?lang=en#top");
BENCHMARK_CAPTURE(parseUrlOfKind, relative, "../topic-021/page-000124.html");
BENCHMARK_CAPTURE(parseUrlOfKind, otherScript, "http://b\u00fccher.example/");

void hasForeignExtension(benchmark::State& state) {
  const std::vector<std::string> links = sampleLinks();
  for (auto _ : state) {
    for (const std::string& link : links) {
      benchmark::DoNotOptimize(crawler::hasForeignExtension(link, crawler::pageExtensions()));
    }
  }
  countLinks(state, links.size());
}
BENCHMARK(hasForeignExtension);

void isInternal(benchmark::State& state) {
  const std::vector<std::string> links = sampleLinks();
  for (auto _ : state) {
    for (const std::string& link : links) {
      benchmark::DoNotOptimize(crawler::isInternal(link, pageBase().siteBaseURL));
    }
  }
  countLinks(state, links.size());
}
BENCHMARK(isInternal);

/// With as many filters and robots rules as a well-kept site may have, and as a hostile one can.
void exclusionTexts(benchmark::State& state) {
  const std::vector<std::string> links = sampleLinks();
  std::vector<std::string> texts;
  for (int i = 0; i < state.range(0); ++i) texts.push_back("/private-" + std::to_string(i) + "/");
  const crawler::Exclusions exclusions(texts);
  for (auto _ : state) {
    for (const std::string& link : links) {
      benchmark::DoNotOptimize(exclusions.find(link));
    }
  }
  countLinks(state, links.size());
}
BENCHMARK(exclusionTexts)->Arg(1)->Arg(20)->Arg(60'000);

/// Half of the links are known.
void isKnownPage(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<std::string> addresses = bench::pageAddresses(2 * count);
  crawler::PageQueue known;
  for (std::size_t i = 0; i < addresses.size(); i += 2) known.append(addresses[i]);
  constexpr std::size_t kStride = 7919;  // a prime: all are asked for, neighbours far apart
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(crawler::findPage(addresses[at], known, crawler::pageExtensions()));
    at = (at + kStride) % addresses.size();
  }
  countLinks(state, 1);
}
BENCHMARK(isKnownPage)->Arg(1'000)->Arg(100'000);

/// The dearest link of all: one to a folder asks for each name that an index page may have.
void isFolderOfKnownIndex(benchmark::State& state) {
  const std::string folder = "http://www.example.test/part-01/topic-020/";
  crawler::PageQueue known;
  for (const std::string& address : bench::pageAddresses(100'000)) known.append(address);
  for (auto _ : state) {
    benchmark::DoNotOptimize(crawler::isFolderOfKnownIndex(folder, known, crawler::pageExtensions()));
  }
  countLinks(state, 1);
}
BENCHMARK(isFolderOfKnownIndex);

}  // namespace
