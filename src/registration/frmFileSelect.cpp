#include "registration/frmFileSelect.h"

#include "data/Cfg.h"
#include "data/ItemText.h"
#include "launch/FileSelect.h"
#include "launch/Repack.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

namespace tv {

namespace {

const char* const kRowMime = "text/plain";

} // namespace

FileSelectList::FileSelectList(QWidget* parent) : QListWidget(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
}

void FileSelectList::startDrag(Qt::DropActions)
{
    QListWidgetItem* item = currentItem();
    if (!item || !partner) {
        return;
    }
    auto* mime = new QMimeData;
    mime->setText(item->text());
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    // The row leaves this list only when the other list took it.
    if (drag->exec(Qt::MoveAction) == Qt::MoveAction) {
        delete takeItem(row(item));
    }
}

void FileSelectList::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == partner && event->mimeData()->hasFormat(QLatin1String(kRowMime))) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void FileSelectList::dragMoveEvent(QDragMoveEvent* event)
{
    if (event->source() == partner) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void FileSelectList::dropEvent(QDropEvent* event)
{
    if (event->source() != partner) {
        event->ignore();
        return;
    }
    addItem(event->mimeData()->text());
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

frmFileSelect::frmFileSelect(uint8_t Mode, uint8_t Kind, const QString& image,
                             const QString& startFile, QWidget* parent)
    : QDialog(parent), mode_(Mode), kind_(Kind), image_(image)
{
    setObjectName(QStringLiteral("frmFileSelect"));
    setWindowTitle(QStringLiteral("イメージファイルの選択"));

    lblTitle = new QLabel(this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    lblRTitle = new QLabel(this);
    lblRTitle->setObjectName(QStringLiteral("lblRTitle"));
    lstFileL = new FileSelectList(this);
    lstFileL->setObjectName(QStringLiteral("lstFileL"));
    lstFileR = new FileSelectList(this);
    lstFileR->setObjectName(QStringLiteral("lstFileR"));
    lstFileL->partner = lstFileR;
    lstFileR->partner = lstFileL;

    fraButton = new QFrame(this);
    fraButton->setObjectName(QStringLiteral("fraButton"));
    auto make = [this](const char* name, const QString& text, QWidget* owner) {
        auto* b = new QPushButton(text, owner);
        b->setObjectName(QLatin1String(name));
        b->setAutoDefault(false);
        return b;
    };
    cmdRight = make("cmdRight", QStringLiteral("→"), fraButton);
    cmdLeft = make("cmdLeft", QStringLiteral("←"), fraButton);
    cmdUp = make("cmdUp", QStringLiteral("↑"), fraButton);
    cmdDown = make("cmdDown", QStringLiteral("↓"), fraButton);
    auto* buttons = new QVBoxLayout(fraButton);
    buttons->addStretch();
    for (QPushButton* b : {cmdRight, cmdLeft, cmdUp, cmdDown}) {
        buttons->addWidget(b);
    }
    buttons->addStretch();
    cmdOK = make("cmdOK", QStringLiteral("OK"), this);
    cmdCancel = make("cmdCancel", QStringLiteral("キャンセル"), this);

    auto* left = new QVBoxLayout;
    left->addWidget(lblTitle);
    left->addWidget(lstFileL);
    auto* right = new QVBoxLayout;
    right->addWidget(lblRTitle);
    right->addWidget(lstFileR);
    auto* lists = new QHBoxLayout;
    lists->addLayout(left);
    lists->addWidget(fraButton);
    lists->addLayout(right);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(cmdOK);
    bottom->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists);
    layout->addLayout(bottom);
    resize(520, 320);

    connect(cmdRight, &QPushButton::clicked, this, [this] { Move(lstFileL, lstFileR); });
    connect(cmdLeft, &QPushButton::clicked, this, [this] { Move(lstFileR, lstFileL); });
    connect(cmdUp, &QPushButton::clicked, this, [this] { Shift(-1); });
    connect(cmdDown, &QPushButton::clicked, this, [this] { Shift(1); });
    connect(cmdOK, &QPushButton::clicked, this, &frmFileSelect::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmFileSelect::cmdCancel_Click);
    connect(lstFileL, &QListWidget::itemDoubleClicked, this, [this] {
        if (mode_ == 0 || mode_ == 3) {
            cmdOK_Click();
        }
    });

    switch (Mode) {
    case 0:
        lblTitle->setText(QStringLiteral("スタートファイルの指定"));
        break;
    case 1:
        lblTitle->setText(QStringLiteral("２番目以降のファイル順序") + QLatin1Char('\n') +
                          QStringLiteral("(右側リストへの格納順)"));
        break;
    case 2:
        lblTitle->setText(QStringLiteral("フィルタオプションの設定"));
        break;
    default:
        lblTitle->setText(QStringLiteral("マニュアルドキュメントの指定"));
        break;
    }
    const bool twoLists = Mode == 1;
    lblRTitle->setVisible(twoLists);
    lstFileR->setVisible(Mode == 1 || Mode == 2);
    lstFileL->setVisible(Mode != 2);
    fraButton->setVisible(Mode == 1 || Mode == 2);
    cmdRight->setVisible(twoLists);
    cmdLeft->setVisible(twoLists);
    // Only P88SR takes a list of further disks in an order.
    const bool order = Mode == 2 || (Mode == 1 && HardWare == 0);
    cmdUp->setVisible(order);
    cmdDown->setVisible(order);

    if (Mode == 2) {
        for (const FilterRow& r : FilterRows(Kind)) {
            auto* item = new QListWidgetItem(r.text, lstFileR);
            item->setData(Qt::UserRole, int(r.row));
        }
        lstFileR->setDragEnabled(false);
        lstFileR->setAcceptDrops(false);
        if (lstFileR->count() > 0) {
            lstFileR->setCurrentRow(0);
        }
        ready_ = true;
        return;
    }
    if (Mode == 0 || Mode == 3) {
        lstFileL->setDragEnabled(false);
        lstFileL->setAcceptDrops(false);
    }
    QStringList members;
    ready_ = ListMembers(Mode, image, startFile, members) == MemberListResult::Ok;
    lstFileL->addItems(members);
}

void frmFileSelect::Move(QListWidget* from, QListWidget* to)
{
    QListWidgetItem* item = from->currentItem();
    if (!item || !item->isSelected()) {
        return;
    }
    to->addItem(from->takeItem(from->row(item)));
}

void frmFileSelect::Shift(int by)
{
    const int row = lstFileR->currentRow();
    const int target = row + by;
    if (row < 0 || target < 0 || target >= lstFileR->count()) {
        return;
    }
    QListWidgetItem* item = lstFileR->takeItem(row);
    lstFileR->insertItem(target, item);
    lstFileR->setCurrentRow(target);
}

void frmFileSelect::cmdOK_Click()
{
    switch (mode_) {
    case 0:
    case 3: {
        QListWidgetItem* item = lstFileL->currentItem();
        if (!item || !item->isSelected()) {
            MsgBox(kFileSelectNoChoice);
            return;
        }
        chosen = item->text();
        if (mode_ == 0 && Cfg.TxtIn == 1) {
            imported = ImportItemText(WorkDir + u'/' + GetFileBase(chosen));
            if (!imported) {
                imported = ImportItemText(image_);
            }
        }
        if (mode_ == 0) {
            CleanWorkDir();
        }
        break;
    }
    case 1: {
        QStringList rows;
        for (int i = 0; i < lstFileR->count(); ++i) {
            rows << lstFileR->item(i)->text();
        }
        secondFiles = rows.join(QLatin1Char(' '));
        CleanWorkDir();
        break;
    }
    default: {
        std::vector<uint8_t> rows;
        for (int i = 0; i < lstFileR->count(); ++i) {
            rows.push_back(uint8_t(lstFileR->item(i)->data(Qt::UserRole).toUInt()));
        }
        StoreFilterRows(kind_, rows);
        break;
    }
    }
    // Mode 3 leaves WorkDir to the caller's clean-up as well: it must be empty on return.
    if (mode_ == 3) {
        CleanWorkDir();
    }
    accept();
}

void frmFileSelect::cmdCancel_Click()
{
    reject();
}

void frmFileSelect::reject()
{
    if (mode_ != 2) {
        CleanWorkDir();
    }
    QDialog::reject();
}

} // namespace tv
