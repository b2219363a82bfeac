#include "report/outside_rows.h"

#include <algorithm>

#include "report/figures.h"

namespace report {

namespace {

constexpr std::string_view kNoAnswer = "0 - ";

const LinkCheck* find(const std::vector<LinkCheck>& checks, const std::string& address) {
  const auto found = std::lower_bound(
      checks.begin(), checks.end(), address,
      [](const LinkCheck& check, const std::string& wanted) { return check.address < wanted; });
  return found == checks.end() || found->address != address ? nullptr : &*found;
}

std::string dayText(std::chrono::seconds time) {
  return dateText(time.count()).substr(0, sizeof("2026-03-01") - 1);
}

}  // namespace

bool OutsideRow::isToBeAsked() const {
  return check == nullptr && (address().starts_with("http://") || address().starts_with("https://"));
}

std::vector<OutsideRow> outsideRows(const ScanContents& scan, const std::vector<LinkCheck>& checks) {
  std::vector<OutsideRow> rows;
  for (const OutsideAddress& link : scan.outside) rows.push_back({&link, find(checks, link.address)});
  for (const LinkCheck& check : checks) {
    if (!check.foundOn.empty()) rows.push_back({nullptr, &check});
  }
  return rows;
}

std::vector<OutsideRow> firstOutside(std::vector<OutsideRow> rows, std::size_t count) {
  std::stable_sort(rows.begin(), rows.end(), [](const OutsideRow& a, const OutsideRow& b) {
    const bool isBroken = a.is(LinkState::broken);
    return isBroken != b.is(LinkState::broken) ? isBroken : a.linkedFrom() > b.linkedFrom();
  });
  rows.resize(std::min(rows.size(), count));
  return rows;
}

std::string_view stateText(const OutsideRow& row) {
  if (row.check == nullptr) return "";
  switch (row.check->state) {
    case LinkState::fine:
      return "Fine";
    case LinkState::moved:
      return "Moved";
    case LinkState::broken:
      return "Broken";
    case LinkState::unchecked:
      return "Could not be checked";
  }
  return "";
}

bool certificateEndsSoon(const OutsideRow& row, std::int64_t now) {
  return row.check != nullptr && row.check->certificateEnds.count() > 0 &&
         row.check->certificateEnds - std::chrono::seconds(now) <= kCertificateNotice;
}

std::string reasonText(const OutsideRow& row, std::int64_t now) {
  if (row.check == nullptr) return {};
  std::string text;
  if (row.is(LinkState::moved)) {
    text = "Moved to " + row.check->movedTo;
  } else if (!row.is(LinkState::fine)) {
    text = row.check->reason;
    if (text.starts_with(kNoAnswer)) text.erase(0, kNoAnswer.size());
  }
  if (!certificateEndsSoon(row, now)) return text;
  const bool hasEnded = row.check->certificateEnds.count() < now;
  return text + (text.empty() ? "The" : "; the") + " certificate " + (hasEnded ? "ended" : "ends") + " on " +
         dayText(row.check->certificateEnds);
}

std::string checkText(const CheckFacts& last, const std::vector<OutsideRow>& rows) {
  CheckCounts counts;
  std::size_t left = 0;
  for (const OutsideRow& row : rows) {
    if (row.check != nullptr) counts.add(row.check->state);
    left += row.isToBeAsked() ? 1 : 0;
  }
  if (!last.isKnown()) return "These links were not checked yet.";
  std::string text = last.isUnfinished() ? "The check of " + dateText(last.started) + " was stopped: "
                                         : "Checked on " + dateText(last.ended) + ": ";
  text += grouped(counts.all()) + " asked, " + grouped(counts.of(LinkState::broken)) + " broken, " +
          grouped(counts.of(LinkState::moved)) + " moved, " + grouped(counts.of(LinkState::unchecked)) +
          " could not be checked.";
  if (left > 0) {
    text += " " + counted(left, "link was", "links were") +
            (last.isUnfinished() ? " not asked yet." : " met since then.");
  }
  return text;
}

}  // namespace report
