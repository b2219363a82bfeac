// Small sitemaps, made as a scan makes them.
#pragma once

#include <string>
#include <vector>

namespace samples {

/// The entry of a page or of a link, as it stands in a document behind its line feed and tabs. Address and
/// title go in as they are.
std::string page(int number, const std::string& url, const std::string& title);
std::string link(int number, const std::string& url, const std::string& title);

using Block = std::vector<std::string>;  // the entries of a page

/// A finished document of 1 to 3 columns.
std::string document(int columns, const std::vector<Block>& blocks);

/// Blocks of a page and a link each, numbered 10 and 12, 20 and 22 and so on.
std::vector<Block> blocks(int count);

/// `text` with the first `what` replaced; the test ends when there is none.
std::string with(std::string text, const std::string& what, const std::string& instead);

}  // namespace samples
