#include "report/last_changes.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "report/changes.h"
#include "report/report_database.h"

namespace report {

namespace {

/// What a comparison looks at.
struct Seen {
  crawler::PageStanding standing;
  std::string title;

  bool operator==(const Seen&) const = default;
};

struct Scans {
  ScanContents before = {};
  ScanContents now = {};
};

/// The two scans without the pages that both have met alike, of which there is nothing to tell.
Scans readDifferences(ReportDatabase& database, const ScanFacts& before, const ScanFacts& now) {
  Scans scans{{.facts = before}, {.facts = now}};
  std::unordered_map<std::string, Seen> former;
  database.eachPage(before, [&](Page page) {
    former.emplace(std::move(page.address), Seen{page.standing, std::move(page.title)});
  });
  database.eachPage(now, [&](Page page) {
    const auto found = former.find(page.address);
    if (found != former.end() && found->second == Seen{page.standing, page.title}) {
      former.erase(found);
    } else {
      scans.now.pages.push_back(std::move(page));
    }
  });
  for (auto& [address, seen] : former) {
    scans.before.pages.push_back(
        {.address = address, .title = std::move(seen.title), .standing = seen.standing});
  }
  return scans;
}

}  // namespace

LastChanges readLastChanges(const store::StateFolder& state, std::string_view siteName) {
  ReportDatabase database(state, siteName, ReportDatabase::Use::read);
  const std::vector<ScanFacts> kept = database.keptScans();
  if (database.result().ok() && kept.empty()) return {{platform::FileStatus::missing}};
  if (kept.size() < 2) return {database.result()};
  const Scans scans = readDifferences(database, kept[1], kept[0]);
  if (!database.result().ok()) return {database.result()};
  const Changes changes = compare(scans.before, scans.now);
  return {.text = changesText(changes),
          .added = changes.added.size(),
          .gone = changes.gone.size(),
          .newlyBroken = changes.newlyBroken.size(),
          .repaired = changes.repaired.size(),
          .renamed = changes.renamed.size()};
}

}  // namespace report
