#include "html_editor/html_view_controller.h"

#include <QApplication>
#include <QFrame>

#include "html_editor/fixed_pages.h"
#include "html_editor/layouts.h"
#include "platform/enable_unless.h"
#include "platform/files.h"
#include "platform/qt_text.h"

namespace html_editor {

using platform::enableUnless;
using platform::toQString;
using platform::toUtf8;
using platform::translated;

namespace {

constexpr int kViewer = 2;
constexpr int kStyleEditor = 3;
constexpr std::chrono::seconds kRecoveryDelay{1};
const QString kFileScheme = QStringLiteral("file://");

}  // namespace

HTMLViewController::HTMLViewController(const HTMLViewServices& services)
    : m_services(services),
      m_state(services.state),
      m_sheets(services.sheets),
      m_document(services.state, services.controls, services.recovery),
      m_pt(services.mainWindow, EntryClass::pageTitle),
      m_pl(services.mainWindow, EntryClass::pageLink),
      m_view{services.mainWindow} {
  for (const LayoutItem& item : sitemapTypeItems) {
    m_view.sitemapTypePopup.addItem(translated(item.title), toQString(item.representedObject));
  }
  // It can be copied from, but is no field to type in.
  QPalette plain = m_view.urlToLoad.palette();
  plain.setColor(QPalette::Base, Qt::transparent);
  m_view.urlToLoad.setPalette(plain);
  m_view.siteTypeLabel.hide();  // its text is that of another layout than the chooser's
  m_recoveryTimer.setSingleShot(true);
  m_recoveryTimer.setInterval(kRecoveryDelay);
  prepareWindow(services.mainWindow);
  connectControls();
  clearLinkFields();
  disableEditOptions();
  markBusy(false);
}

void HTMLViewController::connectControls() {
  connectStyle(m_pt);
  connectStyle(m_pl);
  connect(&m_recoveryTimer, &QTimer::timeout, this, [this] { m_document.keepCopy(); });
  connect(&m_view.sitemapTypePopup, &QComboBox::activated, this, &HTMLViewController::changeMapType);
  connect(&m_view.saveChangesButton, &QPushButton::clicked, this, &HTMLViewController::saveRecentChanges);
  connect(&m_view.vibButton, &QPushButton::clicked, this, &HTMLViewController::viewSitemapButton);
  connect(&m_view.deleteButton, &QPushButton::clicked, this, &HTMLViewController::deleteLinkAction);
  connect(&m_view.titleEditInput, &QLineEdit::returnPressed, this, &HTMLViewController::titleEditInputAction);
  connect(&m_view.linkEditInput, &QLineEdit::returnPressed, this, &HTMLViewController::linkEditInputAction);
  connect(qApp, &QApplication::focusChanged, this, &HTMLViewController::focusMoved);
}

/// A field is committed by Return, or by going on to another control; not by a look at another window.
void HTMLViewController::onCommit(QLineEdit& field, std::function<void()> action) {
  const auto commit = [&field, action = std::move(action)] {
    if (!field.isModified()) return;
    field.setModified(false);
    action();
  };
  connect(&field, &QLineEdit::returnPressed, this, commit);
  connect(&field, &QLineEdit::editingFinished, this, [&field, commit] {
    if (field.window()->focusWidget() != &field) commit();
  });
}

void HTMLViewController::connectStyle(StyleControlsView& controls) {
  connect(&controls.fontFace, &QComboBox::activated, this, [&] { changeFontFamily(controls); });
  connect(&controls.fontSize, &QComboBox::activated, this, [&] { changeFontSize(controls); });
  connect(&controls.boldButton, &QCheckBox::toggled, this, [&] { changeBold(controls); });
  connect(&controls.italicButton, &QCheckBox::toggled, this, [&] { changeItalic(controls); });
  connect(&controls.colourwell, &QPushButton::clicked, this, [&] { chooseColour(controls); });
  onCommit(controls.colourField, [&] { applyTypedColour(controls); });
  connect(&controls.underlineGroup, &QButtonGroup::idToggled, this, [&](int id, bool checked) {
    if (checked) changeUnderline(controls, static_cast<Underline>(id));
  });
}

void HTMLViewController::viewTBIAction(bool wasShown) {
  m_savedScrollPosition = {};
  if (m_scanWebView) m_scanWebView->scrollTo(m_savedScrollPosition);
  m_services.mainWindow.setWindowTitle(toQString(m_state.qzvskWinTit));
  if (!wasShown) {
    takePlace(kViewer);
    // Not while the question is up: its answer saves the document that is in hand now.
    afterQuestion([this] { firstLoad(); });
    return;
  }
  // Asking for the viewer once more saves, and does not ask.
  if (m_document.changed()) saveAndReadBack();
  clearLinkFields();
}

void HTMLViewController::styleTBIAction(int previousView) {
  m_services.mainWindow.setWindowTitle(toQString(m_state.qzvskWinTit));
  // Asking for it once more saves, and does not ask.
  if (previousView == kStyleEditor) {
    if (m_document.changed()) saveAndReadBack();
    return;
  }
  takePlace(kStyleEditor);
  // Anything may have happened to the file meanwhile, a scan for example.
  if (previousView != kViewer || !m_document.isThere()) {
    m_savedScrollPosition = {};
    afterQuestion([this] { firstLoad(); });
  }
}

void HTMLViewController::siteChanged() {
  if (!isCurrentView()) return;
  m_savedScrollPosition = {};
  firstLoad();
}

void HTMLViewController::firstLoad() {
  const Opened opened = m_document.firstLoad(m_state.qzvskCurSite);
  if (!m_state.qzvskCurSite.empty()) return showOpened(opened);
  showSelection();
  saveActive();
  showPage(noSitePage());
}

/// The document that was opened, or why there is none.
void HTMLViewController::showOpened(const Opened& opened) {
  m_view.urlToLoad.setText(kFileScheme + toQString(m_document.file().native()));
  m_view.urlToLoad.setCursorPosition(0);
  showSelection();
  chooserFollowsFile();
  if (!m_document.isThere()) {
    saveActive();
    showPage(nothingToShowPage(opened.state, opened.bytes));
    // Another layout may be there, or be small enough.
    if (opened.state != DocumentState::missing) enableUnless(m_view.sitemapTypePopup, {});
    return;
  }
  m_documentIsNew = true;
  showDocument();
  enableEditOptions();
  setPopupButtons();
  offerRecoveryCopy();
}

void HTMLViewController::setPopupButtons() {
  saveActive();
  m_pt.show(m_document.text());
  m_pl.show(m_document.text());
}

void HTMLViewController::saveActive() {
  const bool dirty = m_document.changed();
  if (dirty) {
    m_recoveryTimer.start();
  } else {
    m_recoveryTimer.stop();
  }
  enableUnless(m_view.saveChangesButton, dirty ? QString() : tr("Everything is saved"));
  emit needsSaveChanged(dirty);
}

void HTMLViewController::enableOptions(bool enabled) {
  const QString whyNot = enabled ? QString() : tr("There is no sitemap to work on");
  m_view.selectedLinkGroup.setEnabled(enabled);
  m_pt.setEnabled(whyNot);
  m_pl.setEnabled(whyNot);
  for (QWidget* each : std::initializer_list<QWidget*>{&m_view.saveChangesButton, &m_view.siteTypeLabel,
                                                       &m_view.vibButton, &m_view.sitemapTypePopup}) {
    enableUnless(*each, whyNot);
  }
}

void HTMLViewController::makeWebView() {
  if (m_scanWebView) return;
  auto* frame = new QFrame(&m_services.mainWindow);
  frame->setObjectName(QStringLiteral("scanWebViewFrame"));
  frame->setFrameShape(QFrame::StyledPanel);
  m_scanWebView = new SitemapWebView(frame);
  m_scanWebView->setObjectName(QStringLiteral("scanWebView"));
  m_scanWebView->setAccessibleName(tr("Sitemap"));
  auto* layout = new QVBoxLayout(frame);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  m_notice = new QLabel(tr("The last scan of this site did not finish: not all of its pages are here."));
  m_notice->setObjectName(QStringLiteral("htmlNotice"));
  m_notice->setMargin(m_notice->fontMetrics().height() / 3);
  m_notice->setWordWrap(true);
  m_notice->hide();
  layout->addWidget(m_notice);
  layout->addWidget(m_scanWebView, 1);
  buildLinkMenu();
  connect(m_scanWebView, &SitemapWebView::linkClicked, this, &HTMLViewController::linkClicked);
  connect(m_scanWebView, &SitemapWebView::documentShown, this, [this] {
    markBusy(false);
    m_scanWebView->scrollTo(m_savedScrollPosition);
    if (m_document.selection()) markSelection();
  });
}

/// The viewer and the style editor share the sitemap and the controls: these move to the one that is shown.
void HTMLViewController::takePlace(int view) {
  makeWebView();
  const bool viewer = view == kViewer;
  (viewer ? m_view.htmlWindowViewLayout : m_view.htmlEditorWindowViewLayout)
      .insertWidget(0, &m_view.sitemapBar);
  (viewer ? m_view.htmlSitemapPlace : m_view.htmlEditorSitemapPlace).addWidget(m_scanWebView->parentWidget());
  if (viewer) {
    m_view.styleTabs.insertTab(0, &m_pt.tabView, tr("&Page titles"));
    m_view.styleTabs.insertTab(1, &m_pl.tabView, tr("Page &links"));
    m_view.styleTabs.setCurrentIndex(0);
  } else {
    m_view.pageTitlesPlace.addWidget(&m_pt.tabView);
    m_view.pageLinksPlace.addWidget(&m_pl.tabView);
    m_pt.tabView.show();  // a tab that is not in front is hidden
    m_pl.tabView.show();
  }
  for (QGridLayout* layout : {&m_pt.styleLayout, &m_pl.styleLayout}) {
    // Beside each other's frames they do without margins, so that both fit into a small window.
    viewer ? layout->unsetContentsMargins() : layout->setContentsMargins({});
    layout->setVerticalSpacing(viewer ? -1 : layout->horizontalSpacing() / 2);
  }
  orderTabs(viewer);
}

/// The Tab key goes as one reads. What moves to another place is last in its order otherwise.
void HTMLViewController::orderTabs(bool viewer) {
  std::vector<QWidget*> order = {&m_view.sitemapTypePopup, &m_view.vibButton, &m_view.saveChangesButton};
  std::vector<QWidget*> styles = m_pt.tabOrder();
  for (QWidget* each : m_pl.tabOrder()) styles.push_back(each);
  if (viewer) {
    order.insert(order.end(), {m_scanWebView, &m_view.titleEditInput, &m_view.linkEditInput,
                               &m_view.deleteButton, &m_view.styleTabs});
  }
  order.insert(order.end(), styles.begin(), styles.end());
  order.push_back(viewer ? &m_view.urlToLoad : static_cast<QWidget*>(m_scanWebView));
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void HTMLViewController::showPage(const std::string& page) {
  makeWebView();
  m_documentIsNew = true;
  m_notice->hide();
  disableEditOptions();
  markBusy(true);
  m_scanWebView->showDocument(page, false);
}

void HTMLViewController::showDocument() {
  makeWebView();
  markBusy(true);
  m_notice->setVisible(m_document.isUnfinished());
  m_scanWebView->showDocument(m_document.text(), !m_documentIsNew);
  m_documentIsNew = false;
}

void HTMLViewController::markBusy(bool busy) {
  m_view.sitemapBusy.setVisible(busy);
}

bool HTMLViewController::isCurrentView() const {
  return m_state.qzvskCurrentView == kViewer || m_state.qzvskCurrentView == kStyleEditor;
}

}  // namespace html_editor
