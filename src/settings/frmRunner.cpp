#include "settings/frmRunner.h"

#include "data/EmuRegistry.h"
#include "launch/DryRun.h"
#include "launch/RunnerCheck.h"
#include "platform/MsgBox.h"
#include "settings/FilePickers.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tv {

namespace {

const char* const kFamilyNames[3] = {"PC-8x01", "FM-7 & FM77AV", "X1 & X1Turbo!"};

constexpr RunnerKind kKinds[] = {RunnerKind::Auto, RunnerKind::Direct, RunnerKind::Wine,
                                 RunnerKind::DosBox, RunnerKind::Java};

enum Page { PageNone, PageWine, PageDosBox, PageJava };

QLineEdit* Line(const char* name, QWidget* parent)
{
    auto* e = new QLineEdit(parent);
    e->setObjectName(QLatin1String(name));
    return e;
}

// A small box of lines, one entry a line.
QPlainTextEdit* Lines(const char* name, QWidget* parent)
{
    auto* e = new QPlainTextEdit(parent);
    e->setObjectName(QLatin1String(name));
    e->setTabChangesFocus(true);
    e->setLineWrapMode(QPlainTextEdit::NoWrap);
    e->setFixedHeight(e->fontMetrics().lineSpacing() * 3 + 12);
    return e;
}

QStringList LinesOf(const QPlainTextEdit* e)
{
    QStringList out;
    for (const QString& line : e->toPlainText().split(u'\n'))
        if (!line.trimmed().isEmpty())
            out << line.trimmed();
    return out;
}

QPushButton* Button(const QString& text, const char* name, QWidget* parent)
{
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QLatin1String(name));
    b->setAutoDefault(false);
    return b;
}

// A label that gives its field a key: Alt and the underlined letter. `row` is what stands in
// the form (the field, or the field with its browse button).
void AddRow(QFormLayout* form, const QString& text, QWidget* field, const char* labelName,
            QWidget* row = nullptr)
{
    auto* l = new QLabel(text);
    l->setObjectName(QLatin1String(labelName));
    l->setBuddy(field);
    form->addRow(l, row ? row : field);
}

// A path field with its browse button beside it.
QWidget* WithBrowse(QLineEdit* edit, QToolButton* button)
{
    auto* box = new QWidget;
    auto* h = new QHBoxLayout(box);
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(edit, 1);
    h->addWidget(button);
    return box;
}

QFormLayout* Form(QWidget* page)
{
    auto* f = new QFormLayout(page);
    f->setContentsMargins(0, 0, 0, 0);
    f->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return f;
}

} // namespace

frmRunner::frmRunner(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmRunner"));
    setWindowTitle(QStringLiteral("ランナー設定"));
    edits_ = Runners();
    build();
    selectEmu(Emu::P88sr);
}

// A path field with its "..." beside it as a row of the form, named txt<stem>, cmd<stem> and
// lbl<stem>. The button opens the file dialog for a program, the directory picker for a prefix.
QLineEdit* frmRunner::PathRow(QFormLayout* form, const QString& stem, const QString& label,
                              const QString& placeholder, bool directory, QToolButton*& button)
{
    auto* edit = new QLineEdit(form->parentWidget());
    edit->setObjectName(QStringLiteral("txt") + stem);
    edit->setPlaceholderText(placeholder);
    auto* b = new QToolButton(this);
    b->setObjectName(QStringLiteral("cmd") + stem);
    b->setText(QStringLiteral("..."));
    b->setToolTip(directory ? QStringLiteral("ディレクトリを選ぶ")
                            : QStringLiteral("プログラムを選ぶ"));
    connect(b, &QToolButton::clicked, this, [this, edit, directory] {
        if (directory) {
            QString path = edit->text().trimmed();
            if (Pickers().PickDir(path, this))
                edit->setText(path);
            return;
        }
        const QString file = Pickers().SelectFile(SelectKind::RunnerProgram, this);
        if (!file.isEmpty())
            edit->setText(file);
    });
    AddRow(form, label, edit, ("lbl" + stem).toLatin1().constData(), WithBrowse(edit, b));
    button = b;
    return edit;
}

QWidget* frmRunner::buildWinePage()
{
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("fraRunnerWine"));
    QFormLayout* f = Form(page);
    txtWineProgram =
        PathRow(f, QStringLiteral("WineProgram"), QStringLiteral("Wine プログラム(&W):"),
                QStringLiteral("wine（検索パスから）"), false, cmdWineProgram);
    txtWinePrefix = PathRow(f, QStringLiteral("WinePrefix"), QStringLiteral("WINEPREFIX(&P):"),
                            QStringLiteral("Wine の既定（~/.wine）"), true, cmdWinePrefix);
    chkWineJapanese = new QCheckBox(QStringLiteral("日本語ロケール ja_JP.UTF-8 で起動(&J)"), page);
    chkWineJapanese->setObjectName(QStringLiteral("chkWineJapanese"));
    f->addRow(QString(), chkWineJapanese);
    txtWineDebug = Line("txtWineDebug", page);
    AddRow(f, QStringLiteral("WINEDEBUG(&D):"), txtWineDebug, "lblWineDebug");
    txtWineDllOverrides = Line("txtWineDllOverrides", page);
    txtWineDllOverrides->setPlaceholderText(QStringLiteral("例: mscoree,mshtml="));
    AddRow(f, QStringLiteral("DLL オーバーライド(&L):"), txtWineDllOverrides,
           "lblWineDllOverrides");
    txtWineDrives = Lines("txtWineDrives", page);
    txtWineDrives->setPlaceholderText(QStringLiteral("D:=/native/dir（1 行に 1 つ）"));
    AddRow(f, QStringLiteral("ドライブ表(&T):"), txtWineDrives, "lblWineDrives");
    return page;
}

QWidget* frmRunner::buildDosBoxPage()
{
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("fraRunnerDosBox"));
    QFormLayout* f = Form(page);
    txtDosBoxProgram =
        PathRow(f, QStringLiteral("DosBoxProgram"), QStringLiteral("DOSBox プログラム(&B):"),
                QStringLiteral("dosbox（検索パスから）"), false, cmdDosBoxProgram);
    cbxDosBoxFlavour = new QComboBox(page);
    cbxDosBoxFlavour->setObjectName(QStringLiteral("cbxDosBoxFlavour"));
    cbxDosBoxFlavour->addItem(QStringLiteral("DOSBox"), int(DosBoxFlavour::Classic));
    cbxDosBoxFlavour->addItem(QStringLiteral("DOSBox Staging"), int(DosBoxFlavour::Staging));
    cbxDosBoxFlavour->addItem(QStringLiteral("DOSBox-X"), int(DosBoxFlavour::X));
    AddRow(f, QStringLiteral("種類(&F):"), cbxDosBoxFlavour, "lblDosBoxFlavour");
    return page;
}

QWidget* frmRunner::buildJavaPage()
{
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("fraRunnerJava"));
    QFormLayout* f = Form(page);
    txtJavaProgram =
        PathRow(f, QStringLiteral("JavaProgram"), QStringLiteral("Java プログラム(&V):"),
                QStringLiteral("TORVANE ｵﾌﾟｼｮﾝの JavaVM、なければ java"), false, cmdJavaProgram);
    txtJvmArguments = Line("txtJvmArguments", page);
    txtJvmArguments->setPlaceholderText(QStringLiteral("例: -Xmx256m"));
    AddRow(f, QStringLiteral("JVM 引数(&M):"), txtJvmArguments, "lblJvmArguments");
    return page;
}

// The emulators under their families; a family's row can't be chosen.
void frmRunner::buildEmuList()
{
    lstRunnerEmu = new QTreeWidget(this);
    lstRunnerEmu->setObjectName(QStringLiteral("lstRunnerEmu"));
    lstRunnerEmu->setHeaderHidden(true);
    lstRunnerEmu->setRootIsDecorated(false);
    lstRunnerEmu->setItemsExpandable(false);
    std::array<QTreeWidgetItem*, 3> families{};
    for (int f = 0; f < 3; ++f) {
        families[size_t(f)] = new QTreeWidgetItem(lstRunnerEmu, {QLatin1String(kFamilyNames[f])});
        families[size_t(f)]->setFlags(Qt::ItemIsEnabled);
        QFont bold = lstRunnerEmu->font();
        bold.setBold(true);
        families[size_t(f)]->setFont(0, bold);
    }
    for (const EmuRow& row : EmuRows()) {
        auto* item =
            new QTreeWidgetItem(families[size_t(row.family)], {QLatin1String(row.listName)});
        item->setData(0, Qt::UserRole, int(row.code()));
    }
    lstRunnerEmu->expandAll();
    lstRunnerEmu->setMinimumWidth(
        lstRunnerEmu->fontMetrics().horizontalAdvance(QStringLiteral("FM-7 & FM77AV")) + 48);
}

// The kind with its detection and warning, the fields of the kind, and those of every kind.
QFormLayout* frmRunner::buildKindPanel()
{
    cbxRunnerKind = new QComboBox(this);
    cbxRunnerKind->setObjectName(QStringLiteral("cbxRunnerKind"));
    for (RunnerKind k : kKinds)
        cbxRunnerKind->addItem(RunnerKindText(k), int(k));
    lblRunnerDetect = new QLabel(this);
    lblRunnerDetect->setObjectName(QStringLiteral("lblRunnerDetect"));
    lblRunnerDetect->setWordWrap(true);
    lblRunnerWarn = new QLabel(this);
    lblRunnerWarn->setObjectName(QStringLiteral("lblRunnerWarn"));
    lblRunnerWarn->setWordWrap(true);
    lblRunnerWarn->setStyleSheet(QStringLiteral("color: #b00000;"));

    fraRunnerKind = new QStackedWidget(this);
    fraRunnerKind->setObjectName(QStringLiteral("fraRunnerKind"));
    auto* none = new QLabel(QStringLiteral("このランナーに固有の設定はありません。"));
    none->setObjectName(QStringLiteral("lblRunnerNone"));
    none->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    fraRunnerKind->addWidget(none);
    fraRunnerKind->addWidget(buildWinePage());
    fraRunnerKind->addWidget(buildDosBoxPage());
    fraRunnerKind->addWidget(buildJavaPage());

    auto* right = new QFormLayout;
    right->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    AddRow(right, QStringLiteral("起動方法(&K):"), cbxRunnerKind, "lblRunnerKind");
    right->addRow(QString(), lblRunnerDetect);
    right->addRow(QString(), lblRunnerWarn);
    right->addRow(fraRunnerKind);
    txtRunnerArgs = Line("txtRunnerArgs", this);
    txtRunnerArgs->setPlaceholderText(QStringLiteral("ランナーへの引数（Emulator の前）"));
    AddRow(right, QStringLiteral("追加の引数(&A):"), txtRunnerArgs, "lblRunnerArgs");
    txtRunnerEnv = Lines("txtRunnerEnv", this);
    txtRunnerEnv->setPlaceholderText(QStringLiteral("NAME=値（1 行に 1 つ）"));
    AddRow(right, QStringLiteral("追加の環境変数(&N):"), txtRunnerEnv, "lblRunnerEnv");
    return right;
}

void frmRunner::build()
{
    buildEmuList();
    auto* lblEmu = new QLabel(QStringLiteral("エミュレータ(&E):"), this);
    lblEmu->setObjectName(QStringLiteral("lblRunnerEmu"));
    lblEmu->setBuddy(lstRunnerEmu);
    QFormLayout* right = buildKindPanel();

    cmdRunnerCheck = Button(QStringLiteral("確認(&C)"), "cmdRunnerCheck", this);
    cmdRunnerCommand = Button(QStringLiteral("コマンド表示(&S)"), "cmdRunnerCommand", this);
    cmdRunnerDryRun = Button(QStringLiteral("試験起動(&R)"), "cmdRunnerDryRun", this);
    cmdRunnerCommand->setToolTip(QStringLiteral("選択中のタイトルをこの Emulator で起動したときの"
                                                "コマンド・ファイル・キーを表示します"));
    cmdRunnerDryRun->setToolTip(
        QStringLiteral("起動の手順をすべて通し、プロセス・キー・"
                       "クリップボードは記録だけにして、後片付けを確かめます"));
    txtRunnerReport = new QPlainTextEdit(this);
    txtRunnerReport->setObjectName(QStringLiteral("txtRunnerReport"));
    txtRunnerReport->setReadOnly(true);
    // Long command lines wrap: the whole line is seen without scrolling sideways.
    txtRunnerReport->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    txtRunnerReport->setMinimumHeight(txtRunnerReport->fontMetrics().lineSpacing() * 12);
    txtRunnerReport->setPlaceholderText(QStringLiteral("確認・コマンド表示・試験起動の結果"));

    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* grid = new QGridLayout(this);
    grid->addWidget(lblEmu, 0, 0);
    grid->addWidget(lstRunnerEmu, 1, 0);
    grid->addLayout(right, 1, 1);
    grid->setColumnStretch(1, 1);
    auto* tools = new QHBoxLayout;
    tools->addWidget(cmdRunnerCheck);
    tools->addWidget(cmdRunnerCommand);
    tools->addWidget(cmdRunnerDryRun);
    tools->addStretch();
    grid->addLayout(tools, 2, 0, 1, 2);
    grid->addWidget(txtRunnerReport, 3, 0, 1, 2);
    grid->setRowStretch(3, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    grid->addLayout(buttons, 4, 0, 1, 2);
    resize(900, 720);

    connect(lstRunnerEmu, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (!item || !item->data(0, Qt::UserRole).isValid())
            return;
        storeShown();
        load(static_cast<Emu>(item->data(0, Qt::UserRole).toInt()));
    });
    connect(cbxRunnerKind, &QComboBox::currentIndexChanged, this, [this] { updateKind(); });
    connect(cmdRunnerCheck, &QPushButton::clicked, this, [this] { runCheck(); });
    connect(cmdRunnerCommand, &QPushButton::clicked, this, [this] { runCommandView(); });
    connect(cmdRunnerDryRun, &QPushButton::clicked, this, [this] { runDryRun(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (Store())
            accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmRunner::selectEmu(Emu emu)
{
    QTreeWidgetItemIterator it(lstRunnerEmu);
    for (; *it; ++it)
        if ((*it)->data(0, Qt::UserRole).isValid() &&
            (*it)->data(0, Qt::UserRole).toInt() == int(emu)) {
            if (lstRunnerEmu->currentItem() == *it)
                load(emu);
            else
                lstRunnerEmu->setCurrentItem(*it);
            return;
        }
}

void frmRunner::load(Emu emu)
{
    current_ = emu;
    const RunnerSettings& s = edits_[emu];
    loading_ = true;
    cbxRunnerKind->setCurrentIndex(cbxRunnerKind->findData(int(s.kind)));
    txtWineProgram->setText(s.wineProgram);
    txtWinePrefix->setText(s.winePrefix);
    chkWineJapanese->setChecked(s.japaneseLocale);
    txtWineDebug->setText(s.wineDebug);
    txtWineDllOverrides->setText(s.dllOverrides);
    txtWineDrives->setPlainText(s.driveTable.join(u'\n'));
    txtDosBoxProgram->setText(s.dosboxProgram);
    cbxDosBoxFlavour->setCurrentIndex(cbxDosBoxFlavour->findData(int(s.dosboxFlavour)));
    txtJavaProgram->setText(s.javaProgram);
    txtJvmArguments->setText(s.jvmArguments);
    txtRunnerArgs->setText(s.extraArguments);
    txtRunnerEnv->setPlainText(s.extraEnvironment.join(u'\n'));
    loading_ = false;
    loaded_ = true;
    updateKind();
}

void frmRunner::storeShown()
{
    if (loading_ || !loaded_)
        return;
    RunnerSettings& s = edits_[current_];
    s.kind = static_cast<RunnerKind>(cbxRunnerKind->currentData().toInt());
    s.wineProgram = txtWineProgram->text().trimmed();
    s.winePrefix = txtWinePrefix->text().trimmed();
    s.japaneseLocale = chkWineJapanese->isChecked();
    s.wineDebug = txtWineDebug->text().trimmed();
    s.dllOverrides = txtWineDllOverrides->text().trimmed();
    s.driveTable = LinesOf(txtWineDrives);
    s.dosboxProgram = txtDosBoxProgram->text().trimmed();
    s.dosboxFlavour = static_cast<DosBoxFlavour>(cbxDosBoxFlavour->currentData().toInt());
    s.javaProgram = txtJavaProgram->text().trimmed();
    s.jvmArguments = txtJvmArguments->text().trimmed();
    s.extraArguments = txtRunnerArgs->text().trimmed();
    s.extraEnvironment = LinesOf(txtRunnerEnv);
}

// The detection result, the warning, and the page of the kind that a launch would use.
void frmRunner::updateKind()
{
    if (loading_)
        return;
    const auto chosen = static_cast<RunnerKind>(cbxRunnerKind->currentData().toInt());
    const QString program = EmuProgramPath(current_);
    int bits = 0;
    const ProgramHeader h = ReadProgramHeader(program, &bits);
    const RunnerKind detected = DetectRunner(current_, program);
    lblRunnerDetect->setText(
        QStringLiteral("判定: %1 → %2").arg(ProgramHeaderText(h, bits), RunnerKindText(detected)));
    lblRunnerDetect->setToolTip(program);
    const QString warn = RunnerMismatchText(current_, h, chosen);
    lblRunnerWarn->setText(warn.isEmpty() ? QString() : QStringLiteral("⚠ ") + warn);
    lblRunnerWarn->setVisible(!warn.isEmpty());
    const RunnerKind kind = chosen == RunnerKind::Auto ? detected : chosen;
    const Page page = kind == RunnerKind::Wine     ? PageWine
                      : kind == RunnerKind::DosBox ? PageDosBox
                      : kind == RunnerKind::Java   ? PageJava
                                                   : PageNone;
    fraRunnerKind->setCurrentIndex(page);
}

RunnerTable frmRunner::edits()
{
    storeShown();
    return edits_;
}

bool frmRunner::Store()
{
    const RunnerTable table = edits();
    if (!SaveRunnerSettings(RunnerSettingsPath(), table)) {
        MsgBox(QStringLiteral("ランナー設定を保存できませんでした。\n%1").arg(RunnerSettingsPath()),
               MbExclamation);
        return false;
    }
    // Only emulators that differ from the defaults stay in the table, as after a new start.
    RunnerTable kept;
    for (const auto& [emu, s] : table)
        if (!(s == RunnerSettings{}))
            kept[emu] = s;
    Runners() = kept;
    return true;
}

// The check and the dry run take a while and serve events meanwhile: the dialog takes no
// input until they are done, so no second one starts inside the first.
void frmRunner::runBusy(const QString& what, const std::function<QString()>& work)
{
    storeShown();
    txtRunnerReport->setPlainText(what);
    setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const QString text = work();
    QApplication::restoreOverrideCursor();
    setEnabled(true);
    txtRunnerReport->setPlainText(text);
}

void frmRunner::runCheck()
{
    runBusy(QStringLiteral("確認中．．"),
            [this] { return CheckRunner(current_, edits_[current_]); });
}

void frmRunner::runCommandView()
{
    runBusy(QStringLiteral("コマンドを調べています．．"),
            [this] { return CommandViewText(DryRunSelected(current_, edits_[current_])); });
}

void frmRunner::runDryRun()
{
    runBusy(QStringLiteral("試験起動中．．"),
            [this] { return DryRunReportText(DryRunSelected(current_, edits_[current_])); });
}

} // namespace tv
