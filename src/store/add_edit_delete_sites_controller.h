// The sheet in which a site is added or edited, and the question before one is deleted.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <QObject>
#include <QString>
#include <string>

#include "platform/sheet_queue.h"
#include "store/add_edit_delete_sites.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/site_settings.h"
#include "store/state_folder.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace store {

/// One sheet serves both commands. The site to edit or delete is the one in hand when the command is given.
/// UI thread.
class AddEditDeleteSitesController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  AddEditDeleteSitesController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                               const GlobalControls& controls, const StateFolder& stateFolder,
                               const SharedState& state);
  ~AddEditDeleteSitesController() override;

  void addNewSite();
  void editSite();
  void deleteSite();

 signals:
  /// The list of sites has to be read anew, and no site is to be selected any more.
  void sitesChanged();
  /// A site has this name now, and its user wants to see it in the list.
  void siteNamed(const QString& name);
  /// Something worth a line at the foot of the window.
  void report(const QString& sentence);

 private:
  void buildSheet();
  void showSheet(const QString& title, const QString& defaultTitle);
  void editSiteStart();
  void defaultAction();
  void alternateAction();
  void showLinks(LinkStyle links);
  void checkInputIsOK();
  void createNewSite(const std::string& passedSiteName, const std::string& passedSiteURL);
  void saveEditedSite(const std::string& passedName, const std::string& passedURL);
  platform::FileResult saveLinks(const std::string& siteName);
  void finishSaving(const QString& sentence, const std::string& siteName, const SaveResult& result);
  void sheetDidEndShouldDelete(bool deleteIt, const std::string& name);
  void resetAndClose();
  bool tellUnlessSaved(platform::SheetQueue& sheets, const QString& what, const std::string& name,
                       const SaveResult& result);
  void reportDone(const QString& sentence, const SaveResult& result);
  void tellFailure(platform::SheetQueue& sheets, const QString& what, const std::filesystem::path& path,
                   const platform::FileResult& result);

  platform::SheetQueue& m_sheets;
  const GlobalControls& m_controls;
  const StateFolder& m_stateFolder;
  const SharedState& m_state;
  AddEditDeleteSites m_sites;

  QDialog m_aedWindow;
  platform::SheetQueue m_sheetsOfSheet;
  QLineEdit* m_siteName = nullptr;
  QLineEdit* m_siteURL = nullptr;
  QComboBox* m_links = nullptr;
  QPushButton* m_defaultButton = nullptr;
  QPushButton* m_alternateButton = nullptr;

  std::string m_calledBy;      // "addNewSite" or "editSite"
  std::string m_originalName;  // of the site that is edited
  LinkStyle m_shownLinks{};    // before its user chose others
};

}  // namespace store
