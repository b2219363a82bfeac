#include "xml_editor/findings_panel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <algorithm>
#include <chrono>
#include <exception>
#include <memory>

#include "platform/address_actions.h"
#include "platform/qt_text.h"
#include "sitemaps/site_export.h"

namespace xml_editor {

using platform::toQString;

namespace {

// Long enough that a user who changes one cell after the other does not wait for it.
constexpr std::chrono::milliseconds kAgainDelay{400};

/// Nobody mends more of them one by one, and a list of a million holds the window up.
constexpr std::size_t kMostListed = 10'000;

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
  copy->setObjectName(QLatin1String(platform::kCopySelection));
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
  m_findings.clear();
  m_texts.setStringList({});
  m_view.xmlFindingsPanel.hide();
}

void FindingsPanel::check() {
  if (!m_shown) show(tr("Checking the sitemap..."));
  // One at a time: what is asked meanwhile is looked at when this one is done.
  if (m_checking) return m_again.start();
  m_again.stop();
  m_checking = true;
  m_worker = std::jthread([this, sitemap = m_sitemap, siteUrl = m_siteUrl] {
    auto outcome = std::make_shared<Outcome>(outcomeOf(sitemap, siteUrl));
    QMetaObject::invokeMethod(
        this, [this, outcome] { take(std::move(*outcome)); }, Qt::QueuedConnection);
  });
}

FindingsPanel::Outcome FindingsPanel::outcomeOf(const std::filesystem::path& sitemap,
                                                const std::string& siteUrl) {
  Outcome outcome{sitemap};
  try {
    const platform::FileContent content = platform::readFile(sitemap);
    outcome.read = content.result;
    if (!content.result.ok()) return outcome;
    outcome.findings = sitemaps::validateAsPublished(content.text, siteUrl);
    outcome.count = outcome.findings.size();
    outcome.findings.resize(std::min(outcome.count, kMostListed));
    for (const sitemaps::XmlFinding& finding : outcome.findings) outcome.texts.append(findingText(finding));
  } catch (const std::exception& failure) {  // no memory
    outcome = {sitemap, {platform::FileStatus::failed, failure.what()}};
  }
  return outcome;
}

void FindingsPanel::take(Outcome outcome) {
  m_checking = false;
  // The panel was closed meanwhile, or is about another site now.
  if (!m_shown || outcome.sitemap != m_sitemap) return;
  m_findings = std::move(outcome.findings);
  const int place = m_list.currentIndex().row();
  m_texts.setStringList(outcome.texts);
  // Faults can be mended one after the other.
  if (place >= 0) m_list.setCurrentIndex(m_texts.index(std::min<int>(place, m_texts.rowCount() - 1)));
  const QString count = QLocale().toString(static_cast<qulonglong>(outcome.count));
  if (!outcome.read.ok()) {
    show(tr("The sitemap cannot be read: %1").arg(toQString(outcome.read.error)));
  } else if (outcome.count == 0) {
    show(tr("The sitemap is valid."));
  } else if (outcome.count <= kMostListed) {
    show(tr("The sitemap has %Ln fault(s). Click one to see its entry:", nullptr,
            static_cast<int>(outcome.count)));
  } else {
    show(tr("The sitemap has %1 faults. These are the first %2; click one to see its entry:")
             .arg(count, QLocale().toString(static_cast<qulonglong>(kMostListed))));
  }
}

void FindingsPanel::show(const QString& sentence) {
  m_list.setVisible(!m_findings.empty());
  m_view.xmlFindingsLabel.setText(sentence);
  // Without a list there is nothing to make room for.
  const QSizePolicy::Policy height = m_findings.empty() ? QSizePolicy::Fixed : QSizePolicy::Preferred;
  m_view.xmlFindingsPanel.setSizePolicy(QSizePolicy::Preferred, height);
  m_shown = true;
  m_view.xmlFindingsPanel.show();
}

}  // namespace xml_editor
