#include "crawler/exclusions.h"

#include <algorithm>

#include "platform/text.h"

namespace crawler {

Exclusions::Exclusions(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    if (!text.empty()) m_folded.push_back(platform::foldCase(text));
  }
}

bool Exclusions::exclude(std::string_view foldedLink) const {
  return std::any_of(m_folded.begin(), m_folded.end(), [&](const std::string& text) {
    return foldedLink.find(text) != std::string_view::npos;
  });
}

}  // namespace crawler
