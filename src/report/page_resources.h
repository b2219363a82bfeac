// What a page needs besides itself: its images, styles and scripts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace report {

/// The addresses of the images, style sheets, icons and scripts that a page's markup (UTF-8) names, absolute
/// and of http or https, in the order of the page. `url` is the page's; a base element counts.
std::vector<std::string> pageResources(std::string_view markup, std::string_view url);

}  // namespace report
