#include "report/outside_rows.h"

#include <algorithm>

#include "platform/http_client.h"
#include "platform/phrases.h"
#include "report/figures.h"

namespace report {

namespace {

using platform::Phrases;

constexpr std::string_view kNoAnswer = "0 - ";

const LinkCheck* find(const std::vector<LinkCheck>& checks, const std::string& address) {
  const auto found = std::lower_bound(
      checks.begin(), checks.end(), address,
      [](const LinkCheck& check, const std::string& wanted) { return check.address < wanted; });
  return found == checks.end() || found->address != address ? nullptr : &*found;
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

std::string stateText(const OutsideRow& row) {
  if (row.check == nullptr) return {};
  switch (row.check->state) {
    case LinkState::fine:
      return Phrases::tr("Fine");
    case LinkState::moved:
      return Phrases::tr("Moved");
    case LinkState::broken:
      return Phrases::tr("Broken");
    case LinkState::unchecked:
      return Phrases::tr("Could not be checked");
  }
  return {};
}

bool certificateEndsSoon(const OutsideRow& row, std::int64_t now) {
  return row.check != nullptr && row.check->certificateEnds.count() > 0 &&
         row.check->certificateEnds - std::chrono::seconds(now) <= kCertificateNotice;
}

std::string reasonText(const OutsideRow& row, std::int64_t now) {
  if (row.check == nullptr) return {};
  std::string text;
  if (row.is(LinkState::moved)) {
    text = Phrases::tr("Moved to %1", {row.check->movedTo});
  } else if (!row.is(LinkState::fine)) {
    text = platform::reasonInLanguage(row.check->reason);
    if (text.starts_with(kNoAnswer)) text.erase(0, kNoAnswer.size());
  }
  if (!certificateEndsSoon(row, now)) return text;
  const bool hasEnded = row.check->certificateEnds.count() < now;
  const std::string day = dayText(row.check->certificateEnds.count());
  if (text.empty())
    return hasEnded ? Phrases::tr("The certificate ended on %1", {day})
                    : Phrases::tr("The certificate ends on %1", {day});
  return text + (hasEnded ? Phrases::tr("; the certificate ended on %1", {day})
                          : Phrases::tr("; the certificate ends on %1", {day}));
}

std::string checkText(const CheckFacts& last, const std::vector<OutsideRow>& rows) {
  CheckCounts counts;
  std::size_t left = 0;
  for (const OutsideRow& row : rows) {
    if (row.check != nullptr) counts.add(row.check->state);
    left += row.isToBeAsked() ? 1 : 0;
  }
  if (!last.isKnown()) return Phrases::tr("These links were not checked yet.");
  const char* sentence =
      last.isUnfinished()
          ? Phrases::noop(
                "The check of %1 was stopped: %2 asked, %3 broken, %4 moved, %5 could not be checked.")
          : Phrases::noop("Checked on %1: %2 asked, %3 broken, %4 moved, %5 could not be checked.");
  std::string text =
      Phrases::tr(sentence, {dateText(last.isUnfinished() ? last.started : last.ended), grouped(counts.all()),
                             grouped(counts.of(LinkState::broken)), grouped(counts.of(LinkState::moved)),
                             grouped(counts.of(LinkState::unchecked))});
  if (left > 0) {
    const auto number = static_cast<std::int64_t>(left);
    text += last.isUnfinished()
                ? Phrases::tr(" %Ln link was not asked yet.", " %Ln links were not asked yet.", number)
                : Phrases::tr(" %Ln link was met since then.", " %Ln links were met since then.", number);
  }
  return text;
}

}  // namespace report
