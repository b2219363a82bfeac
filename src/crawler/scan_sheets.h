// The three sheets of a scan: connecting, in progress, closing.
#pragma once

#include <QDialog>

#include "crawler/pending_scan.h"

class QGridLayout;
class QLabel;
class QProgressBar;
class QPushButton;

namespace crawler {

/// A sentence, a bar that only tells that something goes on, and where it makes sense a button to give up.
class WaitingSheet : public QDialog {
  Q_OBJECT

 public:
  enum class GiveUp { offered, impossible };

  WaitingSheet(QWidget* parent, const char* name, const char* barName, GiveUp giveUp);

  void setText(const QString& text);
  /// What the button says, if not "Cancel".
  void setGiveUpText(const QString& text);
  void reject() override;  // Escape and the close button give up, if that is offered

 signals:
  void givenUp();

 private:
  QLabel* m_text;
  QPushButton* m_cancel = nullptr;  // where it is offered
  GiveUp m_giveUp;
};

/// How far the scan is.
class ProgressSheet : public QDialog {
  Q_OBJECT

 public:
  explicit ProgressSheet(QWidget* parent);

  void showProgress(const ScanProgress& progress, const QString& text);
  /// What happens now: the address of a page, or a sentence. Not seen while the scan is paused.
  void showText(const QString& text);
  void reset();
  void reject() override;

 signals:
  void cancelled();
  /// The user has the scan wait, or go on.
  void paused(bool isPaused);

 private:
  QLabel* addCounter(const QString& caption, const char* name, QGridLayout* grid, int column);

  void setPaused(bool isPaused);

  QString m_last;  // that was to be shown
  bool m_isPaused = false;
  QLabel* m_text;
  QProgressBar* m_bar;
  QLabel* m_pagesLeft;
  QLabel* m_pagesScanned;
  QLabel* m_brokenLinks;
  QLabel* m_linksFound;
  QPushButton* m_pause;
  QPushButton* m_cancel;
};

}  // namespace crawler
