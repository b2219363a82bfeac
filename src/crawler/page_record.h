// A page as it was fetched, as a line of text, so that it can be kept in a file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "crawler/page_source.h"

namespace crawler {

struct PageRecord {
  FetchedPage page = {};
  std::optional<std::string> date = {};  // when it was last modified, if that was asked for
};

/// Adds the line of a page that was answered, with its line end. Its first field is the address.
void appendRecordLine(std::string& text, std::string_view url, const FetchedPage& page,
                      const std::optional<std::string>& date);

/// The page of this address in such a line, without its line end. Nothing when it is another page's, or no
/// whole one.
std::optional<PageRecord> readRecordLine(std::string_view line, std::string_view url);

}  // namespace crawler
