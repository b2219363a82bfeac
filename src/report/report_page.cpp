#include "report/report_page.h"

#include "report/plots.h"
#include "sitemaps/html_format.h"

namespace report {

namespace {

constexpr std::string_view kStyle = R"(
:root{color-scheme:light dark;--text:#222;--quiet:#5f6368;--ground:#fff;--raised:#f5f6f7;--line:#d9dcdf;--link:#1d5a96;--trouble:#a3421c}
@media screen and (prefers-color-scheme:dark){
:root{--text:#e2e2e2;--quiet:#a5a9ad;--ground:#1b1c1e;--raised:#26282b;--line:#3b3e42;--link:#8ab8e6;--trouble:#eb9a72}}
*{box-sizing:border-box}
body{margin:0 auto;max-width:76rem;padding:1rem 1.25rem 4rem;font:1rem/1.45 system-ui,sans-serif;color:var(--text);background:var(--ground);overflow-wrap:anywhere}
h1{font-size:1.6rem;margin:.5rem 0 0}
h2{font-size:1.25rem;margin:2.75rem 0 .5rem;padding-top:.75rem;border-top:1px solid var(--line)}
h3{font-size:1rem;margin:1.5rem 0 .4rem}
p{margin:.35rem 0}
a,bdi,.quiet{unicode-bidi:isolate}
a{color:var(--link);text-decoration:none}
a:hover,a:focus{text-decoration:underline}
nav{display:flex;flex-wrap:wrap;gap:.25rem 1.25rem;margin:1rem 0}
.quiet{color:var(--quiet)}
.trouble{color:var(--trouble)}
.figures{display:flex;flex-wrap:wrap;gap:.75rem 2.5rem;margin:1rem 0;padding:0;list-style:none}
.figures b{display:block;font-size:1.5rem;font-weight:600;font-variant-numeric:tabular-nums}
.plots{display:grid;grid-template-columns:repeat(auto-fit,minmax(min(24rem,100%),1fr));gap:2rem 2.5rem;margin:1.5rem 0}
svg.plot{max-width:28rem}
.entries{list-style:none;padding:0;margin:0}
.entries>li{padding:.55rem 0;border-bottom:1px solid var(--line)}
.entries ul{margin:.2rem 0 0;padding-left:1.25rem}
.scroll{overflow-x:auto}
table{border-collapse:collapse;width:100%;font-size:.9rem}
th{text-align:left;font-weight:600;vertical-align:bottom;white-space:nowrap;background:var(--raised)}
th,td{padding:.35rem .6rem;border-bottom:1px solid var(--line)}
td{vertical-align:top;min-width:4.5rem}
td.wide{min-width:16rem}
.number{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}
th span{cursor:pointer}
th span:hover,th span:focus-visible{text-decoration:underline}
th[aria-sort=ascending] span::after{content:" \2191"}
th[aria-sort=descending] span::after{content:" \2193"}
@media (max-width:40rem){body{padding:.5rem .75rem 3rem}th,td{padding:.3rem .4rem}td{min-width:0}td.wide{min-width:11rem}}
@media print{body{max-width:none;padding:0;font-size:9pt}nav{display:none}a{color:inherit}h2,h3{break-after:avoid}tr,.entries li,svg{break-inside:avoid}.scroll{overflow:visible}.plots{grid-template-columns:1fr 1fr}td.wide{min-width:0}}
)";

}  // namespace

const std::string_view kPageScript = R"(
"use strict";
const collator = new Intl.Collator(undefined, {numeric: true});
for (const table of document.querySelectorAll("table.sorts")) {
  const heads = Array.from(table.tHead.rows[0].cells);
  heads.forEach((head, column) => {
    // No button element: headings that are repeated on paper would lose it.
    const button = document.createElement("span");
    button.textContent = head.textContent;
    button.tabIndex = 0;
    button.setAttribute("role", "button");
    head.replaceChildren(button);
    const value = row => row.cells[column].dataset.n ?? row.cells[column].textContent;
    const sort = () => {
      // Numbers are looked at from the largest on.
      const first = head.className === "number" ? "descending" : "ascending";
      const other = first === "ascending" ? "descending" : "ascending";
      const order = head.getAttribute("aria-sort") === first ? other : first;
      heads.forEach(each => each.removeAttribute("aria-sort"));
      head.setAttribute("aria-sort", order);
      const way = order === "ascending" ? 1 : -1;
      const rows = Array.from(table.tBodies[0].rows, row => [value(row), row]);
      rows.sort((a, b) => way * collator.compare(a[0], b[0]));
      table.tBodies[0].append(...rows.map(each => each[1]));
    };
    button.addEventListener("click", sort);
    button.addEventListener("keydown", event => {
      if (event.key !== "Enter" && event.key !== " ") return;
      event.preventDefault();
      sort();
    });
  });
}
)";

const std::string_view kStyleHash = "wCoZ+Mz+pIZ98hhfocESK+WpGV8UVCgminpxQURvZ1I=";
const std::string_view kScriptHash = "1cGc3lKJBKWpJIAvBFBr0dCohBL3/9z96NGMjuVlbm4=";

std::string pageStyle() {
  return std::string(kStyle).append(kPlotStyle);
}

std::string pageOpening(std::string_view title) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'sha256-";
  page.append(kStyleHash).append("'; script-src 'sha256-").append(kScriptHash);
  page +=
      "'; base-uri 'none'; form-action 'none'\">\n"
      "<meta name=\"referrer\" content=\"no-referrer\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
  return page + sitemaps::asMarkupText(title) + "</title>\n<style>" + pageStyle() +
         "</style>\n</head>\n<body>\n";
}

std::string pageClosing() {
  return "<script>" + std::string(kPageScript) + "</script>\n</body>\n</html>\n";
}

}  // namespace report
