#include "registration/frmLstMake.h"

#include "adapters/OptionDialogs_ui.h"
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "data/ItemDetail.h"
#include "data/ItemEntry.h"
#include "data/ItemText.h"
#include "data/SideList.h"
#include "data/clsLst.h"
#include "launch/FileSelect.h"
#include "launch/Repack.h"
#include "mainwindow/CatalogueUi.h"
#include "platform/MsgBox.h"
#include "registration/frmFileSelect.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace tv {

namespace {

const char* const kOpCaptions[3][6] = {
    {"P88SR", "M88", "PC88Win", "X88000", "QUASI88", "j80"},
    {"XM7dos", "XM7win", "EM7", nullptr, nullptr, nullptr},
    {"X1R設定", "Xmille設定", "X1EMU設定", "WinX1設定", nullptr, nullptr}};
const char* const kRunItems[3][6] = {
    {"P88SR", "M88", "PC88Win", "X88000", "QUASI88", "j80"},
    {"XM7 for DOS", "XM7 for Win32", "EM7 for Win32", nullptr, nullptr, nullptr},
    {"X1R", "Xmillennium", "X1EMU", "WinX1", nullptr, nullptr}};
const char* const kSecondLabels[3] = {"2番目以降のイメージ名（P88SRでのみ有効）",
                                      "2番目指定イメージ名（XM7DOSのみ有効）",
                                      "2番目指定イメージ名（WinX1以外有効）"};
const QString kNoDialogTip = QStringLiteral("このエミュレータのオプション設定画面はまだありません");
const QString kBadPathText = QStringLiteral("指定が間違っているか、ドライブが準備されていません");

int Family()
{
    return HardWare <= 2 ? HardWare : 0;
}

// The emulator of entry `n` of the family, or null.
const EmuRow* EmuOfEntry(int family, int n)
{
    for (const EmuRow& row : EmuRows()) {
        if (row.family == family && row.entry == n) {
            return &row;
        }
    }
    return nullptr;
}

QString FilterOf(int column)
{
    QStringList patterns;
    for (int r = 0; r < 20; ++r) {
        const QString cell = ExtTable[size_t(r)][size_t(column)];
        if (cell.isEmpty() || cell.size() >= 7) {
            break;
        }
        patterns << QStringLiteral("*.") + cell.toLower() << QStringLiteral("*.") + cell;
    }
    return QStringLiteral("(%1)").arg(patterns.join(QLatin1Char(' ')));
}

} // namespace

std::function<QString(const QString&, QWidget*)> frmLstMake::openFile = [](const QString& filter,
                                                                           QWidget* owner) {
    return QFileDialog::getOpenFileName(owner, QString(), QString(), filter);
};

frmLstMake::frmLstMake(int32_t seekPointer, CatalogueUi* list, QWidget* parent)
    : QDialog(parent), list_(list), seek_(seekPointer), newItem_(seekPointer <= 0)
{
    setObjectName(QStringLiteral("frmLstMake"));
    setWindowTitle(QStringLiteral("アイテム編集"));
    Build();
    FormLoad();
}

void frmLstMake::Build()
{
    auto line = [this](const char* name) {
        auto* e = new QLineEdit(this);
        e->setObjectName(QLatin1String(name));
        return e;
    };
    auto button = [this](const char* name, const QString& text) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(QLatin1String(name));
        b->setAutoDefault(false);
        return b;
    };
    auto check = [this](const char* name, const QString& text) {
        auto* c = new QCheckBox(text, this);
        c->setObjectName(QLatin1String(name));
        return c;
    };
    auto group = [this](const char* name, const QString& text) {
        auto* g = new QGroupBox(text, this);
        g->setObjectName(QLatin1String(name));
        return g;
    };

    // Item information.
    fraItemInfo = group("fraItemInfo", QStringLiteral("アイテム情報の設定"));
    txtTitle = line("txtTitle");
    const QString colCaptions[5] = {QStringLiteral("Genre"), QStringLiteral("Maker"), QString(),
                                    QString(), QStringLiteral("Sale Date")};
    auto* info = new QGridLayout(fraItemInfo);
    info->addWidget(new QLabel(QStringLiteral("Title"), this), 0, 0);
    info->addWidget(txtTitle, 0, 1, 1, 3);
    for (int k = 0; k < 5; ++k) {
        auto* combo = new QComboBox(this);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setObjectName(QStringLiteral("cbxColFile(%1)").arg(k));
        cbxColFile[size_t(k)] = combo;
        auto* label = new QLabel(colCaptions[k], this);
        if (k == 2) {
            lblFreeColName1 = label;
            label->setObjectName(QStringLiteral("lblFreeColName1"));
        } else if (k == 3) {
            lblFreeColName2 = label;
            label->setObjectName(QStringLiteral("lblFreeColName2"));
        }
        info->addWidget(label, 1 + k / 2, (k % 2) * 2);
        info->addWidget(combo, 1 + k / 2, (k % 2) * 2 + 1);
    }
    txtComment = new QPlainTextEdit(this);
    txtComment->setObjectName(QStringLiteral("txtComment"));
    txtComment->setMinimumHeight(txtComment->minimumSizeHint().height());
    txtComment->setMaximumHeight(std::max(120, txtComment->minimumSizeHint().height()));
    info->addWidget(new QLabel(QStringLiteral("Comment"), this), 4, 0);
    info->addWidget(txtComment, 4, 1, 1, 3);

    // Image file.
    fraImageFile = group("fraImageFile", QStringLiteral("イメージファイルの設定"));
    txtJituFile = line("txtJituFile");
    cmdJituFile = button("cmdJituFile", QStringLiteral("参照"));
    txtFileName = line("txtFileName");
    cmdFileName = button("cmdFileName", QStringLiteral("選択"));
    lblSecondFile = new QLabel(QString::fromUtf8(kSecondLabels[Family()]), this);
    lblSecondFile->setObjectName(QStringLiteral("lblSecondFile"));
    txtSecondFile = line("txtSecondFile");
    cmdSecondFile = button("cmdSecondFile", QStringLiteral("選択"));
    chkArcCheck = check("chkArcCheck", QStringLiteral("圧縮ﾌｧｲﾙ使用"));
    chkReArcCheck[0] = check("chkReArcCheck(0)", QStringLiteral("再圧縮する"));
    chkReArcCheck[1] = check("chkReArcCheck(1)", QStringLiteral("再圧縮確認"));
    txtHdd1File = line("txtHdd1File");
    txtHdd2File = line("txtHdd2File");
    chkHdd1Default = check("chkHdd1Default", QStringLiteral("Default HDD1 USE"));
    chkHdd2Default = check("chkHdd2Default", QStringLiteral("Default HDD2 USE"));
    auto* img = new QGridLayout(fraImageFile);
    img->addWidget(new QLabel(QStringLiteral("イメージ指定 (ImageDir内 or ﾌﾙﾊﾟｽ)"), this), 0, 0, 1,
                   3);
    img->addWidget(txtJituFile, 1, 0, 1, 2);
    img->addWidget(cmdJituFile, 1, 2);
    auto* arcRow = new QHBoxLayout;
    arcRow->addWidget(chkArcCheck);
    arcRow->addWidget(chkReArcCheck[0]);
    arcRow->addWidget(chkReArcCheck[1]);
    arcRow->addStretch();
    img->addLayout(arcRow, 2, 0, 1, 3);
    img->addWidget(new QLabel(QStringLiteral("スタートアップイメージ名"), this), 3, 0, 1, 3);
    img->addWidget(txtFileName, 4, 0, 1, 2);
    img->addWidget(cmdFileName, 4, 2);
    img->addWidget(lblSecondFile, 5, 0, 1, 3);
    img->addWidget(txtSecondFile, 6, 0, 1, 2);
    img->addWidget(cmdSecondFile, 6, 2);
    auto* hdd = new QHBoxLayout;
    hdd->addWidget(chkHdd1Default);
    hdd->addWidget(txtHdd1File);
    hdd->addWidget(chkHdd2Default);
    hdd->addWidget(txtHdd2File);
    img->addLayout(hdd, 7, 0, 1, 3);

    // Screenshot.
    fraScrFile = group("fraScrFile", QStringLiteral("スクリーンショットの設定"));
    txtScrFile = line("txtScrFile");
    cmdScrFile = button("cmdScrFile", QStringLiteral("参照"));
    cmdGetScr = button("cmdGetScr", QStringLiteral("自動取得"));
    imgPreScr = new QLabel(this);
    imgPreScr->setObjectName(QStringLiteral("imgPreScr"));
    imgPreScr->setFixedSize(160, 100);
    imgPreScr->setFrameShape(QFrame::Box);
    imgPreScr->setScaledContents(true);
    auto* scr = new QGridLayout(fraScrFile);
    scr->addWidget(txtScrFile, 0, 0, 1, 2);
    scr->addWidget(cmdScrFile, 1, 0);
    scr->addWidget(cmdGetScr, 1, 1);
    scr->addWidget(imgPreScr, 2, 0, 1, 2);

    // Manual.
    Frame1 = group("Frame1", QStringLiteral("マニュアルドキュメントの設定"));
    txtManFile = line("txtManFile");
    cmdManFile = button("cmdManFile", QStringLiteral("参照"));
    chkMeltManFlag = check("chkMeltManFlag", QStringLiteral("圧縮ファイル内のファイルを指定"));
    auto* man = new QGridLayout(Frame1);
    man->addWidget(txtManFile, 0, 0);
    man->addWidget(cmdManFile, 0, 1);
    man->addWidget(chkMeltManFlag, 1, 0, 1, 2);

    // Functions and options.
    fraFunction = group("fraFunction", QStringLiteral("各機能制御"));
    chkTxtIn = check("chkTxtIn", QStringLiteral("TXTインポート使用"));
    chkTxtInConv = check("chkTxtInConv", QStringLiteral("適宜 半角に変換する"));
    chkArcSerch = check("chkArcSerch", QStringLiteral("圧縮ﾌｧｲﾙを検索しない"));
    chkScrAutoRead = check("chkScrAutoRead", QStringLiteral("スクリーンショット自動取得"));
    chkColNonMakeFlag = check("chkColNonMakeFlag", QStringLiteral("カラム項目を登録しない"));
    cbxDefEmuRun = new QComboBox(this);
    cbxDefEmuRun->setObjectName(QStringLiteral("cbxDefEmuRun"));
    frmEmuOp = group("frmEmuOp", QStringLiteral("オプション設定"));
    auto* ops = new QGridLayout(frmEmuOp);
    for (int n = 1; n <= 9; ++n) {
        QPushButton* b = button(QStringLiteral("cmdEmuOp%1").arg(n).toLatin1().constData(),
                                QStringLiteral("-----"));
        cmdEmuOp[size_t(n - 1)] = b;
        ops->addWidget(b, (n - 1) / 3, (n - 1) % 3);
        connect(b, &QPushButton::clicked, this, [this, n] { cmdEmuOp_Click(n); });
    }
    auto* fn = new QGridLayout(fraFunction);
    fn->addWidget(chkTxtIn, 0, 0);
    fn->addWidget(chkTxtInConv, 0, 1);
    fn->addWidget(chkArcSerch, 1, 0);
    fn->addWidget(chkScrAutoRead, 1, 1);
    fn->addWidget(chkColNonMakeFlag, 2, 0);
    fn->addWidget(new QLabel(QStringLiteral("起動エミュレータ"), this), 3, 0);
    fn->addWidget(cbxDefEmuRun, 3, 1);
    fn->addWidget(frmEmuOp, 4, 0, 1, 2);

    cmdOK = button("cmdOK", QStringLiteral("OK"));
    cmdApply = button("cmdApply", QStringLiteral("適用"));
    cmdCancel = button("cmdCancel", QStringLiteral("キャンセル"));
    cmdNew = button("cmdNew", QStringLiteral("新規"));

    auto* left = new QVBoxLayout;
    left->addWidget(fraItemInfo);
    left->addWidget(fraImageFile);
    auto* right = new QVBoxLayout;
    right->addWidget(fraScrFile);
    right->addWidget(Frame1);
    right->addWidget(fraFunction);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 3);
    columns->addLayout(right, 2);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(cmdNew);
    bottom->addStretch();
    bottom->addWidget(cmdOK);
    bottom->addWidget(cmdApply);
    bottom->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(bottom);

    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (SaveItem()) {
            accept();
        }
    });
    connect(cmdApply, &QPushButton::clicked, this, [this] { SaveItem(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdNew, &QPushButton::clicked, this, &frmLstMake::cmdNew_Click);
    connect(cmdJituFile, &QPushButton::clicked, this, &frmLstMake::cmdJituFile_Click);
    connect(cmdFileName, &QPushButton::clicked, this, &frmLstMake::cmdFileName_Click);
    connect(cmdSecondFile, &QPushButton::clicked, this, &frmLstMake::cmdSecondFile_Click);
    connect(cmdManFile, &QPushButton::clicked, this, &frmLstMake::cmdManFile_Click);
    connect(cmdGetScr, &QPushButton::clicked, this, &frmLstMake::cmdGetScr_Click);
    connect(cmdScrFile, &QPushButton::clicked, this, [this] {
        const QString path = openFile(FilterOf(4), this);
        if (!path.isEmpty()) {
            txtScrFile->setText(path);
        }
    });
    connect(chkArcCheck, &QCheckBox::clicked, this, [this] { chkArcCheck_Click(); });
    connect(chkReArcCheck[0], &QCheckBox::toggled, this, [this] { chkReArcCheck0_Click(); });
    // A typed path is taken when the typing ends, not at each key.
    connect(txtJituFile, &QLineEdit::editingFinished, this, [this] {
        if (txtJituFile->isModified()) {
            txtJituFile->setModified(false);
            txtJituFile_Change();
        }
    });
    connect(txtScrFile, &QLineEdit::textChanged, this, [this] { txtScrFile_Change(); });
    connect(txtComment, &QPlainTextEdit::textChanged, this, [this] {
        // The comment field holds at most the record's width; the measure is checked on save.
        const int limit = 500;
        if (txtComment->toPlainText().size() > limit) {
            txtComment->setPlainText(txtComment->toPlainText().left(limit));
        }
    });
}

void frmLstMake::FillSideLists()
{
    for (int k = 0; k < 5; ++k) {
        QComboBox* combo = cbxColFile[size_t(k)];
        const QSignalBlocker block(combo);
        const QString text = combo->currentText();
        combo->clear();
        combo->addItems(LoadSideList(k));
        combo->setEditText(text);
    }
}

void frmLstMake::FormLoad()
{
    loading_ = true;
    const int family = Family();
    for (int n = 1; n <= 9; ++n) {
        QPushButton* b = cmdEmuOp[size_t(n - 1)];
        const char* caption = n <= 6 ? kOpCaptions[family][n - 1] : nullptr;
        b->setText(caption ? QString::fromUtf8(caption) : QStringLiteral("-----"));
        // The families' refusals are buttons too; buttons 7 to 9 stand for nothing.
        bool enabled = n <= 6 && (caption || family != 0);
        const bool refusal =
            (family == 1 && (n == 1 || (n >= 4 && n <= 6))) || (family == 2 && n >= 5 && n <= 6);
        if (enabled && !refusal) {
            const EmuRow* row = EmuOfEntry(family, n);
            const bool has = row && OptionDialogTable().count(row->emu) != 0;
            enabled = has;
            b->setToolTip(has ? QString() : kNoDialogTip);
        }
        b->setEnabled(enabled);
    }
    cbxDefEmuRun->addItem(QStringLiteral("未設定!"));
    for (const char* item : kRunItems[family]) {
        if (item) {
            cbxDefEmuRun->addItem(QString::fromUtf8(item));
        }
    }
    lblSecondFile->setText(QString::fromUtf8(kSecondLabels[family]));
    FillSideLists();
    lblFreeColName1->setText(VbTrim(Cfg.FreeColName1));
    lblFreeColName2->setText(VbTrim(Cfg.FreeColName2));
    chkTxtIn->setChecked(Cfg.TxtIn == 1);
    chkTxtInConv->setChecked(Cfg.TxtInConv == 1);
    chkArcSerch->setChecked(Cfg.ArcSerch == 1);
    chkScrAutoRead->setChecked(Cfg.ScrAutoRead == 1);
    chkColNonMakeFlag->setChecked(Cfg.ColNonMakeFlag == 1);

    if (!newItem_ && LstObj.GetLst(seek_)) {
        txtTitle->setText(LstObj.GetTitle());
        const QString cols[5] = {LstObj.GetGenre(), LstObj.GetMaker(), LstObj.GetColumn1(),
                                 LstObj.GetColumn2(), LstObj.GetSaleDate()};
        for (int k = 0; k < 5; ++k) {
            cbxColFile[size_t(k)]->setEditText(cols[k]);
        }
        txtComment->setPlainText(LstObj.GetComment());
        txtJituFile->setText(LstObj.GetJituFile());
        txtFileName->setText(LstObj.GetStartFileName());
        txtSecondFile->setText(LstObj.GetSecondFile());
        txtScrFile->setText(LstObj.GetScrFile());
        txtManFile->setText(LstObj.GetManFile());
        chkMeltManFlag->setChecked(LstObj.GetMeltManFlag() == 1);
        chkArcCheck->setChecked(LstObj.GetArcCheckFlag() == 1);
        const uint8_t re = LstObj.GetReArcCheckFlag();
        chkReArcCheck[0]->setChecked(re >= 1);
        chkReArcCheck[1]->setChecked(re == 2);
        cbxDefEmuRun->setCurrentIndex(
            std::min<int>(LstObj.GetDefEmuRun(), cbxDefEmuRun->count() - 1));
        LoadCurrentOptions();
        cmdNew->setEnabled(true);
    } else {
        newItem_ = true;
        LstObj.InitLst(uint8_t(family));
        seek_ = LstObj.GetLstMaxSeekPointer();
        CurEmuOpt88 = Cfg.CfgEmuOpt88;
        CurEmuOptFM = Cfg.CfgEmuOptFM;
        CurEmuOptX1 = Cfg.CfgEmuOptX1;
        cmdNew->setEnabled(false);
    }
    EnableByArcCheck();
    loading_ = false;
}

void frmLstMake::LoadCurrentOptions()
{
    switch (Family()) {
    case 0:
        LstObj.GetEmuOpt88();
        break;
    case 1:
        LstObj.GetEmuOptFM();
        break;
    default:
        LstObj.GetEmuOptX1();
        break;
    }
}

void frmLstMake::EnableByArcCheck()
{
    const bool arc = chkArcCheck->isChecked();
    cmdFileName->setEnabled(arc);
    cmdSecondFile->setEnabled(arc);
    lblSecondFile->setEnabled(arc);
    txtSecondFile->setEnabled(arc);
    chkReArcCheck[0]->setEnabled(arc);
    chkReArcCheck[1]->setEnabled(arc && chkReArcCheck[0]->isChecked());
    chkMeltManFlag->setEnabled(arc);
}

void frmLstMake::chkArcCheck_Click()
{
    txtFileName->clear();
    cmdFileName->setEnabled(false);
    if (chkArcCheck->isChecked()) {
        chkReArcCheck[0]->setEnabled(true);
        chkMeltManFlag->setEnabled(true);
    } else {
        for (QCheckBox* c : chkReArcCheck) {
            c->setChecked(false);
            c->setEnabled(false);
        }
        txtSecondFile->clear();
        txtSecondFile->setEnabled(false);
        lblSecondFile->setEnabled(false);
        cmdSecondFile->setEnabled(false);
        chkMeltManFlag->setEnabled(false);
    }
    // The flag and the file have to agree.
    if (!loading_) {
        txtJituFile->clear();
    }
}

void frmLstMake::chkReArcCheck0_Click()
{
    if (chkReArcCheck[0]->isChecked()) {
        chkReArcCheck[1]->setEnabled(true);
    } else {
        chkReArcCheck[1]->setChecked(false);
        chkReArcCheck[1]->setEnabled(false);
    }
}

QString frmLstMake::JituPath() const
{
    return ResolveJituPath(Family(), txtJituFile->text());
}

void frmLstMake::cmdJituFile_Click()
{
    const int family = Family();
    const QString filter = FilterOf(3) + QStringLiteral(";;") + FilterOf(family);
    const QString path = openFile(filter, this);
    if (path.isEmpty()) {
        return;
    }
    txtJituFile->setText(path);
    txtJituFile_Change();
}

void frmLstMake::ShowImportedItem()
{
    txtTitle->setText(LstObj.GetTitle());
    cbxColFile[0]->setEditText(LstObj.GetGenre());
    cbxColFile[1]->setEditText(LstObj.GetMaker());
    txtComment->setPlainText(LstObj.GetComment());
}

void frmLstMake::txtJituFile_Change()
{
    const int family = Family();
    QString path = VbTrim(txtJituFile->text());
    if (path.isEmpty()) {
        return;
    }
    QString dir = path;
    const QString bare = SplitFileName(dir);
    if (!dir.isEmpty() && QFileInfo(dir) == QFileInfo(ImageDir[size_t(family)])) {
        txtJituFile->setText(bare);
    }
    const QString full = JituPath();
    if (!QFileInfo(full).isFile()) {
        MsgBox(kBadPathText, MbExclamation);
        return;
    }
    const QString ext = GetFileExt(full);
    if (IsImageExt(ext)) {
        loading_ = true;
        chkArcCheck->setChecked(false);
        chkArcCheck_Click();
        loading_ = false;
        txtFileName->setText(QFileInfo(full).fileName());
        if (chkTxtIn->isChecked() && ImportItemText(full)) {
            ShowImportedItem();
        }
    } else if (IsArcExt(ext)) {
        loading_ = true;
        chkArcCheck->setChecked(true);
        chkArcCheck_Click();
        loading_ = false;
        chkReArcCheck[0]->setChecked(Cfg.ReArcCheck >= 1);
        chkReArcCheck[1]->setChecked(Cfg.ReArcCheck >= 2);
        cmdFileName->setEnabled(true);
        if (!chkArcSerch->isChecked()) {
            QStringList members;
            if (ListMembers(0, full, QString(), members) == MemberListResult::Ok) {
                if (!members.isEmpty()) {
                    txtFileName->setText(members.first());
                }
                const bool more = members.size() > 1;
                txtSecondFile->setEnabled(more);
                lblSecondFile->setEnabled(more);
                cmdSecondFile->setEnabled(more);
                if (chkTxtIn->isChecked()) {
                    bool found = false;
                    if (!members.isEmpty()) {
                        found = ImportItemText(WorkDir + u'/' + GetFileBase(members.first()));
                    }
                    if (!found) {
                        found = ImportItemText(WorkDir + u'/' + GetFileBase(full));
                    }
                    if (found) {
                        ShowImportedItem();
                    }
                }
                CleanWorkDir();
            }
        }
    }
    if (chkScrAutoRead->isChecked()) {
        cmdGetScr_Click();
    }
}

void frmLstMake::cmdFileName_Click()
{
    frmFileSelect dlg(0, 0, JituPath(), QString(), this);
    if (!dlg.ready()) {
        return;
    }
    if (dlg.exec() == QDialog::Accepted) {
        txtFileName->setText(dlg.chosen);
        if (dlg.imported) {
            ShowImportedItem();
        }
        if (chkScrAutoRead->isChecked()) {
            cmdGetScr_Click();
        }
    }
}

void frmLstMake::cmdSecondFile_Click()
{
    if (VbTrim(txtFileName->text()).isEmpty()) {
        MsgBox(QStringLiteral("スタートアップ ファイルを指定してください"));
        return;
    }
    frmFileSelect dlg(1, 0, JituPath(), txtFileName->text(), this);
    if (dlg.ready() && dlg.exec() == QDialog::Accepted) {
        txtSecondFile->setText(dlg.secondFiles);
    }
}

void frmLstMake::cmdManFile_Click()
{
    if (!chkMeltManFlag->isChecked() || !chkArcCheck->isChecked()) {
        const QString path = openFile(FilterOf(5), this);
        if (!path.isEmpty()) {
            txtManFile->setText(path);
        }
        return;
    }
    frmFileSelect dlg(3, 0, JituPath(), QString(), this);
    if (dlg.ready() && dlg.exec() == QDialog::Accepted) {
        txtManFile->setText(dlg.chosen);
    }
}

void frmLstMake::cmdGetScr_Click()
{
    const QString found = FindScreenshot(Family(), txtFileName->text(), txtJituFile->text());
    if (!found.isEmpty()) {
        txtScrFile->setText(found);
    }
}

void frmLstMake::txtScrFile_Change()
{
    const QString name = VbTrim(txtScrFile->text());
    QString path = name;
    if (!name.contains(u'/') && !name.contains(u'\\')) {
        path = SnapDir[size_t(Family())] + u'/' + name;
    }
    QImage img;
    if (!name.isEmpty() && LoadPictureFile(img, path, 0)) {
        imgPreScr->setPixmap(QPixmap::fromImage(img));
    } else {
        imgPreScr->clear();
    }
}

void frmLstMake::cmdEmuOp_Click(int n)
{
    const int family = Family();
    if (family == 1 && n == 1) {
        MsgBox(QStringLiteral("XM7dosはオプション設定できません"));
        return;
    }
    if (family == 1 && n >= 4 && n <= 6) {
        MsgBox(QStringLiteral("FM7はオプション設定できません"));
        return;
    }
    if (family == 2 && n >= 5 && n <= 6) {
        MsgBox(QStringLiteral("X1はオプション設定できません"));
        return;
    }
    if (const EmuRow* row = EmuOfEntry(family, n)) {
        OpenOptionDialog(row->emu, 1, this);
    }
}

void frmLstMake::ClearItemForm()
{
    loading_ = true;
    txtTitle->clear();
    for (QComboBox* c : cbxColFile) {
        c->setEditText(QString());
    }
    for (QLineEdit* e : {txtJituFile, txtFileName, txtSecondFile, txtScrFile, txtManFile}) {
        e->clear();
    }
    txtComment->clear();
    chkMeltManFlag->setChecked(false);
    chkArcCheck->setChecked(false);
    chkReArcCheck[0]->setChecked(false);
    chkReArcCheck[1]->setChecked(false);
    cbxDefEmuRun->setCurrentIndex(0);
    EnableByArcCheck();
    loading_ = false;
}

void frmLstMake::cmdNew_Click()
{
    const int family = Family();
    LstObj.InitLst(uint8_t(family));
    ClearItemForm();
    CurEmuOpt88 = Cfg.CfgEmuOpt88;
    CurEmuOptFM = Cfg.CfgEmuOptFM;
    CurEmuOptX1 = Cfg.CfgEmuOptX1;
    seek_ = LstObj.GetLstMaxSeekPointer();
    newItem_ = true;
    cmdNew->setEnabled(false);
}

bool frmLstMake::SaveItem()
{
    ItemEntry e;
    e.Title = txtTitle->text();
    for (int k = 0; k < 5; ++k) {
        e.Col[size_t(k)] = cbxColFile[size_t(k)]->currentText();
    }
    e.Comment = txtComment->toPlainText()
                    .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                    .replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    e.JituFile = txtJituFile->text();
    e.StartFileName = txtFileName->text();
    e.SecondFile = txtSecondFile->text();
    e.ScrFile = txtScrFile->text();
    e.ManFile = txtManFile->text();
    e.ArcCheck = chkArcCheck->isChecked();
    e.ReArc0 = chkReArcCheck[0]->isChecked();
    e.ReArc1 = chkReArcCheck[1]->isChecked();
    e.MeltMan = chkMeltManFlag->isChecked();
    e.DefEmuRun = uint8_t(std::max(0, cbxDefEmuRun->currentIndex()));
    const QString bad = ValidateItemEntry(e);
    failed_ = !bad.isEmpty();
    if (failed_) {
        MsgBox(bad, MbExclamation);
        return false;
    }
    PutItemEntry(e);
    if (!LstObj.SetLst(seek_)) {
        MsgBox(LstFilePath(Family()) + QStringLiteral(" に書き込めませんでした"), MbExclamation);
        failed_ = true;
        return false;
    }
    const QString caption = kAppTitle + QStringLiteral(" ( ") +
                            QString::number(LstObj.GetLstMaxCnt()) + QStringLiteral(" Images )");
    if (newItem_) {
        if (list_) {
            list_->model()->AddListRow(seek_);
            const int row = list_->model()->rowOfSeek(seek_);
            // Making the row current scrolls the list to it.
            list_->selectRow(row);
        }
        MsgBox(QStringLiteral("リストを登録しました"), MbOkOnly, caption);
        newItem_ = false;
        cmdNew->setEnabled(true);
    } else {
        if (list_) {
            const int row = list_->model()->rowOfSeek(seek_);
            if (row >= 0) {
                list_->model()->updateRow(row);
            }
        }
        MsgBox(QStringLiteral("リストを更新しました"), MbOkOnly, caption);
        if (list_) {
            list_->ShowItemDetail();
        }
    }
    if (!chkColNonMakeFlag->isChecked()) {
        for (int k = 0; k < 5; ++k) {
            const QString text = VbTrim(e.Col[size_t(k)]);
            if (!text.isEmpty() && !LoadSideList(k).contains(text)) {
                AddSideItem(k, text);
            }
        }
        FillSideLists();
    }
    return true;
}

} // namespace tv
