#include "mainwindow/frmMain.h"

#include "util/Help.h"

#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "data/TitleListModel.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/frmTitle.h"
#include "registration/frmColEditor.h"
#include "registration/frmLstMake.h"
#include "settings/frmAbout.h"
#include "settings/frmCfg.h"
#include "settings/frmOpt.h"
#include "settings/frmRunner.h"
#include "startup/ValidateCfg.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QSplitter>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QTableView>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QVersionNumber>
#include <cstdlib>

namespace tv {

namespace {

// The design size of the window, in pixels.
constexpr int kDesignWidth = 980;
constexpr int kDesignHeight = 660;

QPixmap makeNoImage()
{
    QPixmap p(320, 200);
    p.fill(QColor(0x20, 0x20, 0x28));
    QPainter g(&p);
    g.setPen(QColor(0xa0, 0xa0, 0xb0));
    QFont f = g.font();
    f.setPointSize(18);
    f.setBold(true);
    g.setFont(f);
    g.drawText(p.rect(), Qt::AlignCenter, QStringLiteral("NO IMAGE"));
    return p;
}

// The names of the free columns head the design-time list until the catalogue's own model
// takes over.
void PutFreeColHeaders(QStandardItemModel* model)
{
    model->setHeaderData(3, Qt::Horizontal, VbTrim(Cfg.FreeColName1));
    model->setHeaderData(4, Qt::Horizontal, VbTrim(Cfg.FreeColName2));
}

} // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("TORVANE"));
    setWindowIcon(style()->standardIcon(QStyle::SP_ComputerIcon));
    menus = BuildMainMenus(this);
    ConnectMenus();
    BuildControls();
    resize(kDesignWidth, kDesignHeight);
    showCfgDialog = [](frmMain& w) {
        frmCfg dlg(&w);
        dlg.exec();
    };
    previousLink_ = InstallWindow(this);
}

frmMain::~frmMain()
{
    // Only the one installed goes; a window installed over it meanwhile stays.
    if (InstalledWindow() == this)
        InstallWindow(previousLink_);
    if (title_)
        delete title_.data();
}

void frmMain::SetCatalogue(std::unique_ptr<MainCatalogue> c)
{
    catalogue_ = std::move(c);
    // Registration needs the catalogue that takes its rows.
    menus.mnuEditAddItem->setEnabled(catalogue_ != nullptr);
    menus.mnuEditChangeItem->setEnabled(catalogue_ != nullptr);
}

void frmMain::OpenItemEditor(bool newItem)
{
    if (!catalogue_ || !catalogue_->Ui() || HardWare > 2) {
        return;
    }
    int32_t seek = 0;
    if (!newItem) {
        const QString key = catalogue_->SelectedKey(*this);
        if (key.isEmpty()) {
            return;
        }
        seek = SeekOfListKey(key);
    }
    frmLstMake dlg(seek, catalogue_->Ui(), this);
    dlg.exec();
}

void frmMain::ConnectMenus()
{
    connect(menus.mnuFileEnd, &QAction::triggered, this, &QWidget::close);
    connect(menus.mnuOptionCfg, &QAction::triggered, this, [this] { ShowCfgDialog(); });
    connect(menus.mnuOptionTORVOp, &QAction::triggered, this, [this] {
        frmOpt dlg(this);
        dlg.exec();
    });
    connect(menus.mnuOptionRunner, &QAction::triggered, this, [this] {
        frmRunner dlg(this);
        dlg.exec();
    });
    connect(menus.mnuEditAddItem, &QAction::triggered, this, [this] { OpenItemEditor(true); });
    connect(menus.mnuEditChangeItem, &QAction::triggered, this, [this] { OpenItemEditor(false); });
    menus.mnuToolColEditor->setEnabled(true);
    connect(menus.mnuToolColEditor, &QAction::triggered, this, [this] {
        frmColEditor dlg(this);
        dlg.exec();
    });
    connect(menus.mnuHelpTORVANE, &QAction::triggered, this, [] { ShowHelpTopic(kHelpMain); });
    connect(menus.mnuHelpTopic, &QAction::triggered, this, [] { ShowHelpTopic(kHelpContents); });
    connect(menus.mnuHelpVersion, &QAction::triggered, this, [this] {
        frmAbout dlg(this);
        dlg.exec();
    });
    connect(menus.mnuTaskBarTORVOpen, &QAction::triggered, this, &frmMain::TrayOpen);
    connect(menus.mnuTaskBarTORVClose, &QAction::triggered, this, [this] {
        // The exit sequence runs even from a hidden window, then the process ends.
        if (startup_ && !unloaded_) {
            unloaded_ = true;
            startup_->FormUnload();
        }
        QCoreApplication::quit();
    });
}

void frmMain::BuildControls()
{
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("fraMain"));
    auto* v = new QVBoxLayout(central);
    v->setContentsMargins(6, 6, 6, 4);
    v->setSpacing(4);

    auto* top = new QHBoxLayout;
    auto* lbl = new QLabel(QStringLiteral("HardWare"), central);
    lbl->setObjectName(QStringLiteral("lblHardWare"));
    cbxHardWare = new QComboBox(central);
    cbxHardWare->setObjectName(QStringLiteral("cbxHardWare"));
    for (int i = 0; i < 3; ++i)
        cbxHardWare->addItem(FamilyName(i));
    cbxHardWare->setCurrentIndex(-1);
    cbxHardWare->setMinimumWidth(180);
    lbl->setBuddy(cbxHardWare);
    // The image directory of the chosen family, for reading only.
    txtHardImagePath = new QLineEdit(central);
    txtHardImagePath->setObjectName(QStringLiteral("txtHardImagePath"));
    txtHardImagePath->setReadOnly(true);
    txtHardImagePath->setFocusPolicy(Qt::ClickFocus);
    top->addWidget(lbl);
    top->addWidget(cbxHardWare);
    top->addWidget(txtHardImagePath, 1);
    v->addLayout(top);

    splMain = new QSplitter(Qt::Horizontal, central);
    splMain->setObjectName(QStringLiteral("splMain"));
    lstD88 = new QTableView(splMain);
    lstD88->setObjectName(QStringLiteral("lstD88"));
    lstModel = new QStandardItemModel(0, 6, this);
    lstModel->setHorizontalHeaderLabels({QStringLiteral("Title"), QStringLiteral("Genre"),
                                         QStringLiteral("Maker"), QStringLiteral("Column 1"),
                                         QStringLiteral("Column 2"), QStringLiteral("Sale Date")});
    lstD88->setModel(lstModel);
    lstD88->verticalHeader()->hide();
    lstD88->setShowGrid(false);
    lstD88->setSelectionMode(QAbstractItemView::SingleSelection);
    lstD88->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstD88->horizontalHeader()->setStretchLastSection(true);
    // With DblClickProc 0 a double click edits the title; 1 belongs to the launch.
    connect(lstD88, &QTableView::doubleClicked, this, [this] {
        if (Cfg.DblClickProc == 0)
            OpenItemEditor(false);
    });

    fraScrCom = new QFrame(splMain);
    fraScrCom->setObjectName(QStringLiteral("fraScrCom"));
    fraScrCom->setFrameShape(QFrame::StyledPanel);
    auto* pane = new QVBoxLayout(fraScrCom);
    pane->setContentsMargins(4, 4, 4, 4);
    imgScr = new QLabel(fraScrCom);
    imgScr->setObjectName(QStringLiteral("imgScr"));
    imgScr->setAlignment(Qt::AlignCenter);
    imgScr->setMinimumSize(320, 200);
    NoImagePicture = makeNoImage();
    imgScr->setPixmap(NoImagePicture);
    txtSyosai = new QTextEdit(fraScrCom);
    txtSyosai->setObjectName(QStringLiteral("txtSyosai"));
    txtSyosai->setReadOnly(true);
    pane->addWidget(imgScr, 0);
    pane->addWidget(txtSyosai, 1);
    fraScrCom->setVisible(false); // shown by ViewScrCom
    splMain->addWidget(lstD88);
    splMain->addWidget(fraScrCom);
    splMain->setStretchFactor(0, 1);
    splMain->setStretchFactor(1, 1);
    v->addWidget(splMain, 1);

    // One footer per family; the catalogue code puts its buttons and switches in them.
    for (int i = 0; i < 3; ++i) {
        auto* f = new QFrame(central);
        f->setObjectName(QStringLiteral("fraFotter(%1)").arg(i));
        f->setFrameShape(QFrame::StyledPanel);
        f->setMinimumHeight(36);
        new QHBoxLayout(f);
        f->setVisible(i == 0);
        fraFotter[i] = f;
        v->addWidget(f);
    }
    setCentralWidget(central);
    statusBar()->setObjectName(QStringLiteral("stbMain"));

    connect(cbxHardWare, &QComboBox::currentIndexChanged, this, &frmMain::cbxHardWare_Click);
}

double frmMain::TwipsPerPixel() const
{
    const QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
    const double dpi = s ? s->logicalDotsPerInchX() : 96.0;
    return dpi > 0 ? 1440.0 / dpi : 15.0;
}

bool frmMain::Load(StartupEnv env)
{
    // Every emulator's launch adapter, before anything can ask whether a road is ready.
    RegisterAdapters();
    startup_ = std::make_unique<Startup>(std::move(env));
    return startup_->FormLoad();
}

void frmMain::cbxHardWare_Click(int index)
{
    if (index < 0 || index > 2 || index == HardWare)
        return;
    HardWare = static_cast<uint8_t>(index);
    for (int i = 0; i < 3; ++i)
        fraFotter[i]->setVisible(i == index);
    ShowFamilyPath();
    if (catalogue_)
        catalogue_->FamilyChanged(*this, index);
}

void frmMain::ShowFamilyPath()
{
    if (HardWare <= 2)
        txtHardImagePath->setText(ImageDir[HardWare]);
}

void frmMain::CfgStored()
{
    // The footer switches of the current family take the stored values and a selected row's
    // details are shown anew; the list and its column widths stay as the user has them.
    const int family = HardWare <= 2 ? HardWare : 0;
    if (auto* c = findChild<QCheckBox*>(QStringLiteral("chkPatUse(%1)").arg(family)))
        c->setChecked(Cfg.PatUse == 1);
    if (auto* c = findChild<QCheckBox*>(QStringLiteral("chkDefOpt(%1)").arg(family)))
        c->setChecked(Cfg.DefOpt == 1);
    if (auto* c = findChild<QCheckBox*>(QStringLiteral("chkPanUse"))) {
        const QString pan = VbTrim(Cfg.FmPanFile);
        const bool there = !pan.isEmpty() && !FindFile(pan).isEmpty();
        c->setChecked(there && Cfg.PanUse == 1);
        c->setEnabled(there);
    }
    // The names of the free columns head their columns and sort entries.
    PutFreeColHeaders(lstModel);
    if (catalogue_)
        catalogue_->RefreshDetail(*this);
    ShowFamilyPath();
}

// ---- MainWindowLink ----

void frmMain::LoadTitle()
{
    if (!title_)
        title_ = new frmTitle;
    title_->show();
}

void frmMain::ShowTitle()
{
    if (!title_)
        title_ = new frmTitle;
    title_->show();
    title_->raise();
}

void frmMain::UnloadTitle()
{
    // Gone at once, not at the next turn of the event loop; its end sets TitleClosed.
    delete title_.data();
}

void frmMain::SetTitleMsg1(const QString& text)
{
    if (title_)
        title_->lblMsg1->setText(text);
}

void frmMain::SetTitleMsg2(const QString& text)
{
    if (title_)
        title_->lblMsg2->setText(text);
}

void frmMain::HideMain()
{
    hide();
}

void frmMain::ShowMain()
{
    show();
}

void frmMain::SetMainMinimized()
{
    setWindowState(windowState() | Qt::WindowMinimized);
}

void frmMain::SetMainVisible()
{
    setVisible(true);
}

void frmMain::SetListExStyle()
{
    lstD88->setSelectionBehavior(QAbstractItemView::SelectRows);
}

void frmMain::ApplyCfgToWindow()
{
    imgScr->setPixmap(NoImagePicture);
    txtSyosai->clear();
    QPalette pal = txtSyosai->palette();
    pal.setColor(QPalette::Base, palette().color(QPalette::Window));
    txtSyosai->setPalette(pal);
    PutFreeColHeaders(lstModel);
    const double tpp = TwipsPerPixel();
    for (int i = 0; i < 6; ++i)
        lstD88->setColumnWidth(i, qRound(Cfg.ColWidth[i] / tpp));
    if (Cfg.ViewScrCom == 1) {
        menus.mnuViewScrCom->setChecked(true);
        fraScrCom->setVisible(true);
        const int list = qRound(4095 / tpp);
        splMain->setSizes({list, qMax(200, width() - list)});
    }
    if (Cfg.ViewGrid == 1) {
        menus.mnuViewGrid->setChecked(true);
        lstD88->setShowGrid(true);
    }
    // The footer switches, PutFreeColName of the catalogue's own model, and the rest.
    if (catalogue_)
        catalogue_->CfgApplied(*this);
}

void frmMain::CreateLstObj()
{
    if (catalogue_)
        catalogue_->CreateLstObj(*this);
}

void frmMain::ReleaseLstObj()
{
    if (catalogue_)
        catalogue_->ReleaseLstObj(*this);
}

bool frmMain::InitLst(int family)
{
    // Without the catalogue code no file can be read, so a catalogue file is not accepted.
    return catalogue_ && catalogue_->InitLst(*this, family);
}

void frmMain::SelectFamily(int family)
{
    // An index the box doesn't have leaves it as it is; family 0 keeps the window usable.
    cbxHardWare->setCurrentIndex(family >= 0 && family <= 2 ? family : 0);
}

void frmMain::CenterOnScreen()
{
    const QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
    if (!s)
        return;
    const QRect r = s->geometry();
    move(r.x() + (r.width() - width()) / 2, r.y() + (r.height() - height()) / 2);
}

void frmMain::PlaceWindow()
{
    const double tpp = TwipsPerPixel();
    if (Cfg.WinChangeFlag == 1) {
        if (Cfg.WinWidth > 0 && Cfg.WinHeight > 0)
            resize(qRound(Cfg.WinWidth / tpp), qRound(Cfg.WinHeight / tpp));
        if (Cfg.WinAppearance == 1)
            move(qRound(Cfg.WinLeft / tpp), qRound(Cfg.WinTop / tpp));
        else
            CenterOnScreen();
        if (Cfg.WinState == 1)
            setWindowState(Qt::WindowMinimized);
        else if (Cfg.WinState == 2)
            setWindowState(Qt::WindowMaximized);
        else
            setWindowState(Qt::WindowNoState);
    } else {
        resize(kDesignWidth, kDesignHeight);
        CenterOnScreen();
    }
}

bool frmMain::TrayAvailable()
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void frmMain::SetTaskIcon()
{
    if (!tray_) {
        tray_ = new QSystemTrayIcon(windowIcon(), this);
        tray_->setObjectName(QStringLiteral("trayIcon"));
        tray_->setContextMenu(menus.mnuTaskBar);
        // The desktop opens the menu by itself; while the window is held by a dialog, a drop
        // or a launch its entries do nothing, so that the exit can't cut into them.
        connect(menus.mnuTaskBar, &QMenu::aboutToShow, this, [this] {
            const bool free = isEnabled() && !QApplication::activeModalWidget();
            menus.mnuTaskBarTORVOpen->setEnabled(free);
            menus.mnuTaskBarTORVClose->setEnabled(free);
        });
        connect(tray_, &QSystemTrayIcon::activated, this,
                [this](QSystemTrayIcon::ActivationReason r) {
                    // The tray does nothing while a modal dialog holds the window.
                    if (r == QSystemTrayIcon::DoubleClick && isEnabled() &&
                        !QApplication::activeModalWidget())
                        TrayOpen();
                });
    }
    const QVersionNumber v = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    QString tip = QStringLiteral("TORVANE  Ver %1.%2").arg(v.majorVersion()).arg(v.minorVersion());
    if (v.microVersion() >= 1)
        tip += QString::number(v.microVersion());
    tray_->setToolTip(tip);
    tray_->show();
}

void frmMain::RemoveTaskIcon()
{
    if (tray_)
        tray_->hide();
}

void frmMain::TrayOpen()
{
    Qt::WindowStates s = Qt::WindowNoState;
    if (TrayWindowState == 2)
        s = Qt::WindowMaximized;
    setWindowState(s);
    setVisible(true);
    raise();
    activateWindow();
}

void frmMain::ShowCfgDialog()
{
    if (showCfgDialog)
        showCfgDialog(*this);
}

QString frmMain::SelectedKey()
{
    return catalogue_ ? catalogue_->SelectedKey(*this) : QString();
}

std::array<float, 6> frmMain::ColumnWidths()
{
    const double tpp = TwipsPerPixel();
    std::array<float, 6> w{};
    for (int i = 0; i < 6; ++i)
        w[i] = static_cast<float>(lstD88->columnWidth(i) * tpp);
    return w;
}

int frmMain::WindowState()
{
    if (isMinimized())
        return 1;
    if (isMaximized())
        return 2;
    return 0;
}

void frmMain::RestoreNormalVisible()
{
    setWindowState(Qt::WindowNoState);
    setVisible(true);
}

std::array<float, 4> frmMain::WindowGeometry()
{
    const double tpp = TwipsPerPixel();
    const QRect g = frameGeometry();
    return {static_cast<float>(height() * tpp), static_cast<float>(width() * tpp),
            static_cast<float>(g.x() * tpp), static_cast<float>(g.y() * tpp)};
}

void frmMain::UnloadOtherForms()
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this && w->objectName() != QStringLiteral("frmMain") && w->isVisible())
            w->close();
}

void frmMain::SetTitleCount(const QString& ken, const QString& cap)
{
    if (title_) {
        title_->lblLstKen->setText(ken);
        title_->lblLstCap->setText(cap);
    }
}

void frmMain::FailStart()
{
    if (startup_)
        startup_->StartFail();
    std::exit(1);
}

bool frmMain::HasSelectedItem()
{
    return catalogue_ && catalogue_->HasSelectedItem(*this);
}

void frmMain::SetStatusText(const QString& text)
{
    if (catalogue_)
        catalogue_->SetStatusText(*this, text);
}

void frmMain::SetMainEnabled(bool on)
{
    setEnabled(on);
}

void frmMain::MinimiseMain()
{
    // A window on screen holds the state it is to come back to (as Form_Resize keeps it);
    // one that waits minimised or in the tray keeps the state it had before that.
    if (isVisible() && !isMinimized())
        TrayWindowState = isMaximized() ? 2 : 0;
    setWindowState(windowState() | Qt::WindowMinimized);
}

void frmMain::RestoreMain()
{
    // Back to the state before the window was last minimised; the minimise may have hidden it
    // into the tray.
    setWindowState(TrayWindowState == 2 ? Qt::WindowMaximized : Qt::WindowNoState);
    show();
    QApplication::processEvents();
    raise();
    activateWindow();
}

void frmMain::RefreshItemDetail()
{
    if (catalogue_)
        catalogue_->RefreshAfterLaunch(*this);
}

std::optional<int> frmMain::P88SaveSlot()
{
    return catalogue_ ? catalogue_->P88SaveSlot(*this) : std::nullopt;
}

QObject* frmMain::Owner()
{
    return this;
}

void frmMain::closeEvent(QCloseEvent* e)
{
    // A window held by a drop or a launch doesn't end under them.
    if (!isEnabled()) {
        e->ignore();
        return;
    }
    if (startup_ && !unloaded_) {
        unloaded_ = true;
        startup_->FormUnload();
    }
    e->accept();
}

void frmMain::changeEvent(QEvent* e)
{
    // Form_Resize: the last state that was not minimised is what the tray restores.
    if (e->type() == QEvent::WindowStateChange && !isMinimized())
        TrayWindowState = isMaximized() ? 2 : 0;
    QMainWindow::changeEvent(e);
}

} // namespace tv
