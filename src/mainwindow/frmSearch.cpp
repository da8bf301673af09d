#include "mainwindow/frmSearch.h"

#include "data/ListCommands.h"
#include "mainwindow/CatalogueUi.h"
#include "util/Help.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

namespace tv {

frmSearch::frmSearch(CatalogueUi* catalogue, QWidget* parent)
    : QDialog(parent), catalogue_(catalogue)
{
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(QStringLiteral("検索"));
    auto* v = new QVBoxLayout(this);

    auto* row = new QHBoxLayout;
    auto* lbl = new QLabel(QStringLiteral("検索文字列(&F)"), this);
    lbl->setObjectName(QStringLiteral("lblFindText"));
    txtFindText = new QLineEdit(this);
    txtFindText->setObjectName(QStringLiteral("txtFindText"));
    txtFindText->setMinimumWidth(260);
    lbl->setBuddy(txtFindText);
    row->addWidget(lbl);
    row->addWidget(txtFindText, 1);
    v->addLayout(row);

    auto* groups = new QHBoxLayout;
    auto* fraKind = new QGroupBox(QStringLiteral("検索対象"), this);
    fraKind->setObjectName(QStringLiteral("fraKind"));
    auto* k = new QVBoxLayout(fraKind);
    optTSerch = new QRadioButton(QStringLiteral("タイトル(&T)"), fraKind);
    optTSerch->setObjectName(QStringLiteral("optTSerch"));
    optGMSerch = new QRadioButton(QStringLiteral("ジャンル・メーカー等(&G)"), fraKind);
    optGMSerch->setObjectName(QStringLiteral("optGMSerch"));
    optTSerch->setChecked(true);
    k->addWidget(optTSerch);
    k->addWidget(optGMSerch);
    auto* kindGroup = new QButtonGroup(this);
    kindGroup->addButton(optTSerch);
    kindGroup->addButton(optGMSerch);

    auto* fraStart = new QGroupBox(QStringLiteral("検索開始位置"), this);
    fraStart->setObjectName(QStringLiteral("fraStart"));
    auto* st = new QVBoxLayout(fraStart);
    optSelectSerch = new QRadioButton(QStringLiteral("選択行の次から(&N)"), fraStart);
    optSelectSerch->setObjectName(QStringLiteral("optSelectSerch"));
    optTopSerch = new QRadioButton(QStringLiteral("先頭から(&P)"), fraStart);
    optTopSerch->setObjectName(QStringLiteral("optTopSerch"));
    optSelectSerch->setChecked(true);
    st->addWidget(optSelectSerch);
    st->addWidget(optTopSerch);
    auto* startGroup = new QButtonGroup(this);
    startGroup->addButton(optSelectSerch);
    startGroup->addButton(optTopSerch);
    groups->addWidget(fraKind);
    groups->addWidget(fraStart);
    v->addLayout(groups);

    chkMatch = new QCheckBox(QStringLiteral("完全一致(&M)"), this);
    chkMatch->setObjectName(QStringLiteral("chkMatch"));
    v->addWidget(chkMatch);

    auto* buttons = new QHBoxLayout;
    cmdSerch = new QPushButton(QStringLiteral("検索(&S)"), this);
    cmdSerch->setObjectName(QStringLiteral("cmdSerch"));
    cmdSerch->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("閉じる(&C)"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdHelpContext = new QPushButton(QStringLiteral("ヘルプ(&H)"), this);
    cmdHelpContext->setObjectName(QStringLiteral("cmdHelpContext"));
    buttons->addStretch(1);
    buttons->addWidget(cmdSerch);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdHelpContext);
    v->addLayout(buttons);

    connect(cmdSerch, &QPushButton::clicked, this, [this] { cmdSerch_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHelpContext, &QPushButton::clicked, this, [] { ShowHelpTopic(kHelpSearch); });
}

int frmSearch::cmdSerch_Click()
{
    if (!catalogue_)
        return -1;
    const QString text = txtFindText->text().trimmed();
    if (text.isEmpty())
        return -1;
    const int kind = optTSerch->isChecked() ? kFindTitle : kFindSubItems;
    // The row behind the selection; without one, the top.
    int start = 0;
    if (optSelectSerch->isChecked() && catalogue_->selectedRow() >= 0)
        start = catalogue_->selectedRow() + 1;
    const int hit = FindListRow(*catalogue_->model(), text, kind, start, chkMatch->isChecked());
    if (hit < 0)
        return -1;
    catalogue_->selectRow(hit);
    catalogue_->ShowItemDetail();
    if (QTableView* v = catalogue_->listView())
        v->scrollTo(catalogue_->model()->index(hit, 0), QAbstractItemView::EnsureVisible);
    return hit;
}

} // namespace tv
