#include "crawler/scan_notice.h"

#include "platform/qt_text.h"
#include "store/site_settings.h"

namespace crawler {

using platform::toQString;

ScanNotice::ScanNotice(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                       const store::GlobalControls& controls, const store::StateFolder& stateFolder)
    : m_sheets(sheets),
      m_controls(controls),
      m_stateFolder(stateFolder),
      m_text(platform::control<QTextEdit>(mainWindow, "scanNotice")),
      m_button(platform::control<QPushButton>(mainWindow, "followLinksButton")),
      m_scanButton(platform::control<QPushButton>(mainWindow, "scanSiteButton")) {
  connect(&m_button, &QPushButton::clicked, this, &ScanNotice::followLinksAsBrowsersDo);
  refresh();
}

void ScanNotice::add(const QString& text) {
  m_texts.append(text);
  refresh();
}

void ScanNotice::offerBrowserRules(const std::string& siteName) {
  m_offeredTo = siteName;
  refresh();
}

void ScanNotice::clear() {
  m_texts.clear();
  m_offeredTo.clear();
  refresh();
}

void ScanNotice::refresh() {
  QStringList texts = m_texts;
  bool offers = false;
  if (!m_offeredTo.empty()) {
    const store::LinkStyle links = store::readSettings(m_stateFolder, m_offeredTo).settings.links;
    offers = links != store::LinkStyle::browser;
    texts.append(offers ? tr("Pages may be behind links that were left out.")
                        : tr("From the next scan on, links are followed as browsers do."));
  }
  m_text.setPlainText(texts.join(QLatin1Char('\n')));
  m_text.setVisible(!texts.isEmpty());
  m_button.setVisible(offers);
}

void ScanNotice::followLinksAsBrowsersDo() {
  const platform::FileResult saved = store::changeSettings(
      m_controls, m_stateFolder, m_offeredTo,
      [](store::SiteSettings& settings) { settings.links = store::LinkStyle::browser; });
  if (!saved.ok()) {
    m_sheets.alert(tr("The settings could not be saved."), toQString(saved.error));
    return;
  }
  m_scanButton.setFocus();  // one key away; the button that goes would hand it to whatever is next
  refresh();
  emit report(
      tr("Links of \"%1\" are followed as browsers do from the next scan on").arg(toQString(m_offeredTo)));
}

}  // namespace crawler
