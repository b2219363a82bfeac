// What links outside of a site lead to, and how that was when it was checked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "report/link_check.h"
#include "report/report.h"
#include "report/report_database.h"

namespace report {

/// An address that pages link to, or an image, style or script of theirs that was checked. Points into what
/// it was made of.
struct OutsideRow {
  const OutsideAddress* link = nullptr;  // null for an image, style or script
  const LinkCheck* check = nullptr;      // null for what was not asked

  const std::string& address() const { return link != nullptr ? link->address : check->address; }
  std::uint32_t linkedFrom() const { return link != nullptr ? link->linkedFrom : 0; }
  bool is(LinkState state) const { return check != nullptr && check->state == state; }
  /// Whether the next check would ask it. Mail addresses and the like are never asked.
  bool isToBeAsked() const;
};

/// Links in the order found, and behind them images, styles and scripts by address. `checks` are by address.
std::vector<OutsideRow> outsideRows(const ScanContents& scan, const std::vector<LinkCheck>& checks);

/// Those to look at first, at most `count`: what is broken, and of the rest what most pages link to.
std::vector<OutsideRow> firstOutside(std::vector<OutsideRow> rows, std::size_t count);

/// "Fine", "Moved", "Broken", "Could not be checked"; empty for what was not asked.
std::string stateText(const OutsideRow& row);

/// Whether the certificate ends soon, or has ended. `now` is in seconds since 1970-01-01 UTC.
bool certificateEndsSoon(const OutsideRow& row, std::int64_t now);

/// "404 - Not Found", "Moved to http://...", "The certificate ends on 2026-03-01", or two of these; empty
/// where all is well and for what was not asked. Holds addresses as they are.
std::string reasonText(const OutsideRow& row, std::int64_t now);

/// When the links were checked last, whether that came to its end, and what it has found. Sentences.
std::string checkText(const CheckFacts& last, const std::vector<OutsideRow>& rows);

}  // namespace report
