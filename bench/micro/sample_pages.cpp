#include "sample_pages.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "platform/files.h"

namespace bench {

namespace {

constexpr std::size_t kSampleBytes = 2u << 20;
constexpr const char* kDocumentation[] = {"/usr/share/doc/postgresql-doc-15/html",
                                          "/usr/share/doc/python3-doc/html"};

/// Every so manieth page of a folder, so that the sample has pages of all its parts.
void addPagesOf(const std::filesystem::path& folder, std::size_t bytes, std::vector<std::string>& pages) {
  constexpr std::size_t kStep = 7;
  const std::vector<std::string> files = platform::filesBelow(folder);
  std::size_t sum = 0;
  for (std::size_t i = 0; i < files.size() && sum < bytes; i += kStep) {
    if (!files[i].ends_with(".html")) continue;
    platform::FileContent page = platform::readFile(folder / files[i]);
    if (!page.result.ok()) continue;
    sum += page.text.size();
    pages.push_back(std::move(page.text));
  }
}

std::string generatedPage(std::size_t number) {
  std::string page = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Page " +
                     std::to_string(number) + "</title></head>\n<body><ul>\n";
  for (const std::string& href : sampleHrefs()) {
    page += "<li><a class=\"link\" href=\"" + href + "\">A link &amp; its <em>name</em></a></li>\n";
  }
  page += "</ul>\n";
  while (page.size() < 7'000)
    page += "<p class=\"text\">Some text of a page, <em>as it is</em> written.</p>\n";
  return page + "</body></html>\n";
}

std::vector<std::string> collectPages() {
  std::vector<std::string> pages;
  for (const char* folder : kDocumentation) {
    addPagesOf(folder, kSampleBytes / std::size(kDocumentation), pages);
  }
  for (std::size_t i = 0; pages.size() < 20; ++i) pages.push_back(generatedPage(i));
  return pages;
}

}  // namespace

const std::vector<std::string>& samplePages() {
  static const std::vector<std::string> pages = collectPages();
  return pages;
}

std::vector<std::string> pageAddresses(std::size_t count) {
  std::vector<std::string> addresses;
  for (std::size_t i = 0; i < count; ++i) {
    addresses.push_back("http://www.example.test/part-" + std::to_string(i / 5'000) + "/topic-" +
                        std::to_string(i / 250) + "/page-" + std::to_string(i) + ".html");
  }
  return addresses;
}

const std::vector<std::string>& sampleHrefs() {
  static const std::vector<std::string> hrefs = {
      "page-000182.html",
      "../topic-028/page-007119.html",
      "../../part-00/topic-013/page-003455.html",
      "page-000182.html#section-3",
      "#section-4",
      "/part-01/topic-021/page-005253.html",
      "http://www.example.test/part-01/topic-021/page-005253.html",
      "https://another.test/somewhere/else.html?page=3&order=name",
      "list.php?page=3&order=name",
      "mailto:somebody@example.test",
      "../images/photograph.jpg",
      "topic/",
  };
  return hrefs;
}

}  // namespace bench
