// What a click in the sitemap editor costs on a large document: 50,000 entries in three columns, all links.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "html_editor/anchor_edit.h"
#include "html_editor/link_deletion.h"
#include "html_editor/preview.h"
#include "html_editor/style.h"
#include "html_editor/table_rebuild.h"
#include "html_editor/underline.h"
#include "sample_pages.h"
#include "sitemaps/html_format.h"
#include "sitemaps/script_text.h"

namespace {

constexpr int kEntries = 50'000;
constexpr int kEntriesInCell = 40;
constexpr int kTotalLinks = 2 * kEntries;

std::string addressOf(int entry) {
  static const std::vector<std::string> addresses = bench::pageAddresses(kEntries);
  return addresses[static_cast<std::size_t>(entry)] + "?view=full&order=name";
}

std::string titleOf(int entry) {
  return "How the matter of entry " + std::to_string(entry) + " stands &amp; where to read on";
}

/// As a scan writes it. `linkSuffix` goes behind each link's title; the cell of `emptied` has no entries.
std::string makeDocument(const std::string& linkSuffix, int emptied) {
  std::string text = sitemaps::documentOpening(3);
  int cellsInRow = 0;
  for (int cell = 0; cell < kEntries / kEntriesInCell; ++cell) {
    std::string block;
    for (int i = 0; i < kEntriesInCell && cell != emptied; ++i) {
      const int entry = cell * kEntriesInCell + i;
      if (i == 0) {
        block = sitemaps::pageEntry(addressOf(entry), 2 * entry, titleOf(entry));
      } else {
        sitemaps::appendLinkEntry(block, addressOf(entry), 2 * entry, titleOf(entry) + linkSuffix);
      }
    }
    const sitemaps::Cell wrapped = sitemaps::wrapCell(block, 3, cellsInRow);
    text += wrapped.text;
    cellsInRow = wrapped.cellsInRow;
  }
  return text.append(sitemaps::documentClosing(3, cellsInRow));
}

const std::string& document() {
  static const std::string text = makeDocument("", -1);
  return text;
}

/// With markup in its titles, which only the parser can read.
const std::string& documentForParser() {
  static const std::string text = makeDocument(" <em>now</em>", -1);
  return text;
}

html_editor::LinkSelection selected(int entry) {
  std::string label = titleOf(entry);
  label.replace(label.find("&amp;"), 5, "&");
  return *html_editor::selectLink(addressOf(entry) + "---LINKID:" + std::to_string(2 * entry) + "---", label);
}

void countBytes(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void styleEdit(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        html_editor::withFontSize(document(), html_editor::EntryClass::pageLink, "0.8em"));
  }
  countBytes(state, document());
}
BENCHMARK(styleEdit)->Unit(benchmark::kMillisecond);

void styleEditOfMissingRule(benchmark::State& state) {
  const std::string body = document().substr(document().find("<body>"));
  for (auto _ : state) {
    benchmark::DoNotOptimize(html_editor::withFontSize(body, html_editor::EntryClass::pageLink, "0.8em"));
  }
  countBytes(state, body);
}
BENCHMARK(styleEditOfMissingRule)->Unit(benchmark::kMillisecond);

void underlineEdit(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(html_editor::withUnderline(document(), html_editor::EntryClass::pageTitle,
                                                        html_editor::Underline::all));
  }
  countBytes(state, document());
}
BENCHMARK(underlineEdit)->Unit(benchmark::kMillisecond);

void readBothStyles(benchmark::State& state) {
  for (auto _ : state) {
    for (const auto entries : {html_editor::EntryClass::pageTitle, html_editor::EntryClass::pageLink}) {
      benchmark::DoNotOptimize(html_editor::readStyle(document(), entries));
      benchmark::DoNotOptimize(html_editor::readUnderline(document(), entries));
    }
  }
}
BENCHMARK(readBothStyles)->Unit(benchmark::kMillisecond);

void anchorEdit(benchmark::State& state) {
  const html_editor::LinkSelection selection = selected(kEntries - 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        html_editor::editLinkAndTitle(document(), selection, "http://b.test/", "New & better"));
  }
  countBytes(state, document());
}
BENCHMARK(anchorEdit)->Unit(benchmark::kMillisecond);

/// One whose text is spelled otherwise in the document: every way of finding it is tried.
void anchorEditInVain(benchmark::State& state) {
  html_editor::LinkSelection selection = selected(kEntries - 2);
  selection.titleEditInput += " <";
  for (auto _ : state) {
    benchmark::DoNotOptimize(html_editor::editLinkAndTitle(document(), selection, "http://b.test/", "New"));
  }
}
BENCHMARK(anchorEditInVain)->Unit(benchmark::kMillisecond);

/// All that a deletion does to the text, and `rebuilt` too when it leaves an empty cell.
void deleteEntry(benchmark::State& state, const std::string& text,
                 const html_editor::LinkSelection& selection) {
  bool rebuilt = false;
  for (auto _ : state) {
    const auto deletion = html_editor::linkDeletion(text, selection, kTotalLinks);
    const auto cells = html_editor::checkForEmptyColumn(deletion.document);
    rebuilt = cells.has_value();
    if (cells) benchmark::DoNotOptimize(html_editor::rebuildSitemaps(text, *cells, 3));
  }
  state.SetLabel(rebuilt ? "rebuilt" : "not rebuilt");
  countBytes(state, text);
}

void deletion(benchmark::State& state) {
  // Without fillers at its end, which are empty cells too.
  static const std::string whole = [] {
    std::string text = document();
    std::string entry;
    sitemaps::appendLinkEntry(entry, "u", 1, "T");
    for (std::size_t at; (at = text.find("&nbsp;")) != std::string::npos;) {
      text.replace(at, 6, entry + "\n\t\t");
    }
    return text;
  }();
  deleteEntry(state, whole, selected(kEntries - 2));
}
BENCHMARK(deletion)->Unit(benchmark::kMillisecond);

void deletionOfHeading(benchmark::State& state) {
  deleteEntry(state, document(), selected(kEntriesInCell));
}
BENCHMARK(deletionOfHeading)->Unit(benchmark::kMillisecond);

void deletionWithRebuild(benchmark::State& state) {
  static const std::string text = makeDocument("", 5);
  deleteEntry(state, text, selected(kEntries - 2));
}
BENCHMARK(deletionWithRebuild)->Unit(benchmark::kMillisecond);

void deletionByParser(benchmark::State& state) {
  deleteEntry(state, documentForParser(), selected(kEntriesInCell));
}
BENCHMARK(deletionByParser)->Unit(benchmark::kMillisecond);

/// Texts with letters that end the short way to the entry.
void deletionInVain(benchmark::State& state, const char* title) {
  html_editor::LinkSelection selection = selected(kEntries - 2);
  selection.delTitle = title;
  deleteEntry(state, document(), selection);
}
BENCHMARK_CAPTURE(deletionInVain, brackets, "sorted (again)")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(deletionInVain, alternatives, "Home | Site")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(deletionInVain, escape, "C:\\temp")->Unit(benchmark::kMillisecond);

void preview(benchmark::State& state, const std::string& (*made)()) {
  const std::string& text = made();
  for (auto _ : state) benchmark::DoNotOptimize(html_editor::previewText(text));
  countBytes(state, text);
}
BENCHMARK_CAPTURE(preview, ownFormat, document)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(preview, byParser, documentForParser)->Unit(benchmark::kMillisecond);

void scriptText(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(sitemaps::holdsScriptText(document()));
  countBytes(state, document());
}
BENCHMARK(scriptText)->Unit(benchmark::kMillisecond);

}  // namespace
