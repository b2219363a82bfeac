// What the user is asked before the links of a site are checked.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <string>

#include "report/site_link_check.h"

namespace ui {

class LinkCheckSheet : public QDialog {
  Q_OBJECT

 public:
  explicit LinkCheckSheet(QWidget* parent);

  /// What a check of the site would do; offers to go on where the last one was stopped.
  void showPlan(const std::string& siteName, const report::CheckPlan& plan);
  const std::string& siteName() const { return m_siteName; }

 signals:
  /// The sheet has closed, and the check is to begin.
  void agreed(bool resources, bool again);

 private:
  void answer(bool again);
  void enableButtons();

  std::string m_siteName;
  bool m_hasLinks = false;
  QLabel* m_text;
  QCheckBox* m_resources;
  QLabel* m_resourcesHint;
  QPushButton* m_goOn;
  QPushButton* m_begin;
};

}  // namespace ui
