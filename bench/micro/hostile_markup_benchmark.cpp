// Pages made to exhaust their reader, by size: what they cost has to grow as they do.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "crawler/page_contents.h"

namespace {

struct HostilePage {
  const char* name;
  std::string_view start;
  std::string_view again;
};

constexpr HostilePage kHostilePages[] = {
    {"attributes", "<a", " x=\"y\" z='1' w"},
    {"attributesOfAnImage", "<a href=1><img", " ab=1 "},
    {"buttonsInObjects", "", "<object><button></object>"},
    {"comments", "", "<!--"},
    {"commentOfBrackets", "<!--", "->"},
    {"endTags", "<i><a href=1>", "<b></i>"},
    {"openQuotes", "", "<a href=\"<a href='"},
    {"nestedAnchors", "", "<a href=1><b>x"},
    {"nestedDrawings", "", "<svg><desc>"},
    {"nestedTables", "", "<table><td>"},
    {"nestedTemplates", "", "<template>"},
    {"numbers", "<a href=1>", "&#"},
    {"names", "<a href=1>", "&CounterClockwiseContourIntegra"},
    {"references", "<a href=1>", "&"},
    {"scripts", "", "<script><!--<script>"},
    {"scriptEndTags", "<script>", "</script"},
    {"sections", "<svg>", "<![CDATA["},
    {"tags", "", "<a"},
    {"textAreas", "", "<textarea>"},
};

void readHostilePage(benchmark::State& state, const HostilePage& hostile) {
  std::string page(hostile.start);
  while (page.size() < static_cast<std::size_t>(state.range(0)) << 20) page += hostile.again;
  for (auto _ : state) benchmark::DoNotOptimize(crawler::readPageContents(page));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}

const bool kRegistered = [] {
  for (const HostilePage& hostile : kHostilePages) {
    benchmark::RegisterBenchmark((std::string("hostilePage/") + hostile.name).c_str(), readHostilePage,
                                 hostile)
        ->ArgName("MB")
        ->RangeMultiplier(2)
        ->Range(1, 8)
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
