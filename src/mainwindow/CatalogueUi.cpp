#include "mainwindow/CatalogueUi.h"

#include "mainwindow/MainMenus.h"

#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/ListCommands.h"
#include "data/clsLst.h"
#include "launch/MainWindowLink.h"
#include "launch/ManualFile.h"
#include "mainwindow/frmSearch.h"
#include "platform/MsgBox.h"
#include "registration/frmDDAdd.h"
#include "util/Globals.h"
#include "util/Help.h"
#include "util/SubFunction.h"

#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace tv {

namespace {

const QColor kRed(255, 0, 0);
const QColor kBlack(0, 0, 0);

double twipsPerPixel(const QWidget* w)
{
    const QScreen* s = w && w->screen() ? w->screen() : QGuiApplication::primaryScreen();
    const double dpi = s ? s->logicalDotsPerInchX() : 96.0;
    return dpi > 0 ? 1440.0 / dpi : 15.0;
}

} // namespace

void ClickLabel::mousePressEvent(QMouseEvent* e)
{
    QLabel::mousePressEvent(e);
    if (e->button() == Qt::LeftButton && isEnabled())
        emit clicked();
}

CatalogueUi::CatalogueUi(const CatalogueWidgets& w, QObject* parent) : QObject(parent), w_(w)
{
    model_ = new TitleListModel(this);
    QTableView* v = w_.lstD88;
    v->setModel(model_);
    v->setSelectionBehavior(QAbstractItemView::SelectRows);
    v->setSelectionMode(QAbstractItemView::SingleSelection);
    v->setEditTriggers(QAbstractItemView::NoEditTriggers);
    v->setSortingEnabled(false); // sorted once per click, by the sort keys
    v->setWordWrap(false);
    // Scrolling goes by whole rows: the tracking selection moves the list a line at a time.
    v->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    v->setIconSize(QSize(16, 16));
    // Fixed row heights keep a list of tens of thousands of rows fast.
    v->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    v->verticalHeader()->setDefaultSectionSize(v->fontMetrics().height() + 4);
    v->verticalHeader()->hide();
    v->horizontalHeader()->setSectionsClickable(true);
    v->horizontalHeader()->setHighlightSections(false);
    connect(v->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int section) { lstD88_ColumnClick(section + 1); });
    // Tab leaves the list for the next control, as on any desktop.
    v->setTabKeyNavigation(false);
    // A press on the list starts the tracking selection; its release shows the row.
    v->viewport()->installEventFilter(this);
    // Files dropped from the desktop are registered in bulk.
    v->viewport()->setAcceptDrops(true);
    trackTimer_ = new QTimer(this);
    trackTimer_->setInterval(50);
    connect(trackTimer_, &QTimer::timeout, this, [this] { trackStep(); });
    connect(v->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& cur) {
                if (cur.isValid() && !sortReentry_ && !tracking_)
                    ShowItemDetail();
            });

    if (w_.statusBar) {
        stbPanel1_ = new QLabel(kNothingSelectedText, w_.statusBar);
        stbPanel1_->setObjectName(QStringLiteral("stbPanel1"));
        w_.statusBar->insertPermanentWidget(0, stbPanel1_, 1);
    }
    buildFooters();
    buildSaveLabels();
    buildPopup();
    connectMenus();
}

QAction* CatalogueUi::mnuPop(const QString& name) const
{
    auto it = popActions_.find(name);
    return it == popActions_.end() ? nullptr : it->second;
}

QAction* CatalogueUi::mainRunEntry(int entry) const
{
    return w_.menus && entry >= 1 && entry <= 9 ? w_.menus->runEntry(entry) : nullptr;
}

QAction* CatalogueUi::mainSortEntry(int key) const
{
    return w_.menus && key >= 0 && key <= kMaxSortKey ? w_.menus->mnuViewSortRun[size_t(key)]
                                                      : nullptr;
}

QPushButton* CatalogueUi::cmdEmuRun(int emuCode) const
{
    auto it = cmdEmuRun_.find(emuCode);
    return it == cmdEmuRun_.end() ? nullptr : it->second;
}

void CatalogueUi::buildFooters()
{
    for (int fam = 0; fam < 3; ++fam) {
        QFrame* f = w_.fraFotter[size_t(fam)];
        if (!f)
            continue;
        auto* lay = qobject_cast<QHBoxLayout*>(f->layout());
        if (!lay) {
            delete f->layout();
            lay = new QHBoxLayout(f);
        }
        lay->setContentsMargins(4, 2, 4, 2);
        lay->setSpacing(4);
        // Six buttons in every frame; the families with fewer emulators show "-----".
        for (int i = 1; i <= 6; ++i) {
            const int code = fam * 10 + i;
            auto* b = new QPushButton(EmuRunCaption(fam, i), f);
            b->setObjectName(QStringLiteral("cmdEmuRun(%1)").arg(code));
            b->setEnabled(false);
            b->setMinimumWidth(84);
            if (FamilyOfEmuCode(code) == fam)
                connect(b, &QPushButton::clicked, this,
                        [this, code] { emit emuRunRequested(code); });
            cmdEmuRun_[code] = b;
            lay->addWidget(b);
        }
        lay->addSpacing(8);
        auto* def = new QCheckBox(QStringLiteral("Def Opt"), f);
        def->setObjectName(QStringLiteral("chkDefOpt(%1)").arg(fam));
        connect(def, &QCheckBox::clicked, this, [def] {
            Cfg.DefOpt = def->isChecked() ? 1 : 0;
            SaveCfg();
        });
        chkDefOpt_[size_t(fam)] = def;
        lay->addWidget(def);
        auto* pat = new QCheckBox(QStringLiteral("Use PAR"), f);
        pat->setObjectName(QStringLiteral("chkPatUse(%1)").arg(fam));
        connect(pat, &QCheckBox::clicked, this, [this, pat] {
            Cfg.PatUse = pat->isChecked() ? 1 : 0;
            // PAT and PAN exclude one another: setting one clears the other.
            if (Cfg.PatUse == 1 && chkPanUse_) {
                Cfg.PanUse = 0;
                chkPanUse_->setChecked(false);
            }
            SaveCfg();
        });
        chkPatUse_[size_t(fam)] = pat;
        lay->addWidget(pat);
        if (fam == 0) {
            chkPanUse_ = new QCheckBox(QStringLiteral("Use PAN"), f);
            chkPanUse_->setObjectName(QStringLiteral("chkPanUse"));
            connect(chkPanUse_, &QCheckBox::clicked, this, [this] {
                Cfg.PanUse = chkPanUse_->isChecked() ? 1 : 0;
                if (Cfg.PanUse == 1) {
                    Cfg.PatUse = 0;
                    for (QCheckBox* c : chkPatUse_)
                        if (c)
                            c->setChecked(false);
                }
                SaveCfg();
            });
            lay->addWidget(chkPanUse_);
        }
        lay->addStretch(1);
        auto* man = new QPushButton(QStringLiteral("Manual(&N)"), f);
        man->setObjectName(QStringLiteral("cmdManFile(%1)").arg(fam));
        man->setEnabled(false);
        connect(man, &QPushButton::clicked, this, [this, fam] {
            cmdManFile_Click(fam);
            emit manFileRequested(fam);
        });
        cmdManFile_[size_t(fam)] = man;
        lay->addWidget(man);
        auto* none = new QPushButton(QStringLiteral("No Select"), f);
        none->setObjectName(QStringLiteral("cmdNoSelect(%1)").arg(fam));
        connect(none, &QPushButton::clicked, this, [this] {
            sortReentry_ = true;
            w_.lstD88->clearSelection();
            w_.lstD88->setCurrentIndex(QModelIndex());
            sortReentry_ = false;
            ClearItemDetail();
        });
        cmdNoSelect_[size_t(fam)] = none;
        lay->addWidget(none);
        auto* help = new QPushButton(QStringLiteral("?"), f);
        help->setObjectName(QStringLiteral("cmdHelpContext(%1)").arg(fam));
        help->setToolTip(QStringLiteral("ヘルプ"));
        help->setMaximumWidth(32);
        connect(help, &QPushButton::clicked, this, [this] { cmdHelpContext_Click(); });
        cmdHelpContext_[size_t(fam)] = help;
        lay->addWidget(help);
    }
}

void CatalogueUi::buildSaveLabels()
{
    if (!w_.fraScrCom)
        return;
    auto* box = new QWidget(w_.fraScrCom);
    box->setObjectName(QStringLiteral("fraSaveData"));
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    lblP88Save_ = new ClickLabel(QStringLiteral("P88SR SV"), box);
    lblP88Save_->setObjectName(QStringLiteral("lblP88Save"));
    connect(lblP88Save_, &ClickLabel::clicked, this, [this] { lblP88Save_Click(); });
    lblM88Save_ = new QLabel(QStringLiteral("M88 S88"), box);
    lblM88Save_->setObjectName(QStringLiteral("lblM88Save"));
    grid->addWidget(lblP88Save_, 0, 0);
    grid->addWidget(lblM88Save_, 1, 0);
    for (int i = 0; i < 10; ++i) {
        auto* p = new ClickLabel(QString::number(i), box);
        p->setObjectName(QStringLiteral("lblP88SaveData(%1)").arg(i));
        p->setEnabled(false);
        connect(p, &ClickLabel::clicked, this, [this, i] { lblP88SaveData_Click(i); });
        lblP88SaveData_[size_t(i)] = p;
        grid->addWidget(p, 0, i + 1);
        auto* m = new QLabel(QString::number(i), box);
        m->setObjectName(QStringLiteral("lblM88SaveData(%1)").arg(i));
        m->setEnabled(false);
        lblM88SaveData_[size_t(i)] = m;
        grid->addWidget(m, 1, i + 1);
    }
    grid->setColumnStretch(11, 1);
    lblP88Save_->setVisible(false);
    lblM88Save_->setVisible(false);
    if (auto* lay = qobject_cast<QBoxLayout*>(w_.fraScrCom->layout()))
        lay->addWidget(box);
}

void CatalogueUi::buildPopup()
{
    mnuPop_ = new QMenu(w_.lstD88);
    mnuPop_->setObjectName(QStringLiteral("mnuPop"));
    QMenu* run = mnuPop_->addMenu(QStringLiteral("起動(&R)"));
    run->setObjectName(QStringLiteral("mnuPopEmuRun"));
    popActions_[QStringLiteral("mnuPopEmuRun")] = run->menuAction();
    for (int i = 1; i <= 9; ++i) {
        QAction* a = run->addAction(QStringLiteral("-----"));
        const QString name = QStringLiteral("mnuPopEmuRunEach(%1)").arg(i);
        a->setObjectName(name);
        a->setEnabled(false);
        connect(a, &QAction::triggered, this,
                [this, i] { emit emuRunRequested(i + 10 * HardWare); });
        popActions_[name] = a;
    }
    run->addSeparator();
    QAction* man = run->addAction(QStringLiteral("マニュアル(&N)"));
    man->setObjectName(QStringLiteral("mnuPopEmuRunMan"));
    man->setEnabled(false);
    connect(man, &QAction::triggered, this, [this] {
        if (HardWare <= 2 && cmdManFile_[HardWare] && cmdManFile_[HardWare]->isEnabled())
            cmdManFile_[HardWare]->click();
    });
    popActions_[QStringLiteral("mnuPopEmuRunMan")] = man;

    QAction* change = mnuPop_->addAction(QStringLiteral("アイテム編集(&C)..."));
    change->setObjectName(QStringLiteral("mnuPopChangeItem"));
    // Enabled by the main window, which owns the registration dialog.
    change->setEnabled(false);
    popActions_[change->objectName()] = change;
    QAction* del = mnuPop_->addAction(QStringLiteral("アイテム削除(&D)"));
    del->setObjectName(QStringLiteral("mnuPopDeleteItem"));
    del->setEnabled(false);
    connect(del, &QAction::triggered, this, [this] { mnuPopDeleteItem_Click(); });
    popActions_[del->objectName()] = del;
    mnuPop_->addSeparator();
    mnuPop_->setToolTipsVisible(true);

    QMenu* sort = mnuPop_->addMenu(QStringLiteral("並べ替え(&S)"));
    sort->setObjectName(QStringLiteral("mnuPopSort"));
    popActions_[QStringLiteral("mnuPopSort")] = sort->menuAction();
    for (int k = 0; k < int(kSortFamilies.size()); ++k) {
        QMenu* m = sort->addMenu(QString::fromUtf8(kSortFamilies[size_t(k)].caption));
        m->setObjectName(QStringLiteral("mnuPopSort") +
                         QString::fromLatin1(kSortFamilies[size_t(k)].name));
        popActions_[m->objectName()] = m->menuAction();
        for (int d = 0; d < 2; ++d) {
            const int key = 2 * k + d;
            QAction* a =
                m->addAction(d == 0 ? QStringLiteral("昇順(&A)") : QStringLiteral("降順(&D)"));
            a->setObjectName(SortEntryName(QStringLiteral("mnuPop"), key));
            a->setCheckable(true);
            connect(a, &QAction::triggered, this, [this, key] { mnuViewSortRun_Click(key); });
            popActions_[a->objectName()] = a;
        }
    }
    w_.lstD88->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(w_.lstD88, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& p) { ShowPopup(w_.lstD88->viewport()->mapToGlobal(p)); });
    // Space on the list opens the same menu, below the current row.
    w_.lstD88->installEventFilter(this);
}

void CatalogueUi::ShowPopup(const QPoint& globalPos)
{
    // Nothing to show for an empty catalogue.
    if (LstObj.GetLstMaxCnt() < 1) {
        popActions_[QStringLiteral("mnuPopSort")]->setEnabled(false);
        return;
    }
    popActions_[QStringLiteral("mnuPopSort")]->setEnabled(true);
    if (selectedRow() >= 0)
        ShowItemDetail();
    else
        ClearItemDetail();
    mnuPop_->popup(globalPos);
}

bool CatalogueUi::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == w_.lstD88->viewport()) {
        switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto* m = static_cast<QMouseEvent*>(event);
            if (m->button() != Qt::LeftButton || model_->rowCount() < 1)
                break;
            w_.lstD88->setFocus(Qt::MouseFocusReason);
            trackPress(m->position().toPoint());
            return true; // the selection waits for the release
        }
        case QEvent::MouseButtonDblClick: {
            auto* m = static_cast<QMouseEvent*>(event);
            if (m->button() != Qt::LeftButton)
                break;
            // The first click's release has made the row the selection.
            const QModelIndex at = w_.lstD88->indexAt(m->position().toPoint());
            if (at.isValid())
                emit w_.lstD88->doubleClicked(at);
            return true;
        }
        case QEvent::MouseMove:
            if (tracking_) {
                trackMove(static_cast<QMouseEvent*>(event)->position().toPoint());
                return true; // the list's own drag selection stays out of it
            }
            break;
        case QEvent::MouseButtonRelease:
            if (tracking_ && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
                trackMove(static_cast<QMouseEvent*>(event)->position().toPoint());
                trackRelease();
            }
            break;
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return fileDropEvent(static_cast<QDropEvent*>(event));
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }
    if (watched == w_.lstD88 && event->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(event);
        if (k->key() == Qt::Key_Delete && k->modifiers() == Qt::NoModifier) {
            if (QAction* del = mnuPop(QStringLiteral("mnuPopDeleteItem")); del && del->isEnabled())
                mnuPopDeleteItem_Click();
            return true;
        }
        if (k->key() == Qt::Key_Space && k->modifiers() == Qt::NoModifier) {
            QPoint at(0, 0);
            const int r = selectedRow();
            if (r >= 0) {
                const QRect rect = w_.lstD88->visualRect(model_->index(r, 0));
                if (rect.isValid())
                    at = rect.bottomLeft();
            }
            ShowPopup(w_.lstD88->viewport()->mapToGlobal(at));
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool CatalogueUi::fileDropEvent(QDropEvent* event)
{
    const QStringList files = DroppedFiles(event->mimeData());
    const bool open = w_.window == nullptr || w_.window->isEnabled();
    if (files.isEmpty() || HardWare > 2 || !open) {
        event->ignore();
        return true;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (event->type() == QEvent::Drop) {
        // The drag source gets its answer first; the registration runs at the next turn.
        QTimer::singleShot(0, this, [this, files] { RunFileDrop(files, this, w_.window); });
    }
    return true;
}

void CatalogueUi::connectMenus()
{
    const MainMenus* m = w_.menus;
    if (!m)
        return;
    for (int key = 0; key <= kMaxSortKey; ++key) {
        QAction* a = m->mnuViewSortRun[size_t(key)];
        a->setCheckable(true);
        a->setEnabled(true);
        connect(a, &QAction::triggered, this, [this, key] { mnuViewSortRun_Click(key); });
    }
    m->mnuViewGrid->setCheckable(true);
    m->mnuViewGrid->setEnabled(true);
    connect(m->mnuViewGrid, &QAction::triggered, this, [this] { mnuViewGrid_Click(); });
    m->mnuViewScrCom->setCheckable(true);
    m->mnuViewScrCom->setEnabled(true);
    connect(m->mnuViewScrCom, &QAction::triggered, this, [this] { mnuViewScrCom_Click(); });
    m->munViewColumnClear->setEnabled(true);
    connect(m->munViewColumnClear, &QAction::triggered, this,
            [this] { munViewColumnClear_Click(); });
    m->mnuEditNoSelect->setEnabled(true);
    connect(m->mnuEditNoSelect, &QAction::triggered, this, [this] {
        if (HardWare <= 2)
            cmdNoSelect_[HardWare]->click();
    });
    for (int i = 1; i <= 9; ++i)
        connect(m->runEntry(i), &QAction::triggered, this,
                [this, i] { emit emuRunRequested(i + 10 * HardWare); });
    connect(m->mnuEditDeleteItem, &QAction::triggered, this, [this] { mnuPopDeleteItem_Click(); });
    m->mnuEditSearch->setEnabled(true);
    connect(m->mnuEditSearch, &QAction::triggered, this, [this] { mnuEditSearch_Click(); });
    connect(m->mnuEmuRunMan, &QAction::triggered, this, [this] {
        if (HardWare <= 2 && cmdManFile_[HardWare]->isEnabled())
            cmdManFile_[HardWare]->click();
    });
}

// --- Family and list --------------------------------------------------------------------

void CatalogueUi::FamilyChanged(int family)
{
    ClearItemDetail();
    LoadList();
    for (int i = 0; i < 3; ++i)
        if (w_.fraFotter[size_t(i)])
            w_.fraFotter[size_t(i)]->setVisible(i == family);
    if (family >= 0 && family <= 2) {
        chkDefOpt_[size_t(family)]->setChecked(Cfg.DefOpt == 1);
        chkPatUse_[size_t(family)]->setChecked(Cfg.PatUse == 1);
    }
    for (int i = 1; i <= 9; ++i) {
        const QString caption = EmuRunCaption(family, i);
        if (QAction* a = mainRunEntry(i))
            a->setText(caption);
        if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRunEach(%1)").arg(i)))
            a->setText(caption);
    }
}

void CatalogueUi::setStatus(const QString& text)
{
    if (stbPanel1_)
        stbPanel1_->setText(text);
}

void CatalogueUi::setCaption()
{
    if (w_.window)
        w_.window->setWindowTitle(ListWindowCaption(LstObj.GetLstMaxCnt()));
}

void CatalogueUi::LoadList()
{
    sortReentry_ = true;
    setStatus(kNothingSelectedText);
    const bool splash = TitleClosed == 0;
    auto yield = [this] {
        if (w_.yield)
            w_.yield();
        else
            QCoreApplication::processEvents();
    };
    w_.lstD88->setVisible(false);
    // The counter is painted only when the event loop runs, so it is set and the loop served
    // at the first and last row and otherwise every 30 ms: the same sight for the user at a
    // fraction of the cost of a repaint per row.
    QElapsedTimer since;
    since.start();
    const LoadListOutcome out = FillTitleList(*model_, HardWare, [&](int32_t count, int32_t total) {
        if (count != 0 && count != total && since.elapsed() < 30)
            return;
        since.restart();
        if (splash)
            Window().SetTitleCount(QString::number(count), QStringLiteral("件 ／ ") +
                                                               QString::number(total) +
                                                               QStringLiteral(" 件"));
        else
            setStatus(ListCountText(count, total));
        yield();
    });
    w_.lstD88->setVisible(true);
    sortReentry_ = false;

    if (out.status == LoadListStatus::BadFamily) {
        MsgBox(QStringLiteral("Lstが不正です。起動できません\nご連絡下さい"), MbExclamation);
        Window().FailStart();
        return;
    }
    if (out.status == LoadListStatus::BadVersion) {
        MsgBox(QStringLiteral(
                   "TORVANE.LSTのVersionが違います\nRECASTnn.EXEにてコンバートしてください"),
               MbExclamation);
        Window().FailStart();
        return;
    }
    if (out.status == LoadListStatus::Created) {
        // A new, empty catalogue starts in file order.
        ClearSortCheck();
        Cfg.SortKey = 0;
        SetSortCheck(0);
    } else if (splash && out.notedRow >= 0 && model_->rowCount() > 0) {
        selectRow(out.notedRow);
        ShowItemDetail();
    } else {
        ClearItemDetail();
    }
    if (w_.menus)
        w_.menus->mnuViewSort->menuAction()->setEnabled(true);
    if (Cfg.SortKey == 0) {
        SetSortCheck(0);
    } else {
        // Re-applied directly: key 1 is the reverse of the file order just loaded, with no
        // second load.
        const int key = Cfg.SortKey;
        ClearSortCheck();
        sortReentry_ = true;
        if (key <= kMaxSortKey)
            model_->applySortKey(key);
        sortReentry_ = false;
        SetSortCheck(key);
    }
    if (model_->rowCount() > 0 && selectedRow() >= 0)
        w_.lstD88->scrollTo(model_->index(selectedRow(), 0), QAbstractItemView::EnsureVisible);
    setCaption();
}

void CatalogueUi::ClearSortCheck()
{
    const int key = Cfg.SortKey;
    if (QAction* a = mainSortEntry(key))
        a->setChecked(false);
    if (QAction* a = mnuPop(SortEntryName(QStringLiteral("mnuPop"), key)))
        a->setChecked(false);
}

void CatalogueUi::SetSortCheck(int key)
{
    // Exactly one entry of each menu carries the tick.
    for (int k = 0; k <= kMaxSortKey; ++k) {
        if (QAction* a = mainSortEntry(k))
            a->setChecked(k == key);
        if (QAction* a = mnuPop(SortEntryName(QStringLiteral("mnuPop"), k)))
            a->setChecked(k == key);
    }
    auto* h = w_.lstD88->horizontalHeader();
    if (key >= 2) {
        h->setSortIndicatorShown(true);
        h->setSortIndicator(SortColumnOfKey(key),
                            SortKeyDescending(key) ? Qt::DescendingOrder : Qt::AscendingOrder);
    } else {
        h->setSortIndicatorShown(false);
    }
}

void CatalogueUi::SortList(int key)
{
    ClearSortCheck();
    Cfg.SortKey = uint8_t(key);
    sortReentry_ = true;
    model_->sortByColumn(SortColumnOfKey(key), SortKeyDescending(key));
    sortReentry_ = false;
    SaveCfg();
}

void CatalogueUi::lstD88_ColumnClick(int column)
{
    if (column < 1 || column > kListColumns)
        return;
    const int key = ColumnClickKey(column, Cfg.SortKey);
    SortList(key);
    SetSortCheck(key);
}

void CatalogueUi::mnuViewSortRun_Click(int key)
{
    if (key < 0 || key > kMaxSortKey)
        return;
    if (key >= 2) {
        SortList(key);
        SetSortCheck(key);
        return;
    }
    // File order is reached by loading anew; key 1 then reverses it within LoadList.
    ClearSortCheck();
    Cfg.SortKey = uint8_t(key);
    SetSortCheck(key);
    LoadList();
    ClearItemDetail();
    SaveCfg();
}

void CatalogueUi::mnuViewGrid_Click()
{
    Cfg.ViewGrid = Cfg.ViewGrid == 1 ? 0 : 1;
    if (w_.menus)
        w_.menus->mnuViewGrid->setChecked(Cfg.ViewGrid == 1);
    w_.lstD88->setShowGrid(Cfg.ViewGrid == 1);
    SaveCfg();
}

void CatalogueUi::mnuViewScrCom_Click()
{
    Cfg.ViewScrCom = Cfg.ViewScrCom == 1 ? 0 : 1;
    const bool on = Cfg.ViewScrCom == 1;
    if (w_.menus)
        w_.menus->mnuViewScrCom->setChecked(on);
    if (w_.fraScrCom)
        w_.fraScrCom->setVisible(on);
    if (on)
        if (auto* split = qobject_cast<QSplitter*>(w_.lstD88->parentWidget())) {
            const int list = qRound(4095 / twipsPerPixel(w_.lstD88));
            const int total = split->width();
            split->setSizes({list, std::max(1, total - list)});
        }
    SaveCfg();
}

void CatalogueUi::applyColumnWidths()
{
    const double tpp = twipsPerPixel(w_.lstD88);
    for (int i = 0; i < kListColumns; ++i)
        w_.lstD88->setColumnWidth(i, qRound(Cfg.ColWidth[size_t(i)] / tpp));
}

void CatalogueUi::munViewColumnClear_Click()
{
    CfgRecord defaults;
    SetDefaultCfg(defaults);
    Cfg.ColWidth = defaults.ColWidth;
    applyColumnWidths();
}

void CatalogueUi::PutFreeColName()
{
    const QString c1 = VbTrim(Cfg.FreeColName1);
    const QString c2 = VbTrim(Cfg.FreeColName2);
    model_->setColumnCaption(3, c1);
    model_->setColumnCaption(4, c2);
    if (w_.menus) {
        w_.menus->mnuViewSortFamily[4]->menuAction()->setText(c1);
        w_.menus->mnuViewSortFamily[5]->menuAction()->setText(c2);
    }
    if (QAction* a = mnuPop(QStringLiteral("mnuPopSortCol1")))
        a->setText(c1);
    if (QAction* a = mnuPop(QStringLiteral("mnuPopSortCol2")))
        a->setText(c2);
}

void CatalogueUi::ApplyCfg()
{
    PutFreeColName();
    // The stored widths come once, at start-up; later the user's widths stand until the exit
    // stores them, whatever dialog changes the configuration meanwhile.
    if (!widthsApplied_) {
        widthsApplied_ = true;
        applyColumnWidths();
    }
    for (QCheckBox* c : chkPatUse_)
        if (c)
            c->setChecked(Cfg.PatUse == 1);
    if (HardWare <= 2 && chkDefOpt_[HardWare])
        chkDefOpt_[HardWare]->setChecked(Cfg.DefOpt == 1);
    const QString pan = VbTrim(Cfg.FmPanFile);
    const bool panOk = !pan.isEmpty() && !FindFile(pan).isEmpty();
    if (chkPanUse_) {
        chkPanUse_->setChecked(panOk && Cfg.PanUse == 1);
        chkPanUse_->setEnabled(panOk);
    }
    if (w_.fraScrCom)
        w_.fraScrCom->setVisible(Cfg.ViewScrCom == 1);
    if (w_.menus) {
        w_.menus->mnuViewScrCom->setChecked(Cfg.ViewScrCom == 1);
        w_.menus->mnuViewGrid->setChecked(Cfg.ViewGrid == 1);
    }
    w_.lstD88->setShowGrid(Cfg.ViewGrid == 1);
    // A selected row is shown anew under the changed configuration (directories, use flags);
    // without one the pane shows the no-picture image.
    if (selectedRow() >= 0) {
        ShowItemDetail();
    } else if (w_.imgScr && !NoImagePicture.isNull()) {
        picture_ = NoImagePicture;
        ShowNoImage(picture_);
        showPicture(picture_);
    }
}

int CatalogueUi::selectedRow() const
{
    const QModelIndexList rows = w_.lstD88->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QString CatalogueUi::SelectedKey() const
{
    const int r = selectedRow();
    return r < 0 ? QString() : model_->key(r);
}

void CatalogueUi::selectRow(int row)
{
    if (row < 0 || row >= model_->rowCount())
        return;
    const bool guard = sortReentry_;
    sortReentry_ = true;
    w_.lstD88->setCurrentIndex(model_->index(row, 0));
    w_.lstD88->selectRow(row);
    sortReentry_ = guard;
}

// --- Detail pane -------------------------------------------------------------------------

void CatalogueUi::showPicture(const QImage& img)
{
    if (!w_.imgScr)
        return;
    QPixmap pm = QPixmap::fromImage(img);
    const QSize box = w_.imgScr->size().boundedTo(QSize(640, 400)).expandedTo(QSize(160, 100));
    if (!pm.isNull() && (pm.width() > box.width() || pm.height() > box.height()))
        pm = pm.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    w_.imgScr->setPixmap(pm);
}

void CatalogueUi::setLabelColour(QLabel* l, const QColor& c)
{
    // Enabled labels only: a disabled one keeps the style's grey, so that the slots without a
    // save state stand apart from those with one.
    QPalette p = l->palette();
    p.setColor(QPalette::Active, QPalette::WindowText, c);
    p.setColor(QPalette::Inactive, QPalette::WindowText, c);
    l->setPalette(p);
}

QColor CatalogueUi::labelColour(const QLabel* l)
{
    return l->palette().color(QPalette::Active, QPalette::WindowText);
}

void CatalogueUi::setEmuEnabled(int emuCode, bool on)
{
    if (QPushButton* b = cmdEmuRun(emuCode))
        b->setEnabled(on);
    const int entry = emuCode - 10 * FamilyOfEmuCode(emuCode);
    if (QAction* a = mainRunEntry(entry))
        a->setEnabled(on);
    if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRunEach(%1)").arg(entry)))
        a->setEnabled(on);
}

void CatalogueUi::ShowItemDetail()
{
    const int r = selectedRow();
    if (r < 0 || HardWare > 2)
        return;
    const int fam = HardWare;
    LstObj.GetLst(model_->seekPointer(r));

    picturePath_ = FindItemPicture(LstObj, fam, picture_);
    showPicture(picture_);

    if (w_.txtSyosai)
        w_.txtSyosai->setPlainText(
            ItemDetailText(LstObj).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));

    if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRun")))
        a->setEnabled(true);
    if (w_.menus)
        w_.menus->mnuEmuRun->menuAction()->setEnabled(true);

    // Everything off, then exactly the emulators that can take the start file.
    for (int entry = 1; entry <= 9; ++entry) {
        if (QAction* a = mainRunEntry(entry))
            a->setEnabled(false);
        if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRunEach(%1)").arg(entry)))
            a->setEnabled(false);
    }
    for (auto& [code, b] : cmdEmuRun_)
        b->setEnabled(false);
    const QString start = LstObj.GetStartFileName();
    for (int code : FamilyEmuCodes(fam))
        if (EmuEnabledForItem(code, start))
            setEmuEnabled(code, true);

    // Save states of this title only: the labels of the previous title go first.
    resetSaveLabels();
    lblP88Save_->setVisible(false);
    lblM88Save_->setVisible(false);
    if (fam == 0) {
        if (EmuInUse(1)) {
            const auto p = P88SaveSlots(start);
            for (int i = 0; i < 10; ++i)
                if (p[size_t(i)]) {
                    setLabelColour(lblP88Save_, kRed);
                    lblP88Save_->setVisible(true);
                    lblP88SaveData_[size_t(i)]->setEnabled(true);
                }
        }
        if (EmuInUse(2)) {
            const auto m = M88SaveSlots(start);
            for (int i = 0; i < 10; ++i)
                if (m[size_t(i)]) {
                    setLabelColour(lblM88Save_, kRed);
                    lblM88Save_->setVisible(true);
                    lblM88SaveData_[size_t(i)]->setEnabled(true);
                }
        }
    }

    const bool man = !LstObj.GetManFile().isEmpty();
    cmdManFile_[size_t(fam)]->setEnabled(man);
    if (w_.menus)
        w_.menus->mnuEmuRunMan->setEnabled(man);
    if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRunMan")))
        a->setEnabled(man);

    setDeleteEnabled(true);
    setStatus(ItemStatusText(LstObj));
}

void CatalogueUi::ClearItemDetail()
{
    picturePath_.clear();
    ShowNoImage(picture_);
    showPicture(picture_);
    if (w_.txtSyosai) {
        w_.txtSyosai->clear();
        QPalette p = w_.txtSyosai->palette();
        const QWidget* form = w_.window ? w_.window : w_.txtSyosai->window();
        p.setColor(QPalette::Base, form->palette().color(QPalette::Window));
        w_.txtSyosai->setPalette(p);
    }
    for (int fam = 0; fam < 3; ++fam)
        if (cmdManFile_[size_t(fam)])
            cmdManFile_[size_t(fam)]->setEnabled(false);
    if (w_.menus)
        w_.menus->mnuEmuRunMan->setEnabled(false);
    if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRunMan")))
        a->setEnabled(false);
    for (auto& [code, b] : cmdEmuRun_)
        b->setEnabled(false);
    for (int entry = 1; entry <= 9; ++entry)
        if (QAction* a = mnuPop(QStringLiteral("mnuPopEmuRunEach(%1)").arg(entry)))
            a->setEnabled(false);
    if (HardWare <= 2) {
        for (int entry = 1; entry <= 9; ++entry)
            if (QAction* a = mainRunEntry(entry))
                a->setEnabled(false);
        // With nothing selected an emulator in use starts bare.
        for (int code : FamilyEmuCodes(HardWare))
            setEmuEnabled(code, EmuInUse(code));
    }
    setDeleteEnabled(false);
    setStatus(kNothingSelectedText);
    resetSaveLabels();
}

void CatalogueUi::setDeleteEnabled(bool on)
{
    if (QAction* a = mnuPop(QStringLiteral("mnuPopDeleteItem")))
        a->setEnabled(on);
    if (w_.menus)
        w_.menus->mnuEditDeleteItem->setEnabled(on);
}

// --- Commands ------------------------------------------------------------------------------

void CatalogueUi::mnuPopDeleteItem_Click()
{
    const int r = selectedRow();
    if (r < 0 || HardWare > 2)
        return;
    LstObj.GetLst(model_->seekPointer(r));
    const QString title = LstObj.GetTitle();
    if (MsgBox(QStringLiteral("Title [ ") + title + QStringLiteral(" ]\n削除してよろしいですか？"),
               MbYesNo | MbQuestion | MbDefaultButton2) != MbResYes)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    setStatus(title + QStringLiteral("削除中．． "));
    w_.lstD88->setVisible(false);
    sortReentry_ = true;
    const DeleteItemResult result = DeleteListItem(*model_, r);
    sortReentry_ = false;
    w_.lstD88->setVisible(true);
    QApplication::restoreOverrideCursor();
    if (result != DeleteItemResult::Deleted) {
        // The file was not touched: every record and row stays as it was.
        setStatus(ItemStatusText(LstObj));
        MsgBox(QStringLiteral("カタログファイルに書き込めないため、削除できませんでした。"),
               MbExclamation);
        return;
    }
    setCaption();
    sortReentry_ = true;
    w_.lstD88->clearSelection();
    w_.lstD88->setCurrentIndex(QModelIndex());
    sortReentry_ = false;
    ClearItemDetail();
}

void CatalogueUi::cmdManFile_Click(int family)
{
    if (selectedRow() < 0 || family < 0 || family > 2)
        return;
    LstObj.GetLst(model_->seekPointer(selectedRow()));
    OpenItemManual(LstObj, family, w_.window);
}

void CatalogueUi::cmdHelpContext_Click()
{
    ShowHelpTopic(kHelpMain);
}

void CatalogueUi::mnuEditSearch_Click()
{
    frmSearch dlg(this, w_.window);
    dlg.exec();
}

// --- Tracking selection ------------------------------------------------------------------

void CatalogueUi::trackPress(const QPoint& pos)
{
    if (model_->rowCount() < 1)
        return;
    tracking_ = true;
    trackPos_ = pos;
    // The selection gives way to the drop highlight until the release.
    const int r = w_.lstD88->rowAt(pos.y());
    const int selected = selectedRow();
    sortReentry_ = true;
    w_.lstD88->clearSelection();
    sortReentry_ = false;
    // Below the last row the selection keeps its row.
    model_->setDropHighlight(r >= 0 ? r : selected);
}

void CatalogueUi::trackMove(const QPoint& pos)
{
    trackPos_ = pos;
    trackStep();
    const int h = w_.lstD88->viewport()->height();
    // Beyond an edge the list keeps scrolling by a line while the pointer stands there.
    if (pos.y() < 0 || pos.y() >= h) {
        if (!trackTimer_->isActive())
            trackTimer_->start();
    } else {
        trackTimer_->stop();
    }
}

void CatalogueUi::trackStep()
{
    if (!tracking_)
        return;
    QTableView* v = w_.lstD88;
    const int n = model_->rowCount();
    const int h = v->viewport()->height();
    const int y = trackPos_.y();
    if (y < 0) {
        v->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
        model_->setDropHighlight(v->rowAt(0));
    } else if (y >= h) {
        v->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        const int last = v->rowAt(h - 1);
        if (model_->dropHighlight() >= n - 2 || last < 0)
            model_->setDropHighlight(n - 1);
        else
            model_->setDropHighlight(last);
    } else {
        const int r = v->rowAt(y);
        if (r >= 0)
            model_->setDropHighlight(r);
    }
}

void CatalogueUi::trackRelease()
{
    trackTimer_->stop();
    tracking_ = false;
    const int r = model_->dropHighlight();
    model_->setDropHighlight(-1);
    if (r < 0)
        return;
    selectRow(r);
    w_.lstD88->scrollTo(model_->index(r, 0), QAbstractItemView::EnsureVisible);
    ShowItemDetail();
}

// Every save-state slot back to "no state", both rows.
void CatalogueUi::resetSaveLabels()
{
    for (int i = 0; i < 10; ++i) {
        setLabelColour(lblP88SaveData_[size_t(i)], kBlack);
        lblP88SaveData_[size_t(i)]->setEnabled(false);
        setLabelColour(lblM88SaveData_[size_t(i)], kBlack);
        lblM88SaveData_[size_t(i)]->setEnabled(false);
    }
    setLabelColour(lblP88Save_, kBlack);
    setLabelColour(lblM88Save_, kBlack);
}

std::optional<int> CatalogueUi::P88SaveSlot() const
{
    if (!lblP88Save_ || !lblP88Save_->isEnabled() || labelColour(lblP88Save_) != kBlack)
        return std::nullopt;
    for (int i = 0; i < 10; ++i)
        if (labelColour(lblP88SaveData_[size_t(i)]) == kRed)
            return i;
    return std::nullopt;
}

void CatalogueUi::lblP88Save_Click()
{
    setLabelColour(lblP88Save_, kRed);
    for (ClickLabel* l : lblP88SaveData_)
        if (l->isEnabled())
            setLabelColour(l, kBlack);
}

void CatalogueUi::lblP88SaveData_Click(int index)
{
    if (index < 0 || index > 9)
        return;
    setLabelColour(lblP88Save_, kBlack);
    for (ClickLabel* l : lblP88SaveData_)
        if (l->isEnabled())
            setLabelColour(l, kBlack);
    setLabelColour(lblP88SaveData_[size_t(index)], kRed);
}

// --- A bare main window ------------------------------------------------------------------

CatalogueWidgets CatalogueUi::BuildStandalone(QMainWindow* window, MainMenus* menus)
{
    CatalogueWidgets w;
    w.window = window;
    // The same menus as the main window's, built by the same function.
    *menus = BuildMainMenus(window);
    w.menus = menus;

    auto* central = new QWidget(window);
    auto* v = new QVBoxLayout(central);
    auto* split = new QSplitter(Qt::Horizontal, central);
    w.lstD88 = new QTableView(split);
    w.lstD88->setObjectName(QStringLiteral("lstD88"));
    w.fraScrCom = new QFrame(split);
    w.fraScrCom->setObjectName(QStringLiteral("fraScrCom"));
    w.fraScrCom->setFrameShape(QFrame::StyledPanel);
    auto* pane = new QVBoxLayout(w.fraScrCom);
    w.imgScr = new QLabel(w.fraScrCom);
    w.imgScr->setObjectName(QStringLiteral("imgScr"));
    w.imgScr->setAlignment(Qt::AlignCenter);
    w.imgScr->setMinimumSize(320, 200);
    w.txtSyosai = new QTextEdit(w.fraScrCom);
    w.txtSyosai->setObjectName(QStringLiteral("txtSyosai"));
    w.txtSyosai->setReadOnly(true);
    pane->addWidget(w.imgScr);
    pane->addWidget(w.txtSyosai, 1);
    split->addWidget(w.lstD88);
    split->addWidget(w.fraScrCom);
    v->addWidget(split, 1);
    for (int i = 0; i < 3; ++i) {
        auto* f = new QFrame(central);
        f->setObjectName(QStringLiteral("fraFotter(%1)").arg(i));
        f->setFrameShape(QFrame::StyledPanel);
        new QHBoxLayout(f);
        f->setVisible(i == 0);
        w.fraFotter[size_t(i)] = f;
        v->addWidget(f);
    }
    window->setCentralWidget(central);
    w.statusBar = window->statusBar();
    return w;
}

} // namespace tv
