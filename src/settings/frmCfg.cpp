#include "settings/frmCfg.h"

#include "util/Help.h"

#include "adapters/OptionDialogs_ui.h"
#include "adapters/j80/frmJ80Rom.h"
#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "launch/MainWindowLink.h"
#include "platform/MsgBox.h"
#include "settings/FilePickers.h"
#include "settings/FormText.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTabBar>
#include <QVBoxLayout>

namespace tv {

namespace {

const QString kBrowse = QStringLiteral("参照");

} // namespace

frmCfg::frmCfg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmCfg"));
    setWindowTitle(QStringLiteral("Emulator基本設定"));
    setModal(true);

    auto* v = new QVBoxLayout(this);
    tbsHardWare = new QTabBar(this);
    tbsHardWare->setObjectName(QStringLiteral("tbsHardWare"));
    tbsHardWare->addTab(QStringLiteral("PC-8x01"));
    tbsHardWare->addTab(QStringLiteral("FM-7"));
    tbsHardWare->addTab(QStringLiteral("X1"));
    tbsHardWare->setExpanding(false);
    pages = new QStackedWidget(this);
    pages->setObjectName(QStringLiteral("stkHardWare"));
    v->addWidget(tbsHardWare);
    v->addWidget(pages, 1);
    for (int i = 0; i < 3; ++i)
        BuildFamilyPage(i);
    connect(tbsHardWare, &QTabBar::currentChanged, pages, &QStackedWidget::setCurrentIndex);

    auto* buttons = new QHBoxLayout;
    auto mk = [this](const char* name, const char* caption) {
        auto* b = new QPushButton(S(caption), this);
        b->setObjectName(S(name));
        b->setAutoDefault(false);
        return b;
    };
    cmdHelpContext = mk("cmdHelpContext", "ﾍﾙﾌﾟ(&H)");
    connect(cmdHelpContext, &QPushButton::clicked, this, [] { ShowHelpTopic(kHelpCfg); });
    cmdOK = mk("cmdOK", "OK");
    cmdOK->setDefault(true); // Enter in a box stores and closes, as in any settings dialog
    cmdCancel = mk("cmdCancel", "ｷｬﾝｾﾙ");
    cmdApply = mk("cmdApply", "適用(&A)");
    buttons->addWidget(cmdHelpContext);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdApply);
    v->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, [this] { StoreCfg(true); });
    connect(cmdApply, &QPushButton::clicked, this, [this] { StoreCfg(false); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    LoadFromCfg();
    tbsHardWare->setCurrentIndex(HardWare <= 2 ? HardWare : 0);
}

frmCfg::~frmCfg() = default;

void frmCfg::BuildFamilyPage(int family)
{
    auto* page = new QFrame;
    page->setObjectName(Idx("fraHardWare", family));
    fraHardWare[family] = page;
    pages->addWidget(page);
    auto* v = new QVBoxLayout(page);
    v->setContentsMargins(4, 4, 4, 4);

    // A group box reads "&" as a mnemonic; the family names have one to show.
    QString title = FamilyName(family);
    auto* dirs = new QGroupBox(title.replace(QLatin1Char('&'), QStringLiteral("&&")), page);
    dirs->setObjectName(Idx("fraDir", family));
    auto* g = new QGridLayout(dirs);
    g->setVerticalSpacing(3);
    auto dirRow = [&](int row, const char* name, const char* cmdName, const char* caption,
                      std::array<QLineEdit*, 3>& arr) {
        auto* l = new QLabel(S(caption), dirs);
        auto* t = new QLineEdit(dirs);
        t->setObjectName(Idx(name, family));
        auto* b = new QPushButton(kBrowse, dirs);
        b->setObjectName(Idx(cmdName, family));
        b->setAutoDefault(false);
        arr[family] = t;
        g->addWidget(l, row, 0);
        g->addWidget(t, row, 1);
        g->addWidget(b, row, 2);
        connect(b, &QPushButton::clicked, this, [this, t] {
            QString path = VbTrim(t->text());
            if (Pickers().PickDir(path, this))
                t->setText(path);
        });
    };
    dirRow(0, "txtImageDir", "cmdImageDir", "イメージファイルDIR", txtImageDir);
    dirRow(1, "txtSnapDir", "cmdSnapDir", "ScreenShot&&生成ﾌｧｲﾙDIR", txtSnapDir);
    dirRow(2, "txtPatSaveDir", "cmdPatSaveDir", "*.PATファイルDIR", txtPatSaveDir);
    dirRow(3, "txtManDir", "cmdManDir", "マニュアルファイルDIR", txtManDir);
    // "&&" shows one "&" in a label with a mnemonic; this label has none, so plain text.
    static_cast<QLabel*>(g->itemAtPosition(1, 0)->widget())
        ->setText(QStringLiteral("ScreenShot&生成ﾌｧｲﾙDIR"));

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Default起動Emulator"), dirs));
    auto* cbx = new QComboBox(dirs);
    cbx->setObjectName(Idx("cbxDefEmuRun", family));
    cbx->addItem(QStringLiteral("未設定"));
    for (const EmuRow& e : EmuRows())
        if (e.family == family)
            cbx->addItem(S(e.listName));
    cbx->setMinimumWidth(150);
    cbxDefEmuRun[family] = cbx;
    row->addWidget(cbx);
    row->addSpacing(16);
    chkParUse[family] = new QCheckBox(QStringLiteral("PAR機能を使用する"), dirs);
    chkParUse[family]->setObjectName(Idx("chkParUse", family));
    chkDefOpt[family] = new QCheckBox(QStringLiteral("ﾃﾞﾌｫﾙﾄｵﾌﾟｼｮﾝ起動"), dirs);
    chkDefOpt[family]->setObjectName(Idx("chkDefOpt", family));
    row->addWidget(chkParUse[family]);
    row->addWidget(chkDefOpt[family]);
    row->addStretch(1);
    g->addLayout(row, 4, 0, 1, 3);
    connect(chkDefOpt[family], &QCheckBox::toggled, this,
            [this, family] { chkDefOpt_Click(family); });
    connect(chkParUse[family], &QCheckBox::toggled, this,
            [this, family] { chkParUse_Click(family); });

    if (family == 0) {
        auto* pan = new QHBoxLayout;
        txtFmPanFile = new QLineEdit(dirs);
        txtFmPanFile->setObjectName(QStringLiteral("txtFmPanFile"));
        auto* b = new QPushButton(QStringLiteral("FMPAN.D88ファイル指定"), dirs);
        b->setObjectName(QStringLiteral("cmdFmPanFile"));
        b->setAutoDefault(false);
        chkFmPanUse = new QCheckBox(QStringLiteral("PAN機能を使用する"), dirs);
        chkFmPanUse->setObjectName(QStringLiteral("chkFmPanUse"));
        pan->addWidget(txtFmPanFile, 1);
        pan->addWidget(b);
        pan->addWidget(chkFmPanUse);
        g->addWidget(new QLabel(QStringLiteral("FMPAN.D88"), dirs), 5, 0);
        g->addLayout(pan, 5, 1, 1, 2);
        connect(b, &QPushButton::clicked, this, [this] {
            const QString f = Pickers().SelectFile(SelectKind::FmPan, this);
            if (!f.isEmpty())
                txtFmPanFile->setText(f);
        });
        connect(txtFmPanFile, &QLineEdit::textChanged, this, [this] { UpdateFmPanRule(); });
    }
    v->addWidget(dirs);

    auto* grid = new QGridLayout;
    grid->setSpacing(4);
    int n = 0;
    for (const EmuRow& e : EmuRows()) {
        if (e.family != family)
            continue;
        grid->addWidget(BuildEmuFrame(e, page), n / 2, n % 2);
        ++n;
    }
    v->addLayout(grid);
    v->addStretch(1);
}

QFrame* frmCfg::BuildEmuFrame(const Emu& e, QWidget* parent)
{
    const QString key = S(e.key);
    auto* box = new QFrame(parent);
    box->setObjectName(QStringLiteral("fraBox") + key);
    box->setFrameShape(QFrame::StyledPanel);
    auto* v = new QVBoxLayout(box);
    v->setContentsMargins(6, 4, 6, 4);
    v->setSpacing(2);
    auto* use = new QCheckBox(S(e.useCaption), box);
    use->setObjectName(QStringLiteral("chk") + key + QStringLiteral("Use"));
    QFont bold = use->font();
    bold.setBold(true);
    use->setFont(bold);
    v->addWidget(use);

    auto* fra = new QFrame(box);
    fra->setObjectName(QStringLiteral("fra") + key + QStringLiteral("Use"));
    auto* g = new QGridLayout(fra);
    g->setContentsMargins(12, 0, 0, 0);
    g->setVerticalSpacing(2);
    int row = 0;
    auto textRow = [&](const QString& label, const QString& txtName, const QString& cmdName) {
        g->addWidget(new QLabel(label, fra), row, 0);
        auto* t = new QLineEdit(fra);
        t->setObjectName(txtName);
        g->addWidget(t, row, 1);
        QPushButton* b = nullptr;
        if (!cmdName.isEmpty()) {
            b = new QPushButton(kBrowse, fra);
            b->setObjectName(cmdName);
            b->setAutoDefault(false);
            g->addWidget(b, row, 2);
        }
        ++row;
        return std::make_pair(t, b);
    };
    // Executable buttons: the box takes the directory of the chosen program.
    auto exeButton = [this](QLineEdit* t, QPushButton* b, SelectKind kind) {
        connect(b, &QPushButton::clicked, this, [this, t, kind] {
            const QString f = Pickers().SelectFile(kind, this);
            if (!f.isEmpty())
                t->setText(GetFileDir(f));
        });
    };
    auto [dirTxt, dirCmd] =
        textRow(QStringLiteral("EXE"), QStringLiteral("txt") + key + QStringLiteral("Dir"),
                QStringLiteral("cmd") + key + QStringLiteral("Dir"));
    exeButton(dirTxt, dirCmd, SelectKindOf(e));
    if (key == QStringLiteral("WinX1"))
        connect(dirTxt, &QLineEdit::textChanged, this, [this] { UpdateIkaRule(); });
    if (key == QStringLiteral("Xmil")) {
        auto [t, b] = textRow(QStringLiteral("T/Ika"), QStringLiteral("txtXmilTDir"),
                              QStringLiteral("cmdXmilTDir"));
        exeButton(t, b, SelectKind::Xmil);
        connect(t, &QLineEdit::textChanged, this, [this] { UpdateXmilTRule(); });
    }
    if (e.saveKey) {
        auto [t, b] = textRow(QStringLiteral("Save"),
                              QStringLiteral("txt") + S(e.saveKey) + QStringLiteral("SaveDir"),
                              QStringLiteral("cmd") + S(e.saveKey) + QStringLiteral("SaveDir"));
        connect(b, &QPushButton::clicked, this, [this, t] {
            QString path = VbTrim(t->text());
            if (Pickers().PickDir(path, this))
                t->setText(path);
        });
    }
    if (e.opText) {
        auto [t, b] = textRow(QStringLiteral("Def"), S(e.opText), QString());
        t->setReadOnly(true);
    }
    auto* flags = new QHBoxLayout;
    flags->setSpacing(8);
    if (e.flagKey) {
        auto* c = new QCheckBox(QStringLiteral("既存INI使用"), fra);
        c->setObjectName(QStringLiteral("chk") + S(e.flagKey) + QStringLiteral("CfgChk"));
        auto* a = new QCheckBox(QStringLiteral("全画面起動"), fra);
        a->setObjectName(QStringLiteral("chk") + S(e.flagKey) + QStringLiteral("AllScr"));
        flags->addWidget(c);
        flags->addWidget(a);
    }
    auto extraCheck = [&](const char* name, const char* caption) {
        auto* c = new QCheckBox(S(caption), fra);
        c->setObjectName(S(name));
        flags->addWidget(c);
        return c;
    };
    if (key == QStringLiteral("QUASI88"))
        extraCheck("chkQ88CompatRomUse", "PC88.ROM使用");
    if (key == QStringLiteral("Xmil"))
        extraCheck("chkXmilTUse", "T・IkaTune常用");
    if (key == QStringLiteral("WinX1"))
        extraCheck("chkWinX1IkaUse", "Ika風味使用");
    flags->addStretch(1);
    auto opButton = [&](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, fra);
        b->setObjectName(name);
        b->setAutoDefault(false);
        // A button waits, disabled, until its emulator's dialog is there.
        const OptionDialogControls* c = OptionDialogControlsOf(name);
        auto it = c ? OptionDialogTable().find(c->emu) : OptionDialogTable().end();
        const bool there = it != OptionDialogTable().end() && it->second.open;
        b->setEnabled(there);
        // j80's files, shared by every title, have a dialog of their own.
        if (name == QLatin1String("cmdJ80File")) {
            b->setEnabled(true);
            connect(b, &QPushButton::clicked, this, [this] { ShowJ80Rom(this); });
        }
        if (there) {
            const tv::Emu emu = c->emu;
            connect(b, &QPushButton::clicked, this, [this, emu] {
                OpenOptionDialog(emu, 0, this);
                RefreshOptionTexts();
            });
        }
        flags->addWidget(b);
    };
    if (key == QStringLiteral("J80"))
        opButton(QStringLiteral("cmdJ80File"), QStringLiteral("ROM 設定"));
    if (e.opButton)
        opButton(S(e.opButton), QStringLiteral("Def 設定"));
    g->addLayout(flags, row, 0, 1, 3);
    v->addWidget(fra);

    connect(use, &QCheckBox::toggled, this, [this, &e] { chkUse_Click(e); });
    return box;
}

void frmCfg::chkUse_Click(const Emu& e)
{
    const QString key = S(e.key);
    const bool on =
        Ctl<QCheckBox>(QStringLiteral("chk") + key + QStringLiteral("Use"))->isChecked();
    Ctl<QFrame>(QStringLiteral("fra") + key + QStringLiteral("Use"))->setEnabled(on);
    if (auto* m = qobject_cast<QStandardItemModel*>(cbxDefEmuRun[e.family]->model()))
        m->item(e.entry)->setEnabled(on);
    if (key == QStringLiteral("WinX1"))
        UpdateIkaRule();
}

void frmCfg::chkDefOpt_Click(int index)
{
    if (mirroring_)
        return;
    mirroring_ = true;
    for (int i = 0; i < 3; ++i)
        if (i != index)
            chkDefOpt[i]->setChecked(chkDefOpt[index]->isChecked());
    mirroring_ = false;
}

void frmCfg::chkParUse_Click(int index)
{
    if (mirroring_)
        return;
    mirroring_ = true;
    for (int i = 0; i < 3; ++i)
        if (i != index)
            chkParUse[i]->setChecked(chkParUse[index]->isChecked());
    mirroring_ = false;
}

void frmCfg::UpdateIkaRule()
{
    auto* ika = Ctl<QCheckBox>(QStringLiteral("chkWinX1IkaUse"));
    const QString dir = VbTrim(Ctl<QLineEdit>(QStringLiteral("txtWinX1Dir"))->text());
    const bool there =
        !dir.isEmpty() && !FindFile(dir + QStringLiteral("/WinX1_ika.exe")).isEmpty();
    ika->setEnabled(there);
    if (!there)
        ika->setChecked(false);
}

void frmCfg::UpdateXmilTRule()
{
    const QString dir = VbTrim(Ctl<QLineEdit>(QStringLiteral("txtXmilTDir"))->text());
    Ctl<QCheckBox>(QStringLiteral("chkXmilTUse"))
        ->setEnabled(!dir.isEmpty() &&
                     !FindFile(dir + QStringLiteral("/Xmillennium.exe")).isEmpty());
}

void frmCfg::UpdateFmPanRule()
{
    const QString f = VbTrim(txtFmPanFile->text());
    chkFmPanUse->setEnabled(!f.isEmpty() && !FindFile(f).isEmpty());
}

void frmCfg::RefreshOptionTexts()
{
    for (const auto& c : kOptionDialogControls) {
        auto it = OptionDialogTable().find(c.emu);
        if (!c.switchText || it == OptionDialogTable().end() || !it->second.defaultsText)
            continue;
        if (auto* t = Ctl<QLineEdit>(S(c.switchText)))
            t->setText(it->second.defaultsText());
    }
}

void frmCfg::LoadFromCfg()
{
    // Flags first: the text boxes' change rules may then clear what no longer applies.
    for (const EmuRow& e : EmuRows()) {
        const QString key = S(e.key);
        Ctl<QCheckBox>(QStringLiteral("chk") + key + QStringLiteral("Use"))
            ->setChecked(Cfg.*e.use == 1);
        if (e.flagKey) {
            Ctl<QCheckBox>(QStringLiteral("chk") + S(e.flagKey) + QStringLiteral("CfgChk"))
                ->setChecked(Cfg.*e.cfgChk == 1);
            Ctl<QCheckBox>(QStringLiteral("chk") + S(e.flagKey) + QStringLiteral("AllScr"))
                ->setChecked(Cfg.*e.allScr == 1);
        }
    }
    Ctl<QCheckBox>(QStringLiteral("chkQ88CompatRomUse"))->setChecked(Cfg.Q88CompatRomUse == 1);
    Ctl<QCheckBox>(QStringLiteral("chkXmilTUse"))->setChecked(Cfg.XmilTUse == 1);
    Ctl<QCheckBox>(QStringLiteral("chkWinX1IkaUse"))->setChecked(Cfg.WinX1IkaUse == 1);
    chkFmPanUse->setChecked(Cfg.PanUse == 1);
    chkParUse[0]->setChecked(Cfg.PatUse == 1);
    chkDefOpt[0]->setChecked(Cfg.DefOpt == 1);
    // The mirroring only runs on a change; make the three equal whatever the start state.
    chkParUse_Click(0);
    chkDefOpt_Click(0);

    for (int i = 0; i < 3; ++i) {
        txtImageDir[i]->setText(VbTrim(Cfg.ImageDir[i]));
        txtSnapDir[i]->setText(VbTrim(Cfg.SnapDir[i]));
        txtPatSaveDir[i]->setText(VbTrim(Cfg.PatSaveDir[i]));
        txtManDir[i]->setText(VbTrim(Cfg.ManDir[i]));
    }
    for (const EmuRow& e : EmuRows()) {
        Ctl<QLineEdit>(QStringLiteral("txt") + S(e.key) + QStringLiteral("Dir"))
            ->setText(VbTrim(Cfg.*e.dir));
        if (e.saveKey)
            Ctl<QLineEdit>(QStringLiteral("txt") + S(e.saveKey) + QStringLiteral("SaveDir"))
                ->setText(VbTrim(Cfg.*e.saveDir));
    }
    Ctl<QLineEdit>(QStringLiteral("txtXmilTDir"))->setText(VbTrim(Cfg.XmilTDir));
    txtFmPanFile->setText(VbTrim(Cfg.FmPanFile));
    UpdateXmilTRule();
    UpdateFmPanRule();

    const uint8_t def[3] = {Cfg.CfgEmuOpt88.DefEmuRun, Cfg.CfgEmuOptFM.DefEmuRun,
                            Cfg.CfgEmuOptX1.DefEmuRun};
    for (int i = 0; i < 3; ++i)
        cbxDefEmuRun[i]->setCurrentIndex(def[i] < cbxDefEmuRun[i]->count() ? def[i] : 0);
    for (const EmuRow& e : EmuRows())
        chkUse_Click(e);
    RefreshOptionTexts();
}

bool frmCfg::StoreCfg(bool unload)
{
    // A path longer than its field would be cut on disk: refuse it before it gets there.
    const auto edits = findChildren<QLineEdit*>();
    for (QLineEdit* t : edits) {
        if (t->isReadOnly() || FitsCfgPath(t->text()))
            continue;
        for (int i = 0; i < 3; ++i)
            if (fraHardWare[i]->isAncestorOf(t))
                tbsHardWare->setCurrentIndex(i);
        t->setFocus();
        MsgBox(kPathTooLong, MbExclamation);
        errFlag_ = true;
        return false;
    }
    auto text = [this](const QString& name) { return VbTrim(Ctl<QLineEdit>(name)->text()); };
    auto flag = [this](const QString& name) -> uint8_t {
        return Ctl<QCheckBox>(name)->isChecked() ? 1 : 0;
    };

    for (int i = 0; i < 3; ++i) {
        Cfg.ImageDir[i] = VbTrim(txtImageDir[i]->text());
        Cfg.SnapDir[i] = VbTrim(txtSnapDir[i]->text());
        Cfg.PatSaveDir[i] = VbTrim(txtPatSaveDir[i]->text());
        Cfg.ManDir[i] = VbTrim(txtManDir[i]->text());
    }
    for (const EmuRow& e : EmuRows()) {
        Cfg.*e.dir = text(QStringLiteral("txt") + S(e.key) + QStringLiteral("Dir"));
        if (e.saveKey)
            Cfg.*e.saveDir = text(QStringLiteral("txt") + S(e.saveKey) + QStringLiteral("SaveDir"));
    }
    Cfg.XmilTDir = text(QStringLiteral("txtXmilTDir"));
    Cfg.FmPanFile = VbTrim(txtFmPanFile->text());

    for (const EmuRow& e : EmuRows()) {
        Cfg.*e.use = flag(QStringLiteral("chk") + S(e.key) + QStringLiteral("Use"));
        if (e.flagKey) {
            Cfg.*e.cfgChk = flag(QStringLiteral("chk") + S(e.flagKey) + QStringLiteral("CfgChk"));
            Cfg.*e.allScr = flag(QStringLiteral("chk") + S(e.flagKey) + QStringLiteral("AllScr"));
        }
    }
    Cfg.Q88CompatRomUse = flag(QStringLiteral("chkQ88CompatRomUse"));
    Cfg.XmilTUse = flag(QStringLiteral("chkXmilTUse"));
    Cfg.WinX1IkaUse = flag(QStringLiteral("chkWinX1IkaUse"));
    Cfg.PanUse = chkFmPanUse->isChecked() ? 1 : 0;
    Cfg.PatUse = chkParUse[0]->isChecked() ? 1 : 0;
    Cfg.DefOpt = chkDefOpt[0]->isChecked() ? 1 : 0;

    auto pos = [this](int i) -> uint8_t {
        return static_cast<uint8_t>(qMax(0, cbxDefEmuRun[i]->currentIndex()));
    };
    Cfg.CfgEmuOpt88.DefEmuRun = pos(0);
    Cfg.CfgEmuOptFM.DefEmuRun = pos(1);
    Cfg.CfgEmuOptX1.DefEmuRun = pos(2);

    if (!ValidateCfg()) {
        errFlag_ = true;
        return false;
    }
    errFlag_ = false;
    if (!SaveCfg()) {
        MsgBox(QStringLiteral("TORVANE.CFG を書き込めませんでした"), MbExclamation);
        errFlag_ = true;
        return false;
    }
    ResolveCfgDirs();
    Window().CfgStored();
    MsgBox(QStringLiteral("設定を保存しました！"), MbInformation);
    CfgReady = 1;
    stored_ = true;
    if (unload)
        accept();
    return true;
}

void frmCfg::done(int r)
{
    if (!unloaded_) {
        unloaded_ = true;
        CfgDialogUnload(stored_);
    }
    QDialog::done(r);
}

} // namespace tv
