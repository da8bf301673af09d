#include "registration/frmDDAdd.h"

#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "platform/MsgBox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>

namespace tv {

frmDDAdd::frmDDAdd(const QStringList& files, CatalogueUi* list, QWidget* mainWindow)
    : QDialog(nullptr), core_(files, list ? list->model() : nullptr), list_(list), main_(mainWindow)
{
    setObjectName(QStringLiteral("frmDDAdd"));
    setWindowTitle(kDDAddCaption);
    setAttribute(Qt::WA_DeleteOnClose, false);
    auto* v = new QVBoxLayout(this);
    auto* counts = new QHBoxLayout;
    lblFileCnt = new QLabel(this);
    lblFileCnt->setObjectName(QStringLiteral("lblFileCnt"));
    lblFileCnt->setMinimumWidth(48);
    lblFileCnt->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblMaxCnt = new QLabel(this);
    lblMaxCnt->setObjectName(QStringLiteral("lblMaxCnt"));
    counts->addWidget(lblFileCnt);
    counts->addWidget(lblMaxCnt, 1);
    v->addLayout(counts);
    prgDDAdd = new QProgressBar(this);
    prgDDAdd->setObjectName(QStringLiteral("prgDDAdd"));
    prgDDAdd->setRange(0, qMax(1, int(files.size())));
    prgDDAdd->setValue(0);
    v->addWidget(prgDDAdd);
    lblFileName = new QLabel(this);
    lblFileName->setObjectName(QStringLiteral("lblFileName"));
    lblFileName->setMinimumWidth(420);
    lblFileName->setTextFormat(Qt::PlainText);
    // A long path is shortened in its middle rather than widening the window.
    lblFileName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    v->addWidget(lblFileName);
    auto* buttons = new QHBoxLayout;
    cmdCancel = new QPushButton(kDDAddCancelCaption, this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addStretch(1);
    buttons->addWidget(cmdCancel);
    buttons->addStretch(1);
    v->addLayout(buttons);
    connect(cmdCancel, &QPushButton::clicked, this, &frmDDAdd::cmdCancel_Click);

    // Form_Load: the roll-back copy, then the total and the first count.
    ready_ = core_.Begin();
    lblMaxCnt->setText(DDAddMaxCountText(int(files.size())));
    lblFileCnt->setText(QStringLiteral("0"));
    // The archivers' progress shows over this window: the main window is disabled meanwhile.
    core_.progressOwner = this;
    core_.yield = [] { QCoreApplication::processEvents(QEventLoop::AllEvents); };
    core_.onFile = [this](int n, const QString& path) {
        lblFileCnt->setText(QString::number(n));
        lblFileName->setText(
            lblFileName->fontMetrics().elidedText(path, Qt::ElideMiddle, lblFileName->width()));
        lblFileName->setToolTip(path);
        prgDDAdd->setValue(n - 1);
        emit fileStarted(n);
    };
}

void frmDDAdd::cmdCancel_Click()
{
    core_.StopFlag = 1;
}

void frmDDAdd::closeEvent(QCloseEvent* e)
{
    // The close box during the drop asks for a stop, as the button does.
    if (running_) {
        cmdCancel_Click();
        e->ignore();
        return;
    }
    QDialog::closeEvent(e);
}

void frmDDAdd::reject()
{
    if (running_) {
        cmdCancel_Click();
        return;
    }
    QDialog::reject();
}

bool frmDDAdd::SearchDDAdd()
{
    if (!ready_) {
        close();
        return false;
    }
    running_ = true;
    const bool done = core_.Search();
    running_ = false;
    prgDDAdd->setValue(prgDDAdd->maximum());
    if (done)
        Finish();
    else if (list_ && list_->selectedRow() >= 0)
        list_->ShowItemDetail();
    core_.End();
    close();
    return done;
}

void frmDDAdd::Finish()
{
    if (main_) {
        main_->setWindowTitle(ListWindowCaption(LstObj.GetLstMaxCnt()));
        main_->activateWindow();
    }
    MsgBox(DDAddDoneText(core_.fileCount() - core_.failures(), core_.failures()), MbInformation);
    if (!list_)
        return;
    const int rows = list_->model()->rowCount();
    if (core_.registered() >= 1 && rows > 0)
        list_->selectRow(rows - 1);
    const int r = list_->selectedRow();
    if (rows > 0 && r >= 0) {
        list_->ShowItemDetail();
        list_->listView()->scrollTo(list_->model()->index(r, 0));
    }
}

QStringList DroppedFiles(const QMimeData* data)
{
    QStringList files;
    if (!data || !data->hasUrls())
        return files;
    for (const QUrl& u : data->urls())
        if (u.isLocalFile() && !u.toLocalFile().isEmpty())
            files << u.toLocalFile();
    return files;
}

void RunFileDrop(const QStringList& files, CatalogueUi* list, QWidget* mainWindow)
{
    if (files.isEmpty())
        return;
    if (mainWindow) {
        mainWindow->show();
        mainWindow->setEnabled(false);
    }
    {
        frmDDAdd dlg(files, list, mainWindow);
        dlg.show();
        // It stays above the main window without being its child, so it keeps its input.
        if (mainWindow && dlg.windowHandle() && mainWindow->windowHandle())
            dlg.windowHandle()->setTransientParent(mainWindow->windowHandle());
        QCoreApplication::processEvents();
        if (!dlg.SearchDDAdd())
            MsgBox(kDDAddStoppedText, MbInformation);
    }
    if (mainWindow)
        mainWindow->setEnabled(true);
}

} // namespace tv
