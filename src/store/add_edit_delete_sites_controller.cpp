#include "store/add_edit_delete_sites_controller.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt_text.h"
#include "store/setting_row.h"
#include "store/site_input.h"
#include "store/site_record.h"

namespace store {

namespace {

using platform::toQString;
using platform::toUtf8;
using platform::translated;

constexpr int kFieldWidth = 360;

constexpr const Choice& kLinks = std::get<Choice>(kLinksSetting.value);

}  // namespace

AddEditDeleteSitesController::AddEditDeleteSitesController(QMainWindow& mainWindow,
                                                           platform::SheetQueue& sheets,
                                                           const GlobalControls& controls,
                                                           const StateFolder& stateFolder,
                                                           const SharedState& state)
    : m_sheets(sheets),
      m_controls(controls),
      m_stateFolder(stateFolder),
      m_state(state),
      m_sites(controls, stateFolder),
      m_aedWindow(&mainWindow),
      m_sheetsOfSheet(m_aedWindow) {
  buildSheet();
}

AddEditDeleteSitesController::~AddEditDeleteSitesController() = default;

void AddEditDeleteSitesController::buildSheet() {
  m_aedWindow.setObjectName(QStringLiteral("aedWindow"));
  m_siteName = new QLineEdit;
  m_siteName->setObjectName(QStringLiteral("aedSiteName"));
  m_siteName->setAccessibleName(tr("Site name"));
  m_siteURL = new QLineEdit;
  m_siteURL->setObjectName(QStringLiteral("aedSiteURL"));
  m_siteURL->setAccessibleName(tr("Site URL"));
  m_siteURL->setPlaceholderText(QStringLiteral("http://www.example.com/"));
  m_siteURL->setMinimumWidth(kFieldWidth);
  m_links = new QComboBox;
  for (const Choice::Option& option : kLinkStyles) m_links->addItem(translated(option.caption));
  m_defaultButton = new QPushButton;
  m_defaultButton->setObjectName(QStringLiteral("defaultButton"));
  m_defaultButton->setDefault(true);
  m_alternateButton = new QPushButton;
  m_alternateButton->setObjectName(QStringLiteral("alternateButton"));
  m_alternateButton->setAutoDefault(false);

  auto* fields = new QFormLayout;
  fields->addRow(tr("Site &name"), m_siteName);
  fields->addRow(tr("Site &URL"), m_siteURL);
  addSettingRow(*fields, kLinksSetting, *m_links);
  auto* buttons = new QDialogButtonBox;  // knows the desktop's order
  buttons->addButton(m_defaultButton, QDialogButtonBox::AcceptRole);
  buttons->addButton(m_alternateButton, QDialogButtonBox::RejectRole);
  auto* layout = new QVBoxLayout(&m_aedWindow);
  layout->addLayout(fields);
  layout->addStretch();
  layout->addWidget(buttons);

  connect(m_defaultButton, &QPushButton::clicked, this, &AddEditDeleteSitesController::defaultAction);
  connect(m_alternateButton, &QPushButton::clicked, this, &AddEditDeleteSitesController::alternateAction);
  // Escape and the window's own close button mean Cancel too.
  connect(&m_aedWindow, &QDialog::rejected, this, [this] {
    if (!m_calledBy.empty()) resetAndClose();
  });
}

void AddEditDeleteSitesController::addNewSite() {
  m_calledBy = "addNewSite";
  showSheet(tr("Add New Site"), tr("Add Site"));
}

void AddEditDeleteSitesController::editSite() {
  m_calledBy = "editSite";
  editSiteStart();
}

void AddEditDeleteSitesController::editSiteStart() {
  m_originalName = m_state.qzvskCurSite;
  const std::filesystem::path file = m_controls.returnFullFileLocation(m_originalName);
  const platform::FileContent record = platform::readFile(file, platform::kMaxListBytes);
  if (!record.result.ok()) {
    m_calledBy.clear();
    return tellFailure(m_sheets, tr("Could not read %1"), file, record.result);
  }
  m_siteName->setText(toQString(m_originalName));
  m_siteURL->setText(toQString(recordValue(record.text, kSiteUrl).value_or("")));
  m_siteURL->setCursorPosition(0);  // of a long one the host tells more than the end
  const StoredSettings stored = readSettings(m_stateFolder, m_originalName);
  if (!stored.problems.empty()) emit report(toQString(stored.allProblems()));
  showLinks(stored.settings.links);
  showSheet(tr("Edit Site"), tr("Save Changes"));
}

void AddEditDeleteSitesController::showSheet(const QString& title, const QString& defaultTitle) {
  m_aedWindow.setWindowTitle(title);
  m_defaultButton->setText(defaultTitle);
  m_alternateButton->setText(tr("Cancel"));
  m_siteName->setFocus();
  m_sheets.show(m_aedWindow);
}

void AddEditDeleteSitesController::showLinks(LinkStyle links) {
  m_shownLinks = links;
  m_links->setCurrentIndex(static_cast<int>(kLinks.get({.links = links})));
}

void AddEditDeleteSitesController::defaultAction() {
  checkInputIsOK();
}

void AddEditDeleteSitesController::alternateAction() {
  resetAndClose();
}

void AddEditDeleteSitesController::checkInputIsOK() {
  const SiteInput input = checkSiteInput(toUtf8(m_siteName->text()), toUtf8(m_siteURL->text()));
  if (!input.error.empty()) {
    m_sheetsOfSheet.alert(tr("The following error has occurred while saving your site."),
                          toQString(input.error));
    return;
  }
  const std::string calledBy = m_calledBy;
  if (calledBy == "addNewSite") createNewSite(input.name, input.url);
  if (calledBy == "editSite") saveEditedSite(input.name, input.url);
}

void AddEditDeleteSitesController::createNewSite(const std::string& passedSiteName,
                                                 const std::string& passedSiteURL) {
  const SaveResult result = m_sites.createNewSite(passedSiteName, passedSiteURL);
  if (result.outcome == SaveOutcome::nameTaken) return m_sheetsOfSheet.alert(translated(kCreateNameTaken));
  if (!tellUnlessSaved(m_sheetsOfSheet, tr("Could not write %1"), passedSiteName, result)) return;
  finishSaving(tr("Added \"%1\"").arg(toQString(passedSiteName)), passedSiteName, result);
}

void AddEditDeleteSitesController::saveEditedSite(const std::string& passedName,
                                                  const std::string& passedURL) {
  const SaveResult result =
      m_sites.saveEditedSite(m_originalName, {.name = passedName, .url = passedURL}, NameClash::overwriteUrl);
  if (result.outcome == SaveOutcome::nameTaken) {
    QString why;  // that the other site's address is what it was
    if (!result.file.ok()) {
      why = tr("Could not save %1: %2").arg(toQString(result.path.native()), toQString(result.file.error));
    }
    m_sheets.alert(toQString(renameNameTaken(passedName)), why);
    resetAndClose();
  } else if (tellUnlessSaved(m_sheetsOfSheet, tr("Could not save %1"), m_originalName, result)) {
    finishSaving(tr("Saved \"%1\"").arg(toQString(passedName)), passedName, result);
  }
}

/// The rest, once the site has its record under its name: its links go into the settings there.
void AddEditDeleteSitesController::finishSaving(const QString& sentence, const std::string& siteName,
                                                const SaveResult& result) {
  reportDone(sentence, result);
  if (const platform::FileResult links = saveLinks(siteName); !links.ok()) {
    tellFailure(m_sheets, tr("Could not save %1"), settingsFile(m_stateFolder, siteName), links);
  }
  resetAndClose();
  emit siteNamed(toQString(siteName));
}

/// Only where they were changed here: somebody else may have done so meanwhile.
platform::FileResult AddEditDeleteSitesController::saveLinks(const std::string& siteName) {
  SiteSettings chosen;
  kLinks.set(chosen, static_cast<std::size_t>(m_links->currentIndex()));
  if (chosen.links == m_shownLinks) return {};
  return changeSettings(m_controls, m_stateFolder, siteName,
                        [&](SiteSettings& settings) { settings.links = chosen.links; });
}

void AddEditDeleteSitesController::deleteSite() {
  const std::string name = m_state.qzvskCurSite;
  m_sheets.ask(tr("Do you really want to delete the site:\n%1").arg(toQString(name)), {}, tr("Delete"),
               tr("Cancel"), [this, name](bool deleteIt) { sheetDidEndShouldDelete(deleteIt, name); });
}

void AddEditDeleteSitesController::sheetDidEndShouldDelete(bool deleteIt, const std::string& name) {
  if (!deleteIt) return;
  const SaveResult result = m_sites.deleteSite(name);
  if (tellUnlessSaved(m_sheets, tr("Could not delete %1"), name, result)) {
    reportDone(tr("Deleted \"%1\"").arg(toQString(name)), result);
  } else if (result.outcome == SaveOutcome::busy) {
    return;
  }
  emit sitesChanged();
}

void AddEditDeleteSitesController::resetAndClose() {
  m_calledBy.clear();
  m_siteName->clear();
  m_siteURL->clear();
  showLinks(SiteSettings().links);
  m_sheets.close(m_aedWindow);
  m_siteName->setFocus();  // the next sheet starts with the name
  emit sitesChanged();
}

/// Whether the change was made. If not, says why.
bool AddEditDeleteSitesController::tellUnlessSaved(platform::SheetQueue& sheets, const QString& what,
                                                   const std::string& name, const SaveResult& result) {
  if (result.outcome == SaveOutcome::saved) return true;
  if (result.outcome == SaveOutcome::busy) {
    sheets.alert(tr("The site \"%1\" is being scanned.").arg(toQString(name)));
  } else {
    tellFailure(sheets, what, result.path, result.file);
  }
  return false;
}

/// Says what was done, and whether what is remembered of the site has followed.
void AddEditDeleteSitesController::reportDone(const QString& sentence, const SaveResult& result) {
  emit report(result.state.ok() ? sentence
                                : tr("%1. What is remembered of it could not follow: %2")
                                      .arg(sentence, toQString(result.state.error)));
}

void AddEditDeleteSitesController::tellFailure(platform::SheetQueue& sheets, const QString& what,
                                               const std::filesystem::path& path,
                                               const platform::FileResult& result) {
  sheets.alert(what.arg(toQString(path.native())), toQString(result.error));
}

}  // namespace store
