// Which of a page's elements are open, as far as it matters for its links: those that an anchor cannot leave,
// and SVG and MathML with the places in them where HTML begins anew.
//
// No tree is built, so most elements are not known here. Each tag costs the same, however deep the page
// nests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "web/elements.h"

namespace web {

class OpenScopes {
 public:
  /// Where a page stands at some moment.
  struct Mark {
    std::size_t size;
    std::uint32_t serial;
  };

  Mark mark() const { return {m_scopes.size(), m_scopes.empty() ? 0 : m_scopes.back().serial}; }

  /// Whether all that was open then is open still.
  bool holds(const Mark& mark) const {
    return mark.size == 0 || (mark.size <= m_scopes.size() && m_scopes[mark.size - 1].serial == mark.serial);
  }

  /// Whether nothing has been opened since that keeps an end tag from what is outside of it: a table, a cell,
  /// an object, HTML within SVG.
  bool reaches(const Mark& mark) const { return m_links.barrier == kNone || m_links.barrier < mark.size; }

  bool inTemplate() const { return m_links.inTemplate != kNone; }
  bool inSvg() const { return topIs(Element::svg); }
  bool inForeign() const { return m_top == Top::foreign; }

  /// Whether "<![CDATA[" begins a section here.
  bool allowsCdata() const {
    return m_top == Top::foreign || (m_top == Top::place && !m_scopes.back().holdsHtml);
  }

  void startHtml(Element element, bool selfClosing);
  /// While inForeign(). `holdsHtml` tells of an annotation whether HTML is what it says to hold.
  void startForeign(Element element, bool selfClosing, bool holdsHtml);
  void leaveForeign();
  void end(Element element);

 private:
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

  /// What the innermost scope holds: HTML, SVG or MathML, or HTML that began anew within these.
  enum class Top : std::uint8_t { html, foreign, place };

  /// The innermost of some elements, by place; kNone without.
  struct Links {
    std::uint32_t table = kNone;  // not one outside a template in it
    std::uint32_t barrier = kNone;
    std::uint32_t inTemplate = kNone;
  };

  struct Scope {
    Element element;
    bool holdsHtml;        // a place for HTML within SVG or MathML: an HTML element has begun there
    std::uint32_t nested;  // how many of the same kind are open within SVG or MathML
    std::uint32_t serial;
    Links outside;  // as they were in front of it
  };

  bool topIs(Element element) const { return !m_scopes.empty() && m_scopes.back().element == element; }
  void settleTop();
  void push(Element element);
  void popTo(std::size_t size);
  void clearToTable();
  void endForeign(Element element);
  void endHtml(Element element);

  std::vector<Scope> m_scopes;
  Links m_links;
  Top m_top = Top::html;
  std::uint32_t m_serial = 0;
};

}  // namespace web
