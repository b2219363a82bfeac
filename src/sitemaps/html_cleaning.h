// An HTML sitemap made fit for the web: without the LINKID markers that the editor finds its entries by.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace sitemaps {

/// Told how far the cleaning is: the line it is at, from 0, and how many there are. Called for the first line
/// and then some two hundred times in the course of the document, however long that is.
using CleaningProgress = std::function<void(std::size_t line, std::size_t lines)>;

/// `document` without its markers, all lines kept as lines: first every "<!-- LINKID: ... -->" of a line
/// goes, then every "---LINKID:...---". A marker ends where it first can, and never on another line. What is
/// left may look like a marker again; such text was no marker, and stays.
std::string withoutLinkIds(std::string_view document, const CleaningProgress& progress = {});

}  // namespace sitemaps
