#include "xml_editor/findings_panel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <chrono>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/site_export.h"

namespace xml_editor {

using platform::toQString;

namespace {

// Long enough that a user who changes one cell after the other does not wait for it.
constexpr std::chrono::milliseconds kAgainDelay{400};

QString findingText(const sitemaps::XmlFinding& finding) {
  const QString message = toQString(finding.message);
  if (finding.entry == 0) return message;
  const QString entry = QLocale().toString(static_cast<qulonglong>(finding.entry));
  if (finding.element.empty()) return FindingsPanel::tr("Entry %1: %2").arg(entry, message);
  return FindingsPanel::tr("Entry %1, %2: %3").arg(entry, toQString(finding.element), message);
}

}  // namespace

FindingsPanel::FindingsPanel(const QMainWindow& mainWindow) : m_view{mainWindow}, m_list(m_view.xmlFindings) {
  m_list.setModel(&m_texts);
  m_list.setMinimumHeight(m_list.fontMetrics().lineSpacing() * 6);
  auto* copy = new QAction(tr("Copy"), &m_list);
  copy->setObjectName(QStringLiteral("copySelection"));  // what the Edit menu's Copy does here
  m_list.addAction(copy);
  connect(copy, &QAction::triggered, this, [this] {
    const QModelIndex current = m_list.currentIndex();
    if (current.isValid()) QGuiApplication::clipboard()->setText(current.data().toString());
  });
  const auto want = [this](const QModelIndex& index) {
    emit wanted(m_findings[static_cast<std::size_t>(index.row())]);
  };
  connect(&m_list, &QListView::activated, this, want);
  connect(&m_list, &QListView::clicked, this, want);
  connect(&m_view.closeFindingsButton, &QToolButton::clicked, this, &FindingsPanel::close);
  m_again.setSingleShot(true);
  m_again.setInterval(kAgainDelay);
  connect(&m_again, &QTimer::timeout, this, &FindingsPanel::check);
  close();
}

void FindingsPanel::validate(const std::filesystem::path& sitemap, const std::string& siteUrl) {
  m_sitemap = sitemap;
  m_siteUrl = siteUrl;
  check();
}

void FindingsPanel::validateSoonAgain() {
  if (m_shown) m_again.start();
}

void FindingsPanel::close() {
  m_again.stop();
  m_shown = false;
  m_view.xmlFindingsPanel.hide();
}

void FindingsPanel::check() {
  m_again.stop();
  const platform::FileContent content = platform::readFile(m_sitemap);
  m_findings.clear();
  if (!content.result.ok()) {
    show(tr("The sitemap cannot be read: %1").arg(toQString(content.result.error)));
    return;
  }
  m_findings = sitemaps::validateAsPublished(content.text, m_siteUrl);
  if (m_findings.empty()) {
    show(tr("The sitemap is valid."));
  } else if (m_findings.size() == 1) {
    show(tr("The sitemap has one fault. Click it to see its entry:"));
  } else {
    show(tr("The sitemap has %1 faults. Click one to see its entry:")
             .arg(QLocale().toString(static_cast<qulonglong>(m_findings.size()))));
  }
}

/// Keeps the place in the list, so that faults can be mended one after the other.
void FindingsPanel::show(const QString& outcome) {
  const int place = m_list.currentIndex().row();
  QStringList texts;
  for (const sitemaps::XmlFinding& finding : m_findings) texts.append(findingText(finding));
  m_texts.setStringList(texts);
  if (place >= 0) m_list.setCurrentIndex(m_texts.index(std::min<int>(place, m_texts.rowCount() - 1)));
  m_list.setVisible(!m_findings.empty());
  m_view.xmlFindingsLabel.setText(outcome);
  // Without a list there is nothing to make room for.
  const QSizePolicy::Policy height = m_findings.empty() ? QSizePolicy::Fixed : QSizePolicy::Preferred;
  m_view.xmlFindingsPanel.setSizePolicy(QSizePolicy::Preferred, height);
  m_shown = true;
  m_view.xmlFindingsPanel.show();
}

}  // namespace xml_editor
