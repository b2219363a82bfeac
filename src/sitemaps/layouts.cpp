#include "sitemaps/layouts.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

namespace sitemaps {

namespace {

constexpr std::array<const Layout*, kLayouts.size()> offered() {
  std::array<const Layout*, kLayouts.size()> layouts{};
  for (std::size_t i = 0; i < kLayouts.size(); ++i) layouts[i] = &kLayouts[i];
  std::sort(layouts.begin(), layouts.end(), [](const Layout* a, const Layout* b) {
    return std::tuple(a->listing, a->columns) > std::tuple(b->listing, b->columns);
  });
  return layouts;
}

}  // namespace

// Known before anything that reads it is made, in whatever file that is.
constinit const std::array<const Layout*, kLayouts.size()> kLayoutsOffered = offered();

const Layout* layoutNamed(std::string_view shortName) {
  const auto* found = std::find_if(kLayouts.begin(), kLayouts.end(),
                                   [&](const Layout& layout) { return layout.shortName == shortName; });
  return found == kLayouts.end() ? nullptr : found;
}

}  // namespace sitemaps
