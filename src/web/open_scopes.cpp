#include "web/open_scopes.h"

namespace web {

namespace {

/// No page that people wrote comes near. What nests deeper counts as not there.
constexpr std::size_t kMaxOpen = 1u << 16;

}  // namespace

void OpenScopes::settleTop() {
  m_top = Top::html;
  if (m_scopes.empty()) return;
  switch (m_scopes.back().element) {
    case Element::math:
    case Element::svg:
      m_top = Top::foreign;
      return;
    case Element::annotationXml:
    case Element::desc:
    case Element::foreignObject:
    case Element::mathText:
    case Element::title:
      m_top = Top::place;
      return;
    default:
      return;
  }
}

void OpenScopes::push(Element element) {
  if (m_scopes.size() >= kMaxOpen) return;
  const auto place = static_cast<std::uint32_t>(m_scopes.size());
  m_scopes.push_back({element, false, 0, ++m_serial, m_links});
  settleTop();
  if (element == Element::svg || element == Element::math || element == Element::button) return;
  m_links.barrier = place;
  if (element == Element::table) m_links.table = place;
  if (element == Element::templateElement) {
    m_links.table = kNone;
    m_links.inTemplate = place;
  }
}

void OpenScopes::popTo(std::size_t size) {
  if (size >= m_scopes.size()) return;
  m_links = m_scopes[size].outside;
  m_scopes.resize(size, Scope{});
  settleTop();
}

/// Ends the cell in hand.
void OpenScopes::clearToTable() {
  if (m_links.table != kNone) popTo(m_links.table + std::size_t{1});
}

void OpenScopes::startHtml(Element element, bool selfClosing) {
  if (m_top == Top::place) m_scopes.back().holdsHtml = true;
  switch (element) {
    case Element::table:
      // A table can stand in a cell of another, not right within it.
      if (topIs(Element::table)) popTo(m_scopes.size() - 1);
      return push(element);
    case Element::caption:
    case Element::cell:
    case Element::headerCell:
      if (m_links.table == kNone) return;
      clearToTable();
      return push(element);
    case Element::column:
    case Element::tablePart:
      return clearToTable();
    case Element::button:
      if (topIs(Element::button)) popTo(m_scopes.size() - 1);
      return push(element);
    case Element::applet:
    case Element::marquee:
    case Element::object:
    case Element::templateElement:
      return push(element);
    case Element::math:
    case Element::svg:
      if (!selfClosing) push(element);
      return;
    default:
      return;
  }
}

void OpenScopes::startForeign(Element element, bool selfClosing, bool holdsHtml) {
  if (selfClosing) return;
  Scope& scope = m_scopes.back();
  if (element == scope.element) {
    ++scope.nested;
    return;
  }
  const bool isPlace =
      inSvg() ? element == Element::foreignObject || element == Element::desc || element == Element::title
              : element == Element::mathText || (element == Element::annotationXml && holdsHtml);
  if (isPlace) push(element);
}

void OpenScopes::leaveForeign() {
  if (inForeign()) popTo(m_scopes.size() - 1);
}

void OpenScopes::end(Element element) {
  if (m_top == Top::place) {
    const bool endsPlace = topIs(element);
    if (endsPlace || element == Element::svg || element == Element::math) popTo(m_scopes.size() - 1);
    if (endsPlace) return;
  }
  if (inForeign()) {
    endForeign(element);
  } else {
    endHtml(element);
  }
}

void OpenScopes::endForeign(Element element) {
  if (element == m_scopes.back().element) {
    if (m_scopes.back().nested-- == 0) leaveForeign();
  } else if (element == Element::paragraph || element == Element::br) {
    leaveForeign();
  } else {
    endHtml(element);
  }
}

void OpenScopes::endHtml(Element element) {
  switch (element) {
    case Element::table:
      if (m_links.table != kNone) popTo(m_links.table);
      return;
    case Element::caption:
    case Element::cell:
    case Element::headerCell: {
      if (m_links.table == kNone) return;
      const std::size_t cell = m_links.table + std::size_t{1};
      if (cell < m_scopes.size() && m_scopes[cell].element == element) popTo(cell);
      return;
    }
    case Element::tablePart:
      return clearToTable();
    case Element::button: {
      const std::size_t button = m_links.barrier == kNone ? 0 : m_links.barrier + std::size_t{1};
      if (button < m_scopes.size() && m_scopes[button].element == element) popTo(button);
      return;
    }
    case Element::applet:
    case Element::marquee:
    case Element::object:
      if (m_links.barrier != kNone && m_scopes[m_links.barrier].element == element) popTo(m_links.barrier);
      return;
    case Element::templateElement:
      if (inTemplate()) popTo(m_links.inTemplate);
      return;
    default:
      return;
  }
}

}  // namespace web
