#pragma once
// The progress window of a drop of files on the title list: the running number, the total, the
// file in work, a progress bar and the stop button. The work itself is the drop's core
// (launch/DDAdd.h); this window shows it, lets the stop button in at its yields, and finishes
// the drop on the main window: caption, final message, the new last row selected.
#include "launch/DDAdd.h"

#include <QDialog>
#include <QStringList>

class QLabel;
class QMimeData;
class QProgressBar;
class QPushButton;

namespace tv {

class CatalogueUi;

class frmDDAdd : public QDialog {
    Q_OBJECT
public:
    // initDDAdd and Form_Load: the dropped files, the catalogue whose list takes the rows, and
    // the main window, whose disabled state the window must not share (it stays parentless).
    frmDDAdd(const QStringList& files, CatalogueUi* list, QWidget* mainWindow);

    QLabel* lblFileCnt = nullptr;
    QLabel* lblMaxCnt = nullptr;
    QLabel* lblFileName = nullptr;
    QProgressBar* prgDDAdd = nullptr;
    QPushButton* cmdCancel = nullptr;

    // The loop; false when the drop was stopped or rolled back (the caller tells the user).
    bool SearchDDAdd();
    void cmdCancel_Click();
    DDAdd& core() { return core_; }

signals:
    // Before each file, for those who watch the drop: its running number from 1.
    void fileStarted(int number);

protected:
    void closeEvent(QCloseEvent* e) override;
    void reject() override;

private:
    void Finish();
    DDAdd core_;
    CatalogueUi* list_;
    QWidget* main_;
    bool ready_ = false;
    bool running_ = false;
};

// The local files of a drop, in its order; empty when it carries none.
QStringList DroppedFiles(const QMimeData* data);
// lstD88_OLEDragDrop: the main window shown and disabled, frmDDAdd over it, the drop, the
// message of a stopped drop, the window enabled again.
void RunFileDrop(const QStringList& files, CatalogueUi* list, QWidget* mainWindow);

} // namespace tv
