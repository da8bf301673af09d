#include "settings/frmOpt.h"

#include "adapters/common/frmOptionDialog.h"
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "launch/MainWindowLink.h"
#include "platform/MsgBox.h"
#include "registration/frmFileSelect.h"
#include "settings/FilePickers.h"
#include "settings/FormText.h"
#include "startup/ValidateCfg.h"
#include "util/Globals.h"
#include "util/Help.h"
#include "util/SubFunction.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace tv {

namespace {

constexpr int kWaitMax = 1500;
constexpr int kFreeColBytes = 20;

const char* const kFilterCaptions[6] = {
    "PC88用 イメージ ファイル", "FM7用 イメージ ファイル", "X1用 イメージ ファイル",
    "書庫（圧縮） ファイル",    "ピクチャ ファイル",       "マニュアルドキュメント ファイル"};

} // namespace

bool IsJavaRuntimeName(const QString& path)
{
    QString dir = path;
    QString stem = SplitFileName(dir);
    const QString ext = SplitFileExt(stem).toUpper(); // "" and the whole name without a point
    stem = stem.toUpper();
    return (stem == QStringLiteral("JAVA") || stem == QStringLiteral("JAVAW")) &&
           (ext.isEmpty() || ext == QStringLiteral("EXE"));
}

frmOpt::frmOpt(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOpt"));
    setWindowTitle(QStringLiteral("TORVANE ｵﾌﾟｼｮﾝ"));
    setModal(true);

    auto* v = new QVBoxLayout(this);
    tbsOptions = new QTabBar(this);
    tbsOptions->setObjectName(QStringLiteral("tbsOptions"));
    tbsOptions->setExpanding(false);
    pages = new QStackedWidget(this);
    const char* captions[3] = {"基本設定", "拡張設定", "フィルタ"};
    for (int i = 0; i < 3; ++i) {
        tbsOptions->addTab(S(captions[i]));
        auto* f = new QFrame;
        f->setObjectName(Idx("fraOp", i));
        fraOp[size_t(i)] = f;
        pages->addWidget(f);
    }
    BuildBasicPage(fraOp[0]);
    BuildExtraPage(fraOp[1]);
    BuildFilterPage(fraOp[2]);
    connect(tbsOptions, &QTabBar::currentChanged, pages, &QStackedWidget::setCurrentIndex);
    v->addWidget(tbsOptions);
    v->addWidget(pages, 1);

    auto mk = [this](const char* name, const char* caption) {
        auto* b = new QPushButton(S(caption), this);
        b->setObjectName(S(name));
        b->setAutoDefault(false);
        return b;
    };
    cmdHelpContext = mk("cmdHelpContext", "ﾍﾙﾌﾟ(&H)");
    cmdOK = mk("cmdOK", "OK");
    cmdOK->setDefault(true);
    cmdCancel = mk("cmdCancel", "ｷｬﾝｾﾙ");
    cmdApply = mk("cmdApply", "適用(&A)");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdHelpContext);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdApply);
    v->addLayout(buttons);
    connect(cmdHelpContext, &QPushButton::clicked, this, [] { ShowHelpTopic(kHelpOpt); });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (Store())
            accept();
    });
    connect(cmdApply, &QPushButton::clicked, this, [this] { Store(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    LoadFromCfg();
    ConnectFlags();
    tbsOptions->setCurrentIndex(0);
}

void frmOpt::BuildBasicPage(QFrame* page)
{
    auto* v = new QVBoxLayout(page);
    auto pair = [page](const char* name, const char* title, const char* a, const char* b,
                       std::array<QRadioButton*, 2>& arr) {
        auto* box = new QGroupBox(S(title), page);
        auto* h = new QHBoxLayout(box);
        auto* group = new QButtonGroup(box);
        const char* caps[2] = {a, b};
        for (int i = 0; i < 2; ++i) {
            arr[size_t(i)] = new QRadioButton(S(caps[i]), box);
            arr[size_t(i)]->setObjectName(Idx(name, i));
            group->addButton(arr[size_t(i)], i);
            h->addWidget(arr[size_t(i)]);
        }
        h->addStretch(1);
        return box;
    };
    v->addWidget(pair("optLstSelectSave", "起動時のアイテム選択", "選択なし (Default)",
                      "終了時の選択アイテムを選択", optLstSelectSave));
    v->addWidget(pair("optDblClickProc", "アイテムのダブルクリック",
                      "アイテム編集を開く （Default）", "Default起動Emulator 起動",
                      optDblClickProc));

    auto* win = new QGroupBox(S("ウィンドウ"), page);
    auto* wv = new QVBoxLayout(win);
    chkWinChangeFlag = new QCheckBox(S("窓状態を保存"), win);
    chkWinChangeFlag->setObjectName(QStringLiteral("chkWinChangeFlag"));
    wv->addWidget(chkWinChangeFlag);
    auto* wh = new QHBoxLayout;
    auto* group = new QButtonGroup(win);
    const char* caps[2] = {"画面中央（Default）", "終了時の窓位置"};
    for (int i = 0; i < 2; ++i) {
        optWinAppearance[size_t(i)] = new QRadioButton(S(caps[i]), win);
        optWinAppearance[size_t(i)]->setObjectName(Idx("optWinAppearance", i));
        group->addButton(optWinAppearance[size_t(i)], i);
        wh->addWidget(optWinAppearance[size_t(i)]);
    }
    wh->addStretch(1);
    wv->addLayout(wh);
    v->addWidget(win);

    auto* arc = new QGroupBox(S("圧縮ファイル"), page);
    auto* av = new QVBoxLayout(arc);
    const char* rearc[2] = {"圧縮ﾌｧｲﾙ選択時 [再圧縮] をチェック", "[再圧縮確認]をチェック "};
    for (int i = 0; i < 2; ++i) {
        chkReArcCheck[size_t(i)] = new QCheckBox(S(rearc[i]), arc);
        chkReArcCheck[size_t(i)]->setObjectName(Idx("chkReArcCheck", i));
        av->addWidget(chkReArcCheck[size_t(i)]);
    }
    v->addWidget(arc);

    auto* keys = new QHBoxLayout;
    keys->addWidget(new QLabel(S("KeySend時Wait"), page));
    txtWinSendWait = new QLineEdit(page);
    txtWinSendWait->setObjectName(QStringLiteral("txtWinSendWait"));
    txtWinSendWait->setFixedWidth(64);
    txtWinSendWait->setAlignment(Qt::AlignRight);
    txtWinSendWait->installEventFilter(this);
    updWinSendWait = new UpDown(txtWinSendWait, 500, kWaitMax, 25, page);
    updWinSendWait->setObjectName(QStringLiteral("updWinSendWait"));
    keys->addWidget(txtWinSendWait);
    keys->addWidget(updWinSendWait);
    keys->addWidget(new QLabel(QStringLiteral("ms"), page));
    keys->addStretch(1);
    v->addLayout(keys);
    v->addStretch(1);
}

void frmOpt::BuildExtraPage(QFrame* page)
{
    auto* g = new QGridLayout(page);
    int row = 0;
    auto check = [page](const char* name, const char* caption) {
        auto* c = new QCheckBox(S(caption), page);
        c->setObjectName(S(name));
        return c;
    };
    chkScrAutoRead = check("chkScrAutoRead", "ﾌｧｲﾙ設定時にScreenShotを自動設定");
    chkScrSearchRead = check("chkScrSearchRead", "アイテム選択時のｽｸﾘｰﾝｼｮｯﾄ自動認識");
    chkArcSerch = check("chkArcSerch", "登録時、圧縮ﾌｧｲﾙを検査しない");
    chkColNonMakeFlag = check("chkColNonMakeFlag", "登録時、ｶﾗﾑﾌｧｲﾙ登録を抑制");
    for (QCheckBox* c : {chkScrAutoRead, chkScrSearchRead, chkArcSerch, chkColNonMakeFlag})
        g->addWidget(c, row++, 0, 1, 3);

    // A switch with the frame of its dependent switches, which it enables.
    auto framed = [&](QCheckBox*& head, const char* name, const char* caption, QFrame*& frame,
                      const char* frameName, QCheckBox*& inner, const char* innerName,
                      const char* innerCaption) {
        head = check(name, caption);
        frame = new QFrame(page);
        frame->setObjectName(S(frameName));
        auto* h = new QHBoxLayout(frame);
        h->setContentsMargins(24, 0, 0, 0);
        inner = new QCheckBox(S(innerCaption), frame);
        inner->setObjectName(S(innerName));
        h->addWidget(inner);
        g->addWidget(head, row, 0, 1, 1);
        g->addWidget(frame, row++, 1, 1, 2);
    };
    framed(chkTaskIn, "chkTaskIn", "タスクトレイに常駐する", fraTaskIn, "fraTaskIn", chkTaskRunForm,
           "chkTaskRunForm", "起動時 フォーム非表示");
    framed(chkTxtIn, "chkTxtIn", "TXTインポート使用", fraTxtIn, "fraTxtIn", chkTxtInConv,
           "chkTxtInConv", "適宜 半角に変換する");

    auto text = [page](const char* name) {
        auto* t = new QLineEdit(page);
        t->setObjectName(S(name));
        return t;
    };
    txtFreeColName1 = text("txtFreeColName1");
    txtFreeColName2 = text("txtFreeColName2");
    g->addWidget(new QLabel(S("Column 1名称"), page), row, 0);
    g->addWidget(txtFreeColName1, row++, 1);
    g->addWidget(new QLabel(S("Column 2名称"), page), row, 0);
    g->addWidget(txtFreeColName2, row++, 1);

    g->addWidget(new QLabel(S("JavaVM指定(java.exe, javaw.exe)"), page), row++, 0, 1, 3);
    txtJavaVMPath = text("txtJavaVMPath");
    cmdJavaVMPath = new QPushButton(S("参照"), page);
    cmdJavaVMPath->setObjectName(QStringLiteral("cmdJavaVMPath"));
    cmdJavaVMPath->setAutoDefault(false);
    g->addWidget(txtJavaVMPath, row, 0, 1, 2);
    g->addWidget(cmdJavaVMPath, row++, 2);

    chkDefScrFlag = check("chkDefScrFlag", "ﾃﾞﾌｫﾙﾄｽｸﾘｰﾝｼｮｯﾄを指定");
    g->addWidget(chkDefScrFlag, row++, 0, 1, 3);
    txtDefScrPath = text("txtDefScrPath");
    cmdDefScr = new QPushButton(S("参照"), page);
    cmdDefScr->setObjectName(QStringLiteral("cmdDefScr"));
    cmdDefScr->setAutoDefault(false);
    g->addWidget(txtDefScrPath, row, 0, 1, 2);
    g->addWidget(cmdDefScr, row++, 2);
    imgDefScr = new QLabel(page);
    imgDefScr->setObjectName(QStringLiteral("imgDefScr"));
    imgDefScr->setFixedSize(160, 100);
    imgDefScr->setFrameShape(QFrame::StyledPanel);
    imgDefScr->setAlignment(Qt::AlignCenter);
    g->addWidget(imgDefScr, row++, 0, 1, 3, Qt::AlignLeft);
    g->setColumnStretch(1, 1);
    g->setRowStretch(row, 1);

    connect(cmdJavaVMPath, &QPushButton::clicked, this, &frmOpt::cmdJavaVMPath_Click);
    connect(cmdDefScr, &QPushButton::clicked, this, &frmOpt::cmdDefScr_Click);
    connect(txtDefScrPath, &QLineEdit::textChanged, this, &frmOpt::txtDefScrPath_Change);
    connect(chkTaskIn, &QCheckBox::toggled, fraTaskIn, &QWidget::setEnabled);
    connect(chkTxtIn, &QCheckBox::toggled, fraTxtIn, &QWidget::setEnabled);
}

void frmOpt::BuildFilterPage(QFrame* page)
{
    auto* box = new QGroupBox(S("フィルタオプション （並べ替えのみ）"), page);
    auto* g = new QGridLayout(box);
    for (int i = 0; i < 6; ++i) {
        lblFilter[size_t(i)] = new QLabel(S(kFilterCaptions[i]), box);
        lblFilter[size_t(i)]->setObjectName(Idx("lblFilter", i));
        cbxFilter[size_t(i)] = new QComboBox(box);
        cbxFilter[size_t(i)]->setObjectName(Idx("cbxFilter", i));
        cbxFilter[size_t(i)]->setMinimumWidth(200);
        cmdFilter[size_t(i)] = new QPushButton(S("並べ替え..."), box);
        cmdFilter[size_t(i)]->setObjectName(Idx("cmdFilter", i));
        cmdFilter[size_t(i)]->setAutoDefault(false);
        g->addWidget(lblFilter[size_t(i)], i, 0);
        g->addWidget(cbxFilter[size_t(i)], i, 1);
        g->addWidget(cmdFilter[size_t(i)], i, 2);
        connect(cmdFilter[size_t(i)], &QPushButton::clicked, this,
                [this, i] { cmdFilter_Click(i); });
    }
    g->setColumnStretch(1, 1);
    auto* v = new QVBoxLayout(page);
    v->addWidget(box);
    v->addStretch(1);
}

void frmOpt::LoadFromCfg()
{
    optLstSelectSave[Cfg.LstSelectSave == 1 ? 1 : 0]->setChecked(true);
    optWinAppearance[Cfg.WinAppearance == 1 ? 1 : 0]->setChecked(true);
    optDblClickProc[Cfg.DblClickProc == 1 ? 1 : 0]->setChecked(true);
    // ReArcCheck: 1 re-pack, 2 after asking; the second box belongs to the first.
    chkReArcCheck[0]->setChecked(Cfg.ReArcCheck >= 1);
    chkReArcCheck[1]->setChecked(Cfg.ReArcCheck >= 2);
    txtWinSendWait->setText(QString::number(Cfg.WinSendWait));
    chkScrAutoRead->setChecked(Cfg.ScrAutoRead == 1);
    chkArcSerch->setChecked(Cfg.ArcSerch == 1);
    chkScrSearchRead->setChecked(Cfg.ScrSearchRead == 1);
    chkWinChangeFlag->setChecked(Cfg.WinChangeFlag == 1);
    txtFreeColName1->setText(VbTrim(Cfg.FreeColName1));
    txtFreeColName2->setText(VbTrim(Cfg.FreeColName2));
    chkTaskIn->setChecked(Cfg.TaskIn == 1);
    chkTaskRunForm->setChecked(Cfg.TaskRunForm == 1);
    fraTaskIn->setEnabled(Cfg.TaskIn == 1);
    chkTxtIn->setChecked(Cfg.TxtIn == 1);
    chkTxtInConv->setChecked(Cfg.TxtInConv == 1);
    fraTxtIn->setEnabled(Cfg.TxtIn == 1);
    txtJavaVMPath->setText(VbTrim(Cfg.JavaVMPath));
    chkDefScrFlag->setChecked(Cfg.DefScrFlag == 1);
    txtDefScrPath->setText(VbTrim(Cfg.DefScrPath));
    txtDefScrPath_Change();
    chkColNonMakeFlag->setChecked(Cfg.ColNonMakeFlag == 1);
    for (int i = 0; i < 6; ++i)
        LoadFilter(i);
    freeColChanged_ = false;
}

std::array<std::pair<QCheckBox*, uint8_t CfgRecord::*>, 10> frmOpt::flagFields() const
{
    return {{{chkScrAutoRead, &CfgRecord::ScrAutoRead},
             {chkArcSerch, &CfgRecord::ArcSerch},
             {chkScrSearchRead, &CfgRecord::ScrSearchRead},
             {chkWinChangeFlag, &CfgRecord::WinChangeFlag},
             {chkTaskIn, &CfgRecord::TaskIn},
             {chkTaskRunForm, &CfgRecord::TaskRunForm},
             {chkTxtIn, &CfgRecord::TxtIn},
             {chkTxtInConv, &CfgRecord::TxtInConv},
             {chkDefScrFlag, &CfgRecord::DefScrFlag},
             {chkColNonMakeFlag, &CfgRecord::ColNonMakeFlag}}};
}

std::array<std::pair<QRadioButton*, uint8_t CfgRecord::*>, 3> frmOpt::optionFields() const
{
    return {{{optLstSelectSave[1], &CfgRecord::LstSelectSave},
             {optWinAppearance[1], &CfgRecord::WinAppearance},
             {optDblClickProc[1], &CfgRecord::DblClickProc}}};
}

uint8_t frmOpt::reArcValue() const
{
    return uint8_t((chkReArcCheck[0]->isChecked() ? 1 : 0) +
                   (chkReArcCheck[1]->isChecked() ? 1 : 0));
}

void frmOpt::ConnectFlags()
{
    // Each click writes its field of the record at once; the file waits for the store.
    for (const auto& [box, field] : flagFields())
        connect(box, &QCheckBox::toggled, this, [field](bool on) { Cfg.*field = on ? 1 : 0; });
    // The second button's toggle tells both ways, since one of the pair is always checked.
    for (const auto& [second, field] : optionFields())
        connect(second, &QRadioButton::toggled, this,
                [field](bool on) { Cfg.*field = on ? 1 : 0; });
    for (QCheckBox* c : chkReArcCheck)
        connect(c, &QCheckBox::toggled, this, [this] { Cfg.ReArcCheck = reArcValue(); });
    for (QLineEdit* t : {txtFreeColName1, txtFreeColName2})
        connect(t, &QLineEdit::textEdited, this, [this] { freeColChanged_ = true; });
}

void frmOpt::LoadFilter(int kind)
{
    if (kind < 0 || kind > 5)
        return;
    QComboBox* c = cbxFilter[size_t(kind)];
    c->clear();
    for (int row = 0; row < 20; ++row) {
        const uint8_t entry = Cfg.FilterOrder[size_t(row)][size_t(kind)];
        if (entry == 0 || entry > 20)
            continue;
        const QString cell = ExtTable[size_t(entry - 1)][size_t(kind)];
        if (!cell.isEmpty())
            c->addItem(cell);
    }
    if (c->count() > 0)
        c->setCurrentIndex(0);
}

void frmOpt::cmdFilter_Click(int index)
{
    frmFileSelect dlg(2, uint8_t(index), QString(), QString(), this);
    dlg.exec();
    LoadFilter(index);
}

void frmOpt::cmdJavaVMPath_Click()
{
    const QString path = Pickers().SelectFile(SelectKind::JavaVM, this);
    if (!path.isEmpty())
        txtJavaVMPath->setText(path);
}

void frmOpt::cmdDefScr_Click()
{
    const QString path = Pickers().SelectFile(SelectKind::Picture, this);
    if (!path.isEmpty())
        txtDefScrPath->setText(path);
}

void frmOpt::txtDefScrPath_Change()
{
    QImage img;
    const QString path = VbTrim(txtDefScrPath->text());
    if (!path.isEmpty() && LoadPictureFile(img, path, 0))
        imgDefScr->setPixmap(QPixmap::fromImage(img).scaled(imgDefScr->size(), Qt::KeepAspectRatio,
                                                            Qt::SmoothTransformation));
    else
        imgDefScr->clear();
}

bool frmOpt::Store()
{
    const QString java = VbTrim(txtJavaVMPath->text());
    if (!java.isEmpty()) {
        if (FindFile(java).isEmpty()) {
            MsgBox(kOptBadJavaText, MbExclamation);
            return false;
        }
        if (!IsJavaRuntimeName(java)) {
            MsgBox(kOptJavaNameText, MbExclamation);
            return false;
        }
        if (!FitsCfgPath(java)) {
            MsgBox(kPathTooLong, MbExclamation);
            return false;
        }
    }
    Cfg.JavaVMPath = java;
    const QString scr = VbTrim(txtDefScrPath->text());
    if (chkDefScrFlag->isChecked() && (!IsSafeDir(scr, 2, 0) || !FitsCfgPath(scr))) {
        MsgBox(kOptBadDefScrText, MbExclamation);
        return false;
    }
    const QString col1 =
        VbTrim(FitText(VbTrim(txtFreeColName1->text()), kFreeColBytes, 1, kFreeColBytes));
    const QString col2 =
        VbTrim(FitText(VbTrim(txtFreeColName2->text()), kFreeColBytes, 1, kFreeColBytes));
    if (col1.isEmpty()) {
        MsgBox(kOptNoCol1Text, MbExclamation);
        return false;
    }
    if (col2.isEmpty()) {
        MsgBox(kOptNoCol2Text, MbExclamation);
        return false;
    }
    bool ok = false;
    const int wait = VbTrim(txtWinSendWait->text()).toInt(&ok);
    if (ok && wait >= 0 && wait <= kWaitMax) {
        Cfg.WinSendWait = int16_t(wait);
    } else {
        // An empty box stores the record's default.
        CfgRecord defaults;
        SetDefaultCfg(defaults);
        Cfg.WinSendWait = defaults.WinSendWait;
    }
    Cfg.DefScrPath = scr;
    Cfg.FreeColName1 = col1;
    Cfg.FreeColName2 = col2;
    StoreFlags();
    // The filter order is in the record already: the image file selection wrote it there.
    if (!SaveCfg()) {
        MsgBox(QStringLiteral("TORVANE.CFG を書き込めませんでした"), MbExclamation);
        return false;
    }
    Window().CfgStored();
    freeColChanged_ = false;
    MsgBox(kOptStoredText, MbInformation);
    return true;
}

void frmOpt::StoreFlags()
{
    for (const auto& [second, field] : optionFields())
        Cfg.*field = second->isChecked() ? 1 : 0;
    Cfg.ReArcCheck = reArcValue();
    for (const auto& [box, field] : flagFields())
        Cfg.*field = box->isChecked() ? 1 : 0;
}

void frmOpt::done(int r)
{
    // Form_Unload: the record read again from the file drops every click that wasn't stored.
    // A file that can't be read leaves the record as it is rather than blank.
    if (!unloaded_) {
        unloaded_ = true;
        CfgRecord fresh = Cfg;
        ClearCfg(fresh);
        if (ReadCfg(fresh))
            Cfg = fresh;
        ResolveCfgDirs();
        if (!WorkDir.isEmpty() && !QDir(WorkDir).exists())
            QDir().mkpath(WorkDir);
    }
    QDialog::done(r);
}

void frmOpt::keyPressEvent(QKeyEvent* e)
{
    // Ctrl+Tab: the next page, the last wrapping to the first.
    if (e->key() == Qt::Key_Tab && e->modifiers() == Qt::ControlModifier) {
        tbsOptions->setCurrentIndex((tbsOptions->currentIndex() + 1) % tbsOptions->count());
        return;
    }
    QDialog::keyPressEvent(e);
}

bool frmOpt::eventFilter(QObject* watched, QEvent* event)
{
    // The wait box takes digits and Backspace; a digit that, appended, passes the maximum is
    // eaten wherever the cursor stands.
    if (watched == txtWinSendWait && event->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(event);
        const QString t = k->text();
        if (k->key() == Qt::Key_Backspace || t.isEmpty() || k->key() == Qt::Key_Left ||
            k->key() == Qt::Key_Right || k->key() == Qt::Key_Delete || k->key() == Qt::Key_Tab ||
            k->key() == Qt::Key_Backtab || k->key() == Qt::Key_Return ||
            k->key() == Qt::Key_Enter || k->key() == Qt::Key_Escape ||
            (k->modifiers() & Qt::ControlModifier))
            return QDialog::eventFilter(watched, event);
        const QChar c = t.at(0);
        if (!c.isDigit() || c.unicode() > '9')
            return true;
        if ((txtWinSendWait->text() + c).toLongLong() > kWaitMax)
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tv
